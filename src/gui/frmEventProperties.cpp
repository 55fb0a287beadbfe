#include "gui/frmEventProperties.h"

#include "core/Engine.h"
#include "gui/ClickLabel.h"
#include "gui/FormBinding.h"
#include "gui/HelpPage.h"
#include "gui/ImageList.h"
#include "gui/PropertiesKeys.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

constexpr int kPropertiesIconSize = 32;

QLabel* caption(const char* text, QWidget* parent) {
    auto* label = new QLabel(QString::fromLatin1(text), parent);
    label->setStyleSheet(QStringLiteral("color: #5b626c;"));
    return label;
}

} // namespace

frmEventProperties::frmEventProperties(Engine& engine, const ImageList& images, QWidget* parent)
    : QDialog(parent), engine_(engine), images_(images), model_(engine) {
    setObjectName(QStringLiteral("frmEventProperties"));
    setWindowTitle(propertiesText::kCaption);
    setModal(false);

    lbDate_ = addLabel("lbDate");
    lbTime_ = addLabel("lbTime");
    lbStatus_ = new ClickLabel(this);
    lbStatus_->setObjectName(QStringLiteral("lbStatus"));
    lbSource_ = addLabel("lbSource");
    lbCategory_ = addLabel("lbCategory");
    lbEventNumber_ = addLabel("lbEventNumber");
    lbErrorDesc_ = new ClickLabel(this);
    lbErrorDesc_->setObjectName(QStringLiteral("lbErrorDesc"));
    lbErrorNumber_ = addLabel("lbErrorNumber");
    lbErrorMessage_ = addLabel("lbErrorMessage");
    lbStatusDesc_ = addLabel("lbStatusDesc");
    for (QLabel* wrapped : {lbErrorMessage_, lbStatusDesc_}) {
        wrapped->setWordWrap(true);
        wrapped->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    }
    lbErrorMessage_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lbErrorMessage_->setFrameShape(QFrame::StyledPanel);
    lbErrorMessage_->setFrameShadow(QFrame::Sunken);
    lbErrorMessage_->setMinimumHeight(60);
    lbErrorMessage_->setMargin(4);
    lbStatusDesc_->setMinimumHeight(44);
    QFont bold = lbStatus_->font();
    bold.setBold(true);
    lbStatus_->setFont(bold);
    lbStatus_->setTextFormat(Qt::PlainText);
    lbErrorDesc_->setTextFormat(Qt::PlainText);
    picStatus_ = new QLabel(this);
    picStatus_->setObjectName(QStringLiteral("picStatus"));
    picErrorType_ = new QLabel(this);
    picErrorType_->setObjectName(QStringLiteral("picErrorType"));
    for (QLabel* picture : {picStatus_, picErrorType_}) {
        picture->setFixedSize(kPropertiesIconSize + 4, kPropertiesIconSize + 4);
        picture->setAlignment(Qt::AlignCenter);
    }

    cmdUp_ = makeButton("cmdUp", this);
    cmdDown_ = makeButton("cmdDown", this);
    cmdCopy_ = makeButton("cmdCopy", this);
    cmdExit_ = makeButton("cmdExit", this);
    cmdSourceHelp_ = makeButton("cmdSourceHelp", this);
    cmdSourceHelp_->setIcon(images.icon(QStringLiteral("HELP")));
    cmdSourceHelp_->setToolTip(QStringLiteral(" what does this source mean? "));
    cmdFileHook_ = makeButton("cmdFileHook", this);
    cmdFileHook_->setText(QStringLiteral(" decode "));
    cmdFileHook_->setIcon(images.icon(QStringLiteral("NOVELL")));
    cmdFileHook_->setToolTip(
        QStringLiteral(" explain the file system hook or the error code of the message "));
    cmdExit_->setDefault(true);

    connect(cmdUp_, &QPushButton::clicked, this, [this] { walk(false); });
    connect(cmdDown_, &QPushButton::clicked, this, [this] { walk(true); });
    connect(cmdCopy_, &QPushButton::clicked, this, &frmEventProperties::copyToClipboard);
    connect(cmdExit_, &QPushButton::clicked, this, &frmEventProperties::closeForm);
    connect(cmdSourceHelp_, &QPushButton::clicked, this, [this] { model_.cmdSourceHelp_Click(); });
    connect(cmdFileHook_, &QPushButton::clicked, this, [this] { model_.cmdFileHook_Click(); });
    connect(lbStatus_, &ClickLabel::clicked, this,
            [this] { openHelpPage(engine_, model_.lbStatus_Click()); });
    connect(lbErrorDesc_, &ClickLabel::clicked, this,
            [this] { openHelpPage(engine_, model_.lbErrorDesc_Click()); });

    // The event: status with its explanation, then the facts, then the message.
    auto* status = new QGridLayout;
    status->addWidget(picStatus_, 0, 0, 2, 1, Qt::AlignTop);
    status->addWidget(lbStatus_, 0, 1);
    status->addWidget(lbStatusDesc_, 1, 1);
    status->setColumnStretch(1, 1);

    // A value with its button right beside it.
    const auto withButton = [](QLabel* value, QPushButton* button) {
        auto* row = new QHBoxLayout;
        row->setSpacing(8);
        row->addWidget(value);
        row->addWidget(button);
        row->addStretch();
        return row;
    };
    auto* facts = new QGridLayout;
    facts->setHorizontalSpacing(10);
    facts->addWidget(caption("Event #:", this), 0, 0);
    facts->addWidget(lbEventNumber_, 0, 1);
    facts->addWidget(caption("Date:", this), 1, 0);
    facts->addWidget(lbDate_, 1, 1);
    facts->addWidget(caption("Time:", this), 1, 2);
    facts->addWidget(lbTime_, 1, 3);
    facts->addWidget(caption("Source:", this), 2, 0);
    facts->addLayout(withButton(lbSource_, cmdSourceHelp_), 2, 1, 1, 4);
    facts->addWidget(caption("Category:", this), 3, 0);
    facts->addWidget(lbCategory_, 3, 1, 1, 4);
    facts->addWidget(caption("Error #:", this), 4, 0);
    facts->addLayout(withButton(lbErrorNumber_, cmdFileHook_), 4, 1, 1, 4);
    facts->setColumnStretch(4, 1);

    auto* eventType = new QHBoxLayout;
    eventType->addWidget(picErrorType_);
    eventType->addWidget(lbErrorDesc_, 1);

    auto* message = new QVBoxLayout;
    message->addWidget(caption("Error Message:", this));
    message->addWidget(lbErrorMessage_, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdUp_);
    buttons->addWidget(cmdDown_);
    buttons->addStretch();
    buttons->addWidget(cmdCopy_);
    buttons->addWidget(cmdExit_);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(status);
    layout->addLayout(facts);
    layout->addLayout(eventType);
    layout->addLayout(message, 1);
    layout->addLayout(buttons);
    setMinimumWidth(560);
    render();
}

