#include "gui/frmFilterCronlog.h"

#include "core/Engine.h"
#include "gui/FormBinding.h"
#include "gui/ImageList.h"
#include "logs/Cronlog.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

struct BoxPlace {
    const char* name;
    int image;
};
// Box order on the form, each with the status image of its rows.
constexpr std::array<BoxPlace, 5> kBoxes = {{{"chkSetCronlogSize", kCronSizeSet},
                                             {"chkActionSuccessful", kCronActionDone},
                                             {"chkActionFailed", kCronActionFailed},
                                             {"chkCronStarted", kCronStarted},
                                             {"chkCronStopped", kCronStopped}}};

} // namespace

frmFilterCronlog::frmFilterCronlog(Engine& engine, const ImageList& images, QWidget* parent)
    : QDialog(parent), engine_(engine), model_(engine), txtbAction_(new QLineEdit(this)) {
    setObjectName(QStringLiteral("frmFilterCronlog"));
    setWindowTitle(FilterCronlogModel::kCaption);

    auto* statusBox = new QGroupBox(QStringLiteral(" Status "), this);
    auto* statusLayout = new QVBoxLayout(statusBox);
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        auto* check = new QCheckBox(statusBox);
        check->setObjectName(QString::fromLatin1(kBoxes[i].name));
        check->setIcon(images.icon(kBoxes[i].image));
        connect(check, &QCheckBox::toggled, this, [this, i](bool on) { modelBox(i).checked = on; });
        boxes_[i] = check;
        statusLayout->addWidget(check);
    }
    cmdSelectAll_ = makeButton("cmdSelectAll", statusBox, QStringLiteral("&select all"));
    cmdDeselectAll_ = makeButton("cmdDeselectAll", statusBox, QStringLiteral("&deselect all"));
    auto* selection = new QHBoxLayout;
    selection->addWidget(cmdSelectAll_);
    selection->addWidget(cmdDeselectAll_);
    statusLayout->addLayout(selection);
    connect(cmdSelectAll_, &QPushButton::clicked, this, [this] {
        model_.cmdSelectAll_Click();
        render();
    });
    connect(cmdDeselectAll_, &QPushButton::clicked, this, [this] {
        model_.cmdDeselectAll_Click();
        render();
    });

    auto* searchBox = new QGroupBox(QStringLiteral(" Action "), this);
    auto* searchLayout = new QVBoxLayout(searchBox);
    txtbAction_->setObjectName(QStringLiteral("txtbAction"));
    txtbAction_->setMinimumWidth(280);
    searchLayout->addWidget(txtbAction_);
    onFocusIn(txtbAction_, [this] {
        model_.txtbAction_GotFocus();
        render();
    });
    connect(txtbAction_, &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.txtbAction = text; });

    cmdFilter_ = makeButton("cmdFilter", this, QStringLiteral("&Filter"));
    cmdCancel_ = makeButton("cmdCancel", this, QStringLiteral("&Cancel"));
    cmdFilter_->setDefault(true);
    connect(cmdFilter_, &QPushButton::clicked, this, &frmFilterCronlog::runFilter);
    connect(cmdCancel_, &QPushButton::clicked, this, &frmFilterCronlog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdFilter_);
    buttons->addWidget(cmdCancel_);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(statusBox);
    layout->addWidget(searchBox);
    layout->addLayout(buttons);

    render();
    cmdFilter_->setFocus();
}

FilterCheckBox& frmFilterCronlog::modelBox(std::size_t index) {
    FilterCheckBox* boxes[] = {&model_.chkSetCronlogSize, &model_.chkActionSuccessful,
                               &model_.chkActionFailed, &model_.chkCronStarted,
                               &model_.chkCronStopped};
    return *boxes[index];
}

void frmFilterCronlog::render() {
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        const QSignalBlocker block(boxes_[i]);
        boxes_[i]->setText(modelBox(i).caption);
        boxes_[i]->setChecked(modelBox(i).checked);
    }
    if (txtbAction_->text() != model_.txtbAction) {
        const QSignalBlocker block(txtbAction_);
        txtbAction_->setText(model_.txtbAction);
    }
}

void frmFilterCronlog::runFilter() {
    if (running_)
        return;
    running_ = true;
    model_.cmdFilter_Click(); // the bar of pane 5 follows through the window's state
    running_ = false;
    render();
    if (model_.closed)
        accept();
}

void frmFilterCronlog::reject() {
    if (running_)
        return; // the passes run to their end
    model_.cmdCancel_Click();
    QDialog::reject();
}

} // namespace twk::gui
