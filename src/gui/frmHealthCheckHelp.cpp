#include "gui/frmHealthCheckHelp.h"

#include "healthcheck/HealthCheckForm.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

QLabel* namedLabel(const QString& name, const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    return label;
}

QDialogButtonBox* okButton(QDialog* dialog) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    return buttons;
}

} // namespace

frmHealthCheckHelp::frmHealthCheckHelp(int step, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmHealthCheckHelp"));
    const HealthCheckHelpText help = ShowHealthCheckHelp(step);
    setWindowTitle(help.lbStepNote.trimmed());
    auto* header = namedLabel(QStringLiteral("lbStepHeader"), help.lbStepHeader, this);
    QFont bold = header->font();
    bold.setBold(true);
    header->setFont(bold);
    auto* text = namedLabel(QStringLiteral("lbStepHelp"), help.lbStepHelp, this);
    text->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(namedLabel(QStringLiteral("lbStepNote"), help.lbStepNote, this));
    layout->addWidget(header);
    layout->addWidget(text);
    layout->addWidget(okButton(this));
    setMinimumWidth(480);
}

frmStatistics::frmStatistics(const StatisticsForm& form, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmStatistics"));
    setWindowTitle(form.caption);
    auto* grid = new QGridLayout;
    grid->addWidget(namedLabel(QStringLiteral("lbPartitionName"), form.lbPartitionName, this), 0, 0,
                    1, 3);
    grid->addWidget(new QLabel(QStringLiteral("Server"), this), 1, 0);
    grid->addWidget(new QLabel(QStringLiteral("Successful"), this), 1, 1);
    grid->addWidget(new QLabel(QStringLiteral("Failed"), this), 1, 2);
    for (int i = 0; i < 9; ++i) {
        const auto n = static_cast<std::size_t>(i);
        const QString index = QString::number(i + 1);
        grid->addWidget(namedLabel(QStringLiteral("lbServer") + index, form.lbServer[n], this),
                        i + 2, 0);
        grid->addWidget(
            namedLabel(QStringLiteral("lbSucceeded") + index, form.lbSucceeded[n], this), i + 2, 1);
        grid->addWidget(namedLabel(QStringLiteral("lbFailed") + index, form.lbFailed[n], this),
                        i + 2, 2);
    }
    grid->addWidget(new QLabel(QStringLiteral("Total"), this), 11, 0);
    grid->addWidget(namedLabel(QStringLiteral("lbTotalSuccess"), form.lbTotalSuccess, this), 11, 1);
    grid->addWidget(namedLabel(QStringLiteral("lbTotalFailed"), form.lbTotalFailed, this), 11, 2);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addWidget(okButton(this));
}

} // namespace twk::gui
