#include "gui/frmHints.h"

#include "core/Engine.h"
#include "healthcheck/HealthCheckStart.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProcess>
#include <QVBoxLayout>

namespace twk::gui {

frmHints::frmHints(Engine& engine, QWidget* parent)
    : QDialog(parent),
      chkShowHints_(new QCheckBox(QStringLiteral("do not show these notes again"), this)) {
    setObjectName(QStringLiteral("frmHints"));
    setWindowTitle(QStringLiteral(" NDS-/eDirectory Health Check Hints"));
    chkShowHints_->setObjectName(QStringLiteral("chkShowHints"));
    chkShowHints_->setChecked(!ShowHintsWanted(engine));
    connect(chkShowHints_, &QCheckBox::toggled, this,
            [&engine](bool checked) { chkShowHints_Click(engine, checked); });
    auto* layout = new QVBoxLayout(this);
    auto* intro =
        new QLabel(QStringLiteral("Before a health check, please make sure that..."), this);
    layout->addWidget(intro);
    for (const QString& hint : HealthCheckHints()) {
        auto* label = new QLabel(QStringLiteral("\u2022 ") + hint, this);
        label->setWordWrap(true);
        layout->addWidget(label);
    }
    layout->addWidget(chkShowHints_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons);
    setMinimumWidth(460);
}

void showHealthCheckHints(Engine& engine, QWidget* parent) {
    frmHints hints(engine, parent);
    hints.exec();
}

void showLinuxHints(QWidget* parent) {
    QDialog box(parent);
    box.setObjectName(QStringLiteral("frmLinuxHints"));
    box.setWindowTitle(QStringLiteral(" Tarnwick"));
    auto* layout = new QVBoxLayout(&box);
    auto* text = new QLabel(LinuxHealthCheckHint(), &box);
    text->setWordWrap(true);
    layout->addWidget(text);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, &box);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &box, &QDialog::accept);
    layout->addWidget(buttons);
    box.setMinimumWidth(420);
    box.exec();
}

bool restartThisProgram() {
    if (!QProcess::startDetached(QApplication::applicationFilePath(), {}))
        return false;
    QApplication::quit();
    return true;
}

} // namespace twk::gui
