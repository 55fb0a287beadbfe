#include "gui/IconPagesForm.h"

#include "gui/ImageList.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace twk::gui {

namespace {

constexpr int kIconSize = 32;

std::size_t mostRows(const IconHelpModel& model) {
    std::size_t most = 0;
    IconHelpModel walk = model;
    for (int p = 0; p < walk.pageCount(); ++p, walk.cmdNext_Click())
        most = std::max(most, walk.rows().size());
    return most;
}

} // namespace

IconPagesForm::IconPagesForm(IconHelpModel model, const ImageList& images, QWidget* parent)
    : QDialog(parent), model_(std::move(model)), images_(images), lbPage_(new QLabel(this)),
      cmdNext_(new QPushButton(QStringLiteral("&next"), this)),
      cmdClose_(new QPushButton(QStringLiteral("&close"), this)) {
    setWindowTitle(model_.caption);
    const bool withTexts = !model_.rows().empty() && !model_.rows().front().text.isEmpty();

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(withTexts ? 10 : 4);
    const std::size_t count = mostRows(model_);
    for (std::size_t i = 0; i < count; ++i) {
        RowWidgets row{new QLabel(this), new QLabel(this), new QLabel(this)};
        row.icon->setFixedSize(kIconSize + 4, kIconSize + 4);
        row.icon->setAlignment(Qt::AlignCenter);
        row.name->setTextFormat(Qt::PlainText);
        row.text->setTextFormat(Qt::PlainText);
        row.text->setWordWrap(true);
        const int line = static_cast<int>(i);
        row.name->setObjectName(QStringLiteral("lbName%1").arg(line + 1));
        row.text->setObjectName(QStringLiteral("lbText%1").arg(line + 1));
        grid->addWidget(row.icon, line, 0, Qt::AlignTop);
        if (withTexts) {
            QFont bold = row.name->font();
            bold.setBold(true);
            row.name->setFont(bold);
            auto* words = new QVBoxLayout;
            words->setSpacing(1);
            words->addWidget(row.name);
            words->addWidget(row.text);
            row.text->setMinimumWidth(420);
            grid->addLayout(words, line, 1);
        } else {
            row.name->setMinimumWidth(280);
            grid->addWidget(row.name, line, 1, Qt::AlignVCenter);
            row.text->hide();
        }
        rows_.push_back(row);
    }
    grid->setColumnStretch(1, 1);

    lbPage_->setObjectName(QStringLiteral("lbPage"));
    cmdNext_->setObjectName(QStringLiteral("cmdNext"));
    cmdClose_->setObjectName(QStringLiteral("cmdClose"));
    cmdNext_->setDefault(true);
    connect(cmdNext_, &QPushButton::clicked, this, [this] {
        model_.cmdNext_Click();
        render();
    });
    connect(cmdClose_, &QPushButton::clicked, this, &IconPagesForm::reject);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lbPage_);
    buttons->addStretch();
    buttons->addWidget(cmdNext_);
    buttons->addWidget(cmdClose_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch();
    layout->addLayout(buttons);
    render();
}

void IconPagesForm::render() {
    const IconHelpPage& page = model_.rows();
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const RowWidgets& row = rows_[i];
        const bool used = i < page.size();
        row.icon->setVisible(used);
        row.name->setVisible(used);
        row.text->setVisible(used && !page[i].text.isEmpty());
        if (!used)
            continue;
        row.icon->setPixmap(images_.scaledPixmap(page[i].image, kIconSize));
        row.name->setText(page[i].name);
        row.text->setText(page[i].text);
    }
    lbPage_->setText(model_.pageText());
}

QStringList IconPagesForm::shownNames() const {
    QStringList names;
    for (std::size_t i = 0; i < model_.rows().size(); ++i)
        names << rows_[i].name->text();
    return names;
}

QStringList IconPagesForm::shownTexts() const {
    QStringList texts;
    for (std::size_t i = 0; i < model_.rows().size(); ++i)
        texts << rows_[i].text->text();
    return texts;
}

void IconPagesForm::reject() {
    model_.cmdClose_Click();
    QDialog::reject();
}

} // namespace twk::gui