QLabel* frmEventProperties::addLabel(const char* name) {
    auto* label = new QLabel(this);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel* frmEventProperties::label(const QString& name) const {
    return findChild<QLabel*>(name);
}

bool frmEventProperties::openRow(int gridRow) {
    if (!model_.open(gridRow))
        return false;
    render();
    show();
    raise();
    activateWindow();
    return true;
}

void frmEventProperties::closeForm() {
    model_.cmdExit_Click();
    hide();
}

void frmEventProperties::render() {
    showButton(cmdUp_, model_.cmdUp);
    showButton(cmdDown_, model_.cmdDown);
    showButton(cmdCopy_, model_.cmdCopy);
    showButton(cmdExit_, model_.cmdExit);
    showButton(cmdSourceHelp_, model_.cmdSourceHelp);
    showButton(cmdFileHook_, model_.cmdFileHook);
    cmdExit_->setDefault(true);
    showLabel(lbDate_, model_.lbDate);
    showLabel(lbTime_, model_.lbTime);
    showLabel(lbStatus_, model_.lbStatus);
    showLabel(lbSource_, model_.lbSource);
    showLabel(lbCategory_, model_.lbCategory);
    showLabel(lbEventNumber_, model_.lbEventNumber);
    showLabel(lbErrorDesc_, model_.lbErrorDesc);
    showLabel(lbErrorNumber_, model_.lbErrorNumber);
    showLabel(lbErrorMessage_, model_.lbErrorMessage);
    showLabel(lbStatusDesc_, model_.lbStatusDesc);
    picStatus_->setPixmap(images_.scaledPixmap(model_.picStatus, kPropertiesIconSize));
    picErrorType_->setPixmap(images_.scaledPixmap(model_.picErrorType, kPropertiesIconSize));
}

void frmEventProperties::walk(bool down) {
    if (down)
        model_.cmdDown_Click();
    else
        model_.cmdUp_Click();
    render();
}

void frmEventProperties::copyToClipboard() {
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(model_.cmdCopy_Click());
}

void frmEventProperties::keyPressEvent(QKeyEvent* event) {
    if (!handlePropertiesKey(event, engine_, [this](bool down) { walk(down); }))
        QDialog::keyPressEvent(event);
}

void frmEventProperties::closeEvent(QCloseEvent* event) {
    model_.cmdExit_Click();
    QDialog::closeEvent(event);
}

void frmEventProperties::reject() {
    closeForm();
    QDialog::reject();
}

} // namespace twk::gui
