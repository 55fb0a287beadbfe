#pragma once
// frmSyslogTest, the syslog forwarding test of the monitor options, as a model. The
// options hand it their current fields; its three switches write through to the
// monitor's syslog settings, so a test can change what a running monitor sends.

#include "core/EngineHooks.h"
#include "core/FormControls.h"
#include "core/MainView.h"

#include <QChar>
#include <QString>

namespace twk {

class Engine;
class KLog;
struct SyslogSettings;

/// The fields as stored, for an opener that has none of its own.
SyslogTestRequest StoredSyslogTestRequest(const Engine& engine);

class FrmSyslogTest {
public:
    FrmSyslogTest(Engine& engine, KLog& klog, SyslogSettings& shared);

    QString caption = QStringLiteral(" SYSLOG(-NG) Message Forwarding Test");
    TextBoxState txtbServer;
    TextBoxState txtbPort;
    ListState cbProtocol;
    ListState cbFacility;
    ListState cbLevel;
    TextBoxState txtbPriority;
    TextBoxState txtbProcess;
    TextBoxState txtbMessage{QStringLiteral("SYSLOG(-NG) Message Forwarding Test")};
    CheckBoxState chkRFCHeader{QStringLiteral("RFC compliant header")};
    CheckBoxState chkCRLF{QStringLiteral("add CR LF")};
    CheckBoxState chkSilentErrors{QStringLiteral("silent errors")};
    ButtonState cmdSend{QStringLiteral("&Send")};
    ButtonState cmdExit{QStringLiteral("E&xit")};
    QString focus;
    bool closed = false;

    /// Fills the lists and takes the opener's fields; the shared switches follow them.
    void Form_Load(const SyslogTestRequest& fields);
    void cbProtocol_Click();
    void cbFacility_Click();
    void cbLevel_Click();
    void chkRFCHeader_Click();
    void chkCRLF_Click();
    void chkSilentErrors_Click();
    /// Whether a key typed into txtbProcess passes: digits, A to Z, a to z, Backspace.
    static bool txtbProcess_KeyPress(QChar key);
    /// Sends the test message; after a TCP send that worked, tells so.
    void cmdSend_Click();
    void cmdExit_Click();

private:
    void computePriority();

    Engine& engine_;
    KLog& klog_;
    SyslogSettings& shared_;
};

} // namespace twk
