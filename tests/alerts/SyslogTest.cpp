// Syslog forwarding against rsyslog on 127.0.0.1 (UDP and TCP), the library's errors
// and their box, and the controls of the syslog test dialog.

#include "AlertTestSupport.h"
#include "alerts/SyslogTestForm.h"

using namespace twk;
using test::AlertEngine;
using test::RowSpec;

namespace {

class Syslog : public ::testing::Test {
protected:
    void SetUp() override {
        if (!receiver.missing.isEmpty())
            GTEST_SKIP() << receiver.missing.toStdString();
        ASSERT_TRUE(receiver.ready);
        alerts = InstallMonitorAlerts(a.engine);
        a.setRow(1);
    }
    void forwardTo(int port, int protocol, int rfcHeader, int crlf) {
        const QString key = twkKey(QStringLiteral("Realtime Monitor\\Event Forwarding"));
        Registry& r = a.engine.registry;
        r.Reg_SetString(Hive::CurrentUser, key, QStringLiteral("SyslogServer"),
                        QStringLiteral("127.0.0.1"));
        r.Reg_SetDWord(Hive::CurrentUser, key, QStringLiteral("DestinationPort"),
                       static_cast<quint32>(port));
        r.Reg_SetDWord(Hive::CurrentUser, key, QStringLiteral("SyslogProtocol"),
                       static_cast<quint32>(protocol));
        r.Reg_SetDWord(Hive::CurrentUser, key, QStringLiteral("RFCHeader"),
                       static_cast<quint32>(rfcHeader));
        r.Reg_SetDWord(Hive::CurrentUser, key, QStringLiteral("addCRLF"),
                       static_cast<quint32>(crlf));
        alerts->MonitorStarting();
    }

    test::SyslogReceiver receiver;
    AlertEngine a;
    std::unique_ptr<MonitorAlerts> alerts;
};

} // namespace

TEST_F(Syslog, UdpWithTheHeaderOfTheStandard) {
    forwardTo(receiver.udpPort, 0, 1, 1);
    a.rule(1).SyslogPriority = 8 * 16 + 3; // Local0, Error
    alerts->RunAlertOptions(1, 1);
    const auto got = receiver.messages(1);
    ASSERT_EQ(got.size(), 1u);
    EXPECT_EQ(got[0]["pri"].toString(), QStringLiteral("131"));
    EXPECT_EQ(got[0]["tag"].toString(), QStringLiteral("TWK:"));
    EXPECT_EQ(got[0]["msg"].toString(),
              QStringLiteral(" Server: FS1, RTM State: FAILURE, Date: 2024-05-06 10:00:00, Status: "
                             "Critical, Source: Server, Category: Communication, Error#: 1.1.52, "
                             "ErrorMessage: Unable to communicate with server FS2.#015"));
    // "<131>Mmm dd hh:mm:ss host TWK: ..."
    EXPECT_TRUE(
        QRegularExpression(
            QStringLiteral(
                "^<131>[A-Z][a-z]{2} [ 1-3][0-9] \\d\\d:\\d\\d:\\d\\d \\S+ TWK: Server: FS1,"))
            .match(got[0]["raw"].toString())
            .hasMatch())
        << got[0]["raw"].toString().toStdString();
    EXPECT_TRUE(a.ui.messages.empty());
}

TEST_F(Syslog, TcpWithoutHeaderAndCutAt900) {
    forwardTo(receiver.tcpPort, 1, 0, 0);
    a.setRow(2, RowSpec{QStringLiteral("FS2"), 38, {}, {}, {}, {}, 24, {}, QString(1200, 'm')});
    a.rule(1).SyslogPriority = 0;
    alerts->RunAlertOptions(1, 1);
    alerts->RunAlertOptions(1, 2);
    const auto got = receiver.messages(2);
    ASSERT_EQ(got.size(), 2u);
    EXPECT_TRUE(got[0]["raw"].toString().startsWith(
        QStringLiteral("<0>TWK: Server: FS1, RTM State: FAILURE,")));
    EXPECT_FALSE(got[0]["raw"].toString().contains(QStringLiteral("#015")));
    const QString second = got[1]["raw"].toString();
    EXPECT_EQ(second.size(), 900 + 8) << "<0>TWK: and the 900 characters";
    EXPECT_TRUE(second.endsWith(QStringLiteral("mmm")));
    EXPECT_TRUE(a.ui.messages.empty());
    EXPECT_EQ(alerts->klog().openHandles(), 0);
}

