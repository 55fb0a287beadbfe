#include "gui/frmSyslogTest.h"

#include "gui/FormBinding.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

template <typename Widget> Widget* named(const char* name, QWidget* parent) {
    auto* w = new Widget(parent);
    w->setObjectName(QString::fromLatin1(name));
    return w;
}

} // namespace

frmSyslogTest::frmSyslogTest(Engine& engine, KLog& klog, SyslogSettings& shared,
                             const SyslogTestRequest& fields, QWidget* parent)
    : QDialog(parent), model_(engine, klog, shared) {
    setObjectName(QStringLiteral("frmSyslogTest"));
    setWindowTitle(model_.caption);
    txtbServer_ = named<QLineEdit>("txtbServer", this);
    txtbPort_ = named<QLineEdit>("txtbPort", this);
    cbProtocol_ = named<QComboBox>("cbProtocol", this);
    cbFacility_ = named<QComboBox>("cbFacility", this);
    cbLevel_ = named<QComboBox>("cbLevel", this);
    txtbPriority_ = named<QLineEdit>("txtbPriority", this);
    txtbPriority_->setReadOnly(true);
    txtbProcess_ = named<QLineEdit>("txtbProcess", this);
    // Digits and the letters A to Z only, as the key filter of the field lets pass.
    txtbProcess_->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[0-9A-Za-z]*")), txtbProcess_));
    txtbMessage_ = named<QLineEdit>("txtbMessage", this);
    txtbMessage_->setMinimumWidth(360);
    chkRFCHeader_ = named<QCheckBox>("chkRFCHeader", this);
    chkCRLF_ = named<QCheckBox>("chkCRLF", this);
    chkSilentErrors_ = named<QCheckBox>("chkSilentErrors", this);
    cmdSend_ = named<QPushButton>("cmdSend", this);
    cmdExit_ = named<QPushButton>("cmdExit", this);
    cmdSend_->setDefault(true);

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Syslog server:"), txtbServer_);
    form->addRow(QStringLiteral("Port:"), txtbPort_);
    form->addRow(QStringLiteral("Protocol:"), cbProtocol_);
    form->addRow(QStringLiteral("Facility:"), cbFacility_);
    form->addRow(QStringLiteral("Level:"), cbLevel_);
    form->addRow(QStringLiteral("Priority:"), txtbPriority_);
    form->addRow(QStringLiteral("Process:"), txtbProcess_);
    form->addRow(QStringLiteral("Message:"), txtbMessage_);
    auto* checks = new QHBoxLayout;
    checks->addWidget(chkRFCHeader_);
    checks->addWidget(chkCRLF_);
    checks->addWidget(chkSilentErrors_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdSend_);
    buttons->addWidget(cmdExit_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(checks);
    layout->addLayout(buttons);

    const auto list = [this](QComboBox* combo, ListState& state, void (FrmSyslogTest::*handler)()) {
        connect(combo, &QComboBox::activated, this, [this, &state, handler](int index) {
            act([this, &state, handler, index] {
                state.ListIndex = index;
                (model_.*handler)();
            });
        });
    };
    list(cbProtocol_, model_.cbProtocol, &FrmSyslogTest::cbProtocol_Click);
    list(cbFacility_, model_.cbFacility, &FrmSyslogTest::cbFacility_Click);
    list(cbLevel_, model_.cbLevel, &FrmSyslogTest::cbLevel_Click);
    const auto check = [this](QCheckBox* box, CheckBoxState& state,
                              void (FrmSyslogTest::*handler)()) {
        connect(box, &QCheckBox::toggled, this, [this, &state, handler](bool on) {
            act([this, &state, handler, on] {
                state.checked = on;
                (model_.*handler)();
            });
        });
    };
    check(chkRFCHeader_, model_.chkRFCHeader, &FrmSyslogTest::chkRFCHeader_Click);
    check(chkCRLF_, model_.chkCRLF, &FrmSyslogTest::chkCRLF_Click);
    check(chkSilentErrors_, model_.chkSilentErrors, &FrmSyslogTest::chkSilentErrors_Click);
    const auto edit = [this](QLineEdit* field, TextBoxState& state) {
        connect(field, &QLineEdit::textEdited, this,
                [&state](const QString& text) { state.text = text; });
    };
    edit(txtbServer_, model_.txtbServer);
    edit(txtbPort_, model_.txtbPort);
    edit(txtbProcess_, model_.txtbProcess);
    edit(txtbMessage_, model_.txtbMessage);
    connect(cmdSend_, &QPushButton::clicked, this,
            [this] { act([this] { model_.cmdSend_Click(); }); });
    connect(cmdExit_, &QPushButton::clicked, this, [this] {
        model_.cmdExit_Click();
        accept();
    });

    model_.Form_Load(fields);
    render();
}

template <typename Handler> void frmSyslogTest::act(Handler handler) {
    model_.focus.clear();
    handler();
    render();
    if (QWidget* target = childNamed(this, model_.focus); target && !target->hasFocus())
        target->setFocus(Qt::OtherFocusReason);
}

void frmSyslogTest::render() {
    showTextBox(txtbServer_, model_.txtbServer);
    showTextBox(txtbPort_, model_.txtbPort);
    showList(cbProtocol_, model_.cbProtocol);
    showList(cbFacility_, model_.cbFacility);
    showList(cbLevel_, model_.cbLevel);
    showTextBox(txtbPriority_, model_.txtbPriority);
    showTextBox(txtbProcess_, model_.txtbProcess);
    showTextBox(txtbMessage_, model_.txtbMessage);
    showCheckBox(chkRFCHeader_, model_.chkRFCHeader);
    showCheckBox(chkCRLF_, model_.chkCRLF);
    showCheckBox(chkSilentErrors_, model_.chkSilentErrors);
    showButton(cmdSend_, model_.cmdSend);
    showButton(cmdExit_, model_.cmdExit);
}

} // namespace twk::gui
