#include "gui/frmRTMProperties.h"

#include "core/Engine.h"
#include "gui/ClickLabel.h"
#include "gui/FormBinding.h"
#include "gui/HelpPage.h"
#include "gui/ImageList.h"
#include "gui/PropertiesKeys.h"
#include "logs/EventPropertiesForm.h"

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

constexpr int kRtmIconSize = 32;

QLabel* rtmCaption(const char* text) {
    auto* label = new QLabel(QString::fromLatin1(text));
    label->setStyleSheet(QStringLiteral("color: #5b626c;"));
    return label;
}

} // namespace

frmRTMProperties::frmRTMProperties(Engine& engine, const ImageList& images, QWidget* parent)
    : QDialog(parent), engine_(engine), images_(images), model_(engine) {
    setObjectName(QStringLiteral("frmRTMProperties"));
    setWindowTitle(rtmPropertiesText::kCaption);
    setModal(false);

    picStatus_ = new QLabel(this);
    picStatus_->setObjectName(QStringLiteral("picStatus"));
    picErrorType_ = new QLabel(this);
    picErrorType_->setObjectName(QStringLiteral("picErrorType"));
    for (QLabel* picture : {picStatus_, picErrorType_}) {
        picture->setFixedSize(kRtmIconSize + 4, kRtmIconSize + 4);
        picture->setAlignment(Qt::AlignCenter);
    }
    QLabel* lbErrorMessage = addLabel("lbErrorMessage", model_.lbErrorMessage);
    lbErrorMessage->setWordWrap(true);
    lbErrorMessage->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    lbErrorMessage->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lbErrorMessage->setMinimumHeight(60);

    QPushButton* cmdSourceHelp = addButton("cmdSourceHelp", model_.cmdSourceHelp);
    cmdSourceHelp->setIcon(images.icon(QStringLiteral("HELP")));
    cmdSourceHelp->setToolTip(QStringLiteral(" what does this source mean? "));
    QPushButton* cmdFileHook = addButton("cmdFileHook", model_.cmdFileHook);
    cmdFileHook->setIcon(images.icon(QStringLiteral("NOVELL")));
    cmdFileHook->setToolTip(
        QStringLiteral(" explain the file system hook or the error code of the message "));
    QPushButton* cmdUp = addButton("cmdUp", model_.cmdUp);
    QPushButton* cmdDown = addButton("cmdDown", model_.cmdDown);
    QPushButton* cmdCopy = addButton("cmdCopy", model_.cmdCopy);
    QPushButton* cmdExit = addButton("cmdExit", model_.cmdExit);
    cmdExit->setDefault(true);

    connect(cmdUp, &QPushButton::clicked, this, [this] { walk(false); });
    connect(cmdDown, &QPushButton::clicked, this, [this] { walk(true); });
    connect(cmdCopy, &QPushButton::clicked, this, [this] {
        QClipboard* clipboard = QGuiApplication::clipboard();
        clipboard->clear();
        clipboard->setText(model_.cmdCopy_Click());
    });
    connect(cmdExit, &QPushButton::clicked, this, &frmRTMProperties::reject);
    connect(cmdSourceHelp, &QPushButton::clicked, this, [this] { model_.cmdSourceHelp_Click(); });
    connect(cmdFileHook, &QPushButton::clicked, this, [this] { model_.cmdFileHook_Click(); });

    // The server: LED and state, name, date.
    auto* server = new QGroupBox(QStringLiteral(" Server "), this);
    auto* s = new QGridLayout(server);
    s->addWidget(picStatus_, 0, 0, 2, 1, Qt::AlignTop);
    s->addWidget(addLabel("lbStatus", model_.lbStatus), 0, 1, 1, 3);
    s->addWidget(rtmCaption("Server:"), 1, 1);
    s->addWidget(addLabel("lbServer", model_.lbServer), 1, 2);
    s->addWidget(rtmCaption("Date:"), 2, 1);
    s->addWidget(addLabel("lbDate", model_.lbDate), 2, 2);
    s->addWidget(rtmCaption("Source:"), 3, 1);
    s->addWidget(addLabel("lbSource", model_.lbSource), 3, 2);
    s->addWidget(cmdSourceHelp, 3, 3, Qt::AlignLeft);
    s->addWidget(rtmCaption("Category:"), 4, 1);
    s->addWidget(addLabel("lbCategory", model_.lbCategory), 4, 2, 1, 2);
    s->setColumnStretch(2, 1);

    auto* eventType = new QGroupBox(QStringLiteral(" Event Type "), this);
    auto* t = new QGridLayout(eventType);
    t->addWidget(picErrorType_, 0, 0, 2, 1, Qt::AlignTop);
    t->addWidget(addLabel("lbErrorDesc", model_.lbErrorDesc), 0, 1, 1, 3);
    t->addWidget(rtmCaption("Error #:"), 1, 1);
    t->addWidget(addLabel("lbErrorNumber", model_.lbErrorNumber), 1, 2);
    t->addWidget(cmdFileHook, 1, 3, Qt::AlignLeft);
    t->setColumnStretch(2, 1);

    auto* message = new QGroupBox(QStringLiteral(" Error Message "), this);
    auto* m = new QVBoxLayout(message);
    m->addWidget(lbErrorMessage);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdUp);
    buttons->addWidget(cmdDown);
    buttons->addStretch();
    buttons->addWidget(cmdCopy);
    buttons->addWidget(cmdExit);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(server);
    layout->addWidget(eventType);
    layout->addWidget(message, 1);
    layout->addLayout(buttons);
    setMinimumWidth(520);

    for (const char* link : {"lbStatus", "lbErrorDesc"}) {
        auto* clickable = findChild<ClickLabel*>(QLatin1String(link));
        const bool status = qstrcmp(link, "lbStatus") == 0;
        connect(clickable, &ClickLabel::clicked, this, [this, status] {
            openHelpPage(engine_, status ? model_.lbStatus_Click() : model_.lbErrorDesc_Click());
        });
    }
    render();
}