TEST_F(Syslog, RefusedTcpConnectionShowsTheLibrarysError) {
    const int closed = test::freePort();
    forwardTo(closed, 1, 1, 1);
    a.rule(1).SyslogPriority = 13;
    a.rule(1).LocalLogfile = 1;
    alerts->RunAlertOptions(1, 1);
    ASSERT_EQ(a.ui.messages.size(), 1u);
    EXPECT_EQ(a.ui.messages[0].title, QStringLiteral(" KLOG.DLL error 6"));
    EXPECT_EQ(a.ui.messages[0].text,
              QStringLiteral("Connection to 127.0.0.1 on port %1 refused.").arg(closed));
    EXPECT_EQ(alerts->klog().openHandles(), 0);
}

TEST_F(Syslog, TestDialogSendsWithItsOwnFields) {
    FrmSyslogTest form(a.engine, alerts->klog(), alerts->syslogSettings());
    SyslogTestRequest fields;
    fields.server = QStringLiteral("127.0.0.1");
    fields.port = QString::number(receiver.tcpPort);
    fields.protocol = 1;
    form.Form_Load(fields);
    form.cbFacility.ListIndex = 4; // Auth
    form.cbFacility_Click();
    form.cbLevel.ListIndex = 2; // Critical
    form.cbLevel_Click();
    EXPECT_EQ(form.txtbPriority.text, QStringLiteral("34"));
    form.txtbMessage.text = QStringLiteral("hello from the test");
    form.chkCRLF.checked = false;
    form.chkCRLF_Click();
    form.cmdSend_Click();
    const auto got = receiver.messages(1);
    ASSERT_EQ(got.size(), 1u);
    EXPECT_EQ(got[0]["pri"].toString(), QStringLiteral("34"));
    EXPECT_EQ(got[0]["msg"].toString(), QStringLiteral(" hello from the test"));
    ASSERT_EQ(a.ui.messages.size(), 1u);
    EXPECT_EQ(a.ui.messages[0].text,
              QStringLiteral(
                  "SYSLOG(-NG) Message successfully sent to       \r\nHost 127.0.0.1 on Port %1.")
                  .arg(receiver.tcpPort));
    EXPECT_EQ(a.ui.messages[0].icon, MsgIcon::Information);

    form.cbProtocol.ListIndex = 0;
    form.cbProtocol_Click();
    form.txtbPort.text = QString::number(receiver.udpPort);
    form.cmdSend_Click();
    EXPECT_EQ(receiver.messages(2).size(), 2u);
    EXPECT_EQ(a.ui.messages.size(), 1u) << "UDP has no answer to report";
}

