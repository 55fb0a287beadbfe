#include "alerts/SyslogTestForm.h"

#include "alerts/SyslogForwarding.h"
#include "core/Engine.h"
#include "core/Text.h"
#include "core/settings/SettingsKeys.h"

namespace twk {

namespace {

constexpr int kUdp = 0;
constexpr int kTcp = 1;
constexpr int kDefaultFacility = 1; // User
constexpr int kDefaultLevel = 5;    // Notice

} // namespace

SyslogTestRequest StoredSyslogTestRequest(const Engine& engine) {
    const SyslogSettings s = ReadSyslogSettings(engine.registry);
    SyslogTestRequest f;
    f.server = s.server;
    f.port = QString::number(s.port);
    f.protocol = s.UseTCP ? kTcp : kUdp;
    f.rfcHeader = s.UseRFCHeader;
    f.crlf = s.AddCRLF;
    f.silentErrors = s.UseSilentErrors;
    return f;
}

FrmSyslogTest::FrmSyslogTest(Engine& engine, KLog& klog, SyslogSettings& shared)
    : engine_(engine), klog_(klog), shared_(shared) {}

void FrmSyslogTest::Form_Load(const SyslogTestRequest& fields) {
    cbProtocol.items = QStringList{QStringLiteral("Syslog UDP"), QStringLiteral("Syslog TCP")};
    cbFacility.items = SyslogFacilityNames();
    cbLevel.items = SyslogLevelNames();
    cbFacility.ListIndex = kDefaultFacility;
    cbLevel.ListIndex = kDefaultLevel;
    computePriority();

    txtbServer.text = fields.server;
    txtbPort.text = fields.port;
    // The opener's choice of the protocol is taken as it is, without the click's presets.
    cbProtocol.ListIndex = fields.protocol == kTcp ? kTcp : kUdp;
    chkRFCHeader.checked = fields.rfcHeader;
    chkCRLF.checked = fields.crlf;
    chkSilentErrors.checked = fields.silentErrors;
    chkSilentErrors.enabled = cbProtocol.ListIndex == kTcp;
    txtbProcess.text = fields.rfcHeader ? QStringLiteral("TWK") : QString();
    txtbProcess.enabled = fields.rfcHeader;
    txtbProcess.greyBackground = !fields.rfcHeader;

    shared_.UseRFCHeader = fields.rfcHeader;
    shared_.AddCRLF = fields.crlf;
    shared_.UseSilentErrors = fields.silentErrors;
    shared_.UseTCP = cbProtocol.ListIndex == kTcp;
    focus = QStringLiteral("txtbMessage");
}

void FrmSyslogTest::computePriority() {
    txtbPriority.text =
        QString::number(std::max(cbFacility.ListIndex, 0) * 8 + std::max(cbLevel.ListIndex, 0));
}

void FrmSyslogTest::cbProtocol_Click() {
    if (cbProtocol.ListIndex == kTcp) {
        chkSilentErrors.checked = false;
        chkSilentErrors.enabled = true;
        shared_.UseSilentErrors = false;
        shared_.UseTCP = true;
    } else {
        txtbPort.text = QStringLiteral("514");
        chkSilentErrors.checked = false;
        chkSilentErrors.enabled = false;
        // UDP has no answer to wait for: it runs with silent errors whatever the box shows.
        shared_.UseSilentErrors = true;
        shared_.UseTCP = false;
    }
    focus = QStringLiteral("cmdExit");
}

void FrmSyslogTest::cbFacility_Click() {
    computePriority();
}

void FrmSyslogTest::cbLevel_Click() {
    computePriority();
}

void FrmSyslogTest::chkRFCHeader_Click() {
    if (chkRFCHeader.checked) {
        txtbProcess.text = QStringLiteral("TWK");
        txtbProcess.greyBackground = false;
        txtbProcess.enabled = true;
        shared_.UseRFCHeader = true;
    } else {
        txtbProcess.text.clear();
        txtbProcess.greyBackground = true;
        txtbProcess.enabled = false;
        shared_.UseRFCHeader = false;
    }
}

void FrmSyslogTest::chkCRLF_Click() {
    shared_.AddCRLF = chkCRLF.checked;
}

void FrmSyslogTest::chkSilentErrors_Click() {
    shared_.UseSilentErrors = chkSilentErrors.checked;
}

bool FrmSyslogTest::txtbProcess_KeyPress(QChar key) {
    const char16_t c = key.unicode();
    return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') ||
           c == u'\b';
}

void FrmSyslogTest::cmdSend_Click() {
    QString message = txtbMessage.text;
    if (shared_.AddCRLF)
        message += QStringLiteral("\r\n");
    const QString server = txtbServer.text;
    const int port = text::numericInt(txtbPort.text);
    const SyslogSendResult result = SendSyslogMessage(
        engine_, klog_, server, port, text::numericInt(txtbPriority.text), shared_.UseRFCHeader,
        txtbProcess.text, message, shared_.UseSilentErrors, shared_.UseTCP);
    if (result.number == 0 && shared_.UseTCP)
        engine_.ui.messageBox(
            QStringLiteral("SYSLOG(-NG) Message successfully sent to       \r\n") +
                QStringLiteral("Host ") + server + QStringLiteral(" on Port ") + txtbPort.text +
                QStringLiteral("."),
            MsgIcon::Information, MsgButtons::Ok, kMessageTitle);
}

void FrmSyslogTest::cmdExit_Click() {
    closed = true;
}

} // namespace twk