QLabel* frmRTMProperties::addLabel(const char* name, LabelState& state) {
    auto* label = new ClickLabel(this);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    labels_.emplace_back(label, &state);
    return label;
}

QPushButton* frmRTMProperties::addButton(const char* name, ButtonState& state) {
    auto* button = new QPushButton(this);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    buttons_.emplace_back(button, &state);
    return button;
}

QLabel* frmRTMProperties::label(const QString& name) const {
    return findChild<QLabel*>(name);
}

QPushButton* frmRTMProperties::button(const QString& name) const {
    return findChild<QPushButton*>(name);
}

bool frmRTMProperties::openRow(int gridRow) {
    if (!model_.open(gridRow))
        return false;
    render();
    show();
    raise();
    activateWindow();
    return true;
}

void frmRTMProperties::render() {
    for (const auto& [l, state] : labels_)
        showLabel(l, *state);
    for (const auto& [b, state] : buttons_)
        showButton(b, *state);
    button(QStringLiteral("cmdExit"))->setDefault(true);
    picStatus_->setPixmap(images_.scaledPixmap(model_.picStatus, kRtmIconSize));
    picErrorType_->setPixmap(images_.scaledPixmap(model_.picErrorType, kRtmIconSize));
}

void frmRTMProperties::walk(bool down) {
    if (down)
        model_.cmdDown_Click();
    else
        model_.cmdUp_Click();
    render();
}

void frmRTMProperties::keyPressEvent(QKeyEvent* event) {
    if (!handlePropertiesKey(event, engine_, [this](bool down) { walk(down); }))
        QDialog::keyPressEvent(event);
}

void frmRTMProperties::closeEvent(QCloseEvent* event) {
    model_.cmdExit_Click();
    QDialog::closeEvent(event);
}

void frmRTMProperties::reject() {
    model_.cmdExit_Click();
    QDialog::reject();
}

} // namespace twk::gui