TEST(SyslogTestForm, ControlsFollowProtocolAndHeader) {
    AlertEngine a;
    KLog klog;
    SyslogSettings shared;
    FrmSyslogTest form(a.engine, klog, shared);
    SyslogTestRequest fields;
    fields.port = QStringLiteral("1514");
    fields.silentErrors = true;
    fields.rfcHeader = false;
    form.Form_Load(fields);
    EXPECT_EQ(form.caption, QStringLiteral(" SYSLOG(-NG) Message Forwarding Test"));
    EXPECT_EQ(form.cbProtocol.items,
              (QStringList{QStringLiteral("Syslog UDP"), QStringLiteral("Syslog TCP")}));
    EXPECT_EQ(form.cbFacility.items.size(), 24);
    EXPECT_EQ(form.cbFacility.items[12], QStringLiteral("System2 - NTP"));
    EXPECT_EQ(form.cbLevel.items[6], QStringLiteral("Information"));
    EXPECT_EQ(form.txtbMessage.text, QStringLiteral("SYSLOG(-NG) Message Forwarding Test"));
    EXPECT_EQ(form.txtbPort.text, QStringLiteral("1514"))
        << "the opener's protocol brings no preset";
    EXPECT_FALSE(form.chkSilentErrors.enabled);
    EXPECT_TRUE(form.txtbProcess.text.isEmpty());
    EXPECT_FALSE(form.txtbProcess.enabled);
    EXPECT_FALSE(shared.UseRFCHeader);

    form.cbProtocol.ListIndex = 1;
    form.cbProtocol_Click();
    EXPECT_TRUE(form.chkSilentErrors.enabled);
    EXPECT_FALSE(form.chkSilentErrors.checked);
    EXPECT_TRUE(shared.UseTCP);
    EXPECT_FALSE(shared.UseSilentErrors);
    EXPECT_EQ(form.focus, QStringLiteral("cmdExit"));

    form.cbProtocol.ListIndex = 0;
    form.cbProtocol_Click();
    EXPECT_EQ(form.txtbPort.text, QStringLiteral("514"));
    EXPECT_FALSE(form.chkSilentErrors.checked);
    EXPECT_FALSE(form.chkSilentErrors.enabled);
    EXPECT_TRUE(shared.UseSilentErrors) << "UDP runs with silent errors though the box shows off";
    EXPECT_FALSE(shared.UseTCP);

    form.chkRFCHeader.checked = true;
    form.chkRFCHeader_Click();
    EXPECT_EQ(form.txtbProcess.text, QStringLiteral("TWK"));
    EXPECT_TRUE(form.txtbProcess.enabled);
    EXPECT_FALSE(form.txtbProcess.greyBackground);
    EXPECT_TRUE(shared.UseRFCHeader);

    for (const QChar key : {QChar(u'7'), QChar(u'q'), QChar(u'Z'), QChar(u'\b')})
        EXPECT_TRUE(FrmSyslogTest::txtbProcess_KeyPress(key));
    for (const QChar key : {QChar(u' '), QChar(u'-'), QChar(u'\u00e4'), QChar(u'[')})
        EXPECT_FALSE(FrmSyslogTest::txtbProcess_KeyPress(key));
}

TEST(SyslogSettingsRead, SwitchesAreOnOnlyAtOne) {
    AlertEngine a;
    const SyslogSettings defaults = ReadSyslogSettings(a.engine.registry);
    EXPECT_EQ(defaults.port, 514);
    EXPECT_FALSE(defaults.UseTCP);
    EXPECT_TRUE(defaults.UseRFCHeader);
    EXPECT_TRUE(defaults.AddCRLF);
    EXPECT_FALSE(defaults.UseSilentErrors);
    a.setValue(QStringLiteral("Event Forwarding"), QStringLiteral("SyslogProtocol"),
               QStringLiteral("2"));
    a.setValue(QStringLiteral("Event Forwarding"), QStringLiteral("RFCHeader"),
               QStringLiteral(" 1x"));
    const SyslogSettings s = ReadSyslogSettings(a.engine.registry);
    EXPECT_FALSE(s.UseTCP);
    EXPECT_TRUE(s.UseRFCHeader) << "the numeric reading of \" 1x\" is 1";
}

TEST(SyslogSettingsSave, WritesTheSixValuesAndLeavesTheRunningMonitorAlone) {
    AlertEngine a;
    auto alerts = InstallMonitorAlerts(a.engine);
    alerts->MonitorStarting();
    const SyslogSettings before = alerts->syslogSettings();
    SyslogTestRequest fields;
    fields.server = QStringLiteral("loghost");
    fields.port = QStringLiteral(" 1514x");
    fields.protocol = 1;
    fields.rfcHeader = false;
    fields.crlf = false;
    fields.silentErrors = true;
    SaveSyslogSettings(a.engine, fields);

    const std::pair<const char*, const char*> stored[] = {
        {"SyslogServer", "loghost"}, {"DestinationPort", "1514"},
        {"SyslogProtocol", "1"},     {"addCRLF", "0"},
        {"SilentErrors", "1"},       {"RFCHeader", "0"}};
    for (const auto& [name, value] : stored)
        EXPECT_EQ(a.value(QStringLiteral("Event Forwarding"), QLatin1String(name)),
                  QLatin1String(value))
            << name;
    ASSERT_EQ(a.ui.messages.size(), 1u);
    EXPECT_EQ(a.ui.messages[0].text,
              QStringLiteral("Event Forwarding Settings     \r\nsuccessfully saved!"));
    EXPECT_EQ(alerts->syslogSettings().server, before.server) << "read again at the next start";
    alerts->MonitorStarting();
    EXPECT_TRUE(alerts->syslogSettings().UseTCP);
    EXPECT_EQ(alerts->syslogSettings().port, 1514);
}
