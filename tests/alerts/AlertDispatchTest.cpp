// RunAlertOptions with recording services: the fixed order of the actions, one mail per
// recipient, the event log's mapping and its wait for a new source, failures that do not
// stop the next action; the heartbeat on the virtual clock; the monitoring webpage.

#include "AlertTestSupport.h"
#include "alerts/RtmLogfile.h"

using namespace twk;
using test::AlertEngine;
using test::RowSpec;

namespace {

class Dispatch : public ::testing::Test {
protected:
    void SetUp() override {
        alerts = InstallMonitorAlerts(a.engine);
        alerts->setMailTransport(mail);
        alerts->setEventLog(log);
        alerts->setPopups(popups);
        a.setRow(1);
        a.setValue(QStringLiteral("E-Mail"), QStringLiteral("SMTP HOST"),
                   QStringLiteral("mail.test"));
    }
    struct CountingSound : SoundPort {
        QStringList played;
        void playAsync(const QString& path) override { played << path; }
    } sound;

    AlertEngine a;
    test::RecordingMail mail;
    test::RecordingEventLog log;
    test::RecordingPopups popups;
    std::unique_ptr<MonitorAlerts> alerts;
};

} // namespace

TEST_F(Dispatch, ActionsRunInTheirOrderAndMailGoesToEachRecipient) {
    a.engine.sound = &sound;
    a.addName(QStringLiteral("Remote Popup"), QStringLiteral("PC7"));
    a.addName(QStringLiteral("Remote Popup"), QStringLiteral("PC8"));
    a.addName(QStringLiteral("E-Mail\\Recipients"), QStringLiteral("ops@example.org"));
    a.addName(QStringLiteral("E-Mail\\Recipients"), QStringLiteral("boss@example.org"));
    FilterRule& r = a.rule(5);
    r.WaveFile = QStringLiteral("/no/such/alarm.wav");
    r.LocalPopup = 1;
    r.RemotePopup = 1;
    r.EMail = 1;
    r.LocalLogfile = 1;
    r.NTEventLog = 1;
    r.RealtimeStatus = 2;
    r.NTEventLogCategory = 7;
    r.NTEventLogID = 41;

    alerts->RunAlertOptions(5, 1);

    EXPECT_EQ(sound.played, QStringList{QStringLiteral("/no/such/alarm.wav")});
    ASSERT_EQ(popups.messages.size(), 3u);
    EXPECT_EQ(popups.messages[0].first, QStringLiteral("WS1"));
    EXPECT_EQ(popups.messages[1].first, QStringLiteral("PC7"));
    EXPECT_EQ(popups.messages[2].first, QStringLiteral("PC8"));
    EXPECT_TRUE(popups.messages[0].second.startsWith(
        QStringLiteral("Tarnwick Realtime Event Monitor ALERT:") + QString(42, ' ')));
    ASSERT_EQ(mail.sent.size(), 2u);
    EXPECT_EQ(mail.sent[0].recipient, QStringLiteral("ops@example.org"));
    EXPECT_EQ(mail.sent[1].recipient, QStringLiteral("boss@example.org"));
    EXPECT_EQ(mail.sent[0].subject, QStringLiteral("Realtime Event Monitor Alert Server FS1"));
    EXPECT_TRUE(
        mail.sent[0].body.startsWith(QStringLiteral("Tarnwick Realtime Event Monitor ALERT:\r\n")));
    EXPECT_EQ(mail.sent[0].smtpHost, QStringLiteral("mail.test"));
    EXPECT_EQ(mail.sent[0].smtpPort, 25);
    ASSERT_EQ(log.events.size(), 1u);
    EXPECT_EQ(log.events[0].type, eventtype::Error);
    EXPECT_EQ(log.events[0].source, QStringLiteral("FS1"));
    EXPECT_EQ(log.events[0].category, 8);
    EXPECT_EQ(log.events[0].eventId, 42);
    EXPECT_EQ(log.events[0].message, QStringLiteral("Unable to communicate with server FS2."));
    EXPECT_TRUE(a.ui.messages.empty());
    EXPECT_EQ(a.engine.errors.count(), 0);
}

TEST_F(Dispatch, ThreeRulesGiveThreePopupsAndOffSwitchesNothing) {
    for (int n : {1, 2, 3})
        a.rule(n).LocalPopup = 1;
    a.rule(4).LocalPopup = 2; // only exactly 1 is on
    for (int n : {1, 2, 3, 4})
        alerts->RunAlertOptions(n, 1);
    EXPECT_EQ(popups.messages.size(), 3u);
    popups.localName.clear();
    alerts->RunAlertOptions(1, 1);
    EXPECT_EQ(popups.messages.size(), 3u) << "no local name: passed over";
    EXPECT_TRUE(mail.sent.empty());
    EXPECT_TRUE(log.events.empty());
}

TEST_F(Dispatch, RtmLogAppendsRecordsAndWritesItsDefaultPathBack) {
    a.setValue(QStringLiteral("Logging"), QStringLiteral("Local Logfile"), QString());
    a.rule(1).LocalLogfile = 1;
    a.setRow(2, RowSpec{QStringLiteral("NT1"),
                        42,
                        QStringLiteral("2024-05-06"),
                        QStringLiteral("OFFLINE"),
                        {},
                        {},
                        24,
                        {},
                        {}});
    alerts->RunAlertOptions(1, 1);
    alerts->RunAlertOptions(1, 2);
    const QString path = a.tree.paths().inApp(QStringLiteral("RTMLog.txt"));
    EXPECT_EQ(a.value(QStringLiteral("Logging"), QStringLiteral("Local Logfile")), path);
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(f.readAll());
    EXPECT_EQ(text, RtmLogRecord(ReadMonitorRow(a.engine.Grid1, 1)) +
                        QStringLiteral("NT1 - OFFLINE - 2024-05-06 - Source:  - Category:  - "
                                       "Error#: \r\n  ErrorType: icon not available -> "
                                       "ErrorMessage: \r\n\r\n"));
}

TEST_F(Dispatch, AFailingActionIsCapturedAndTheNextOneRuns) {
    a.setValue(QStringLiteral("Logging"), QStringLiteral("Local Logfile"),
               a.tree.path(QStringLiteral("no/such/folder/RTMLog.txt")));
    FilterRule& r = a.rule(9);
    r.LocalLogfile = 1;
    r.NTEventLog = 1;
    alerts->RunAlertOptions(9, 1);
    EXPECT_EQ(a.engine.errors.count(), 1);
    EXPECT_EQ(log.events.size(), 1u);
    QFile errors(a.engine.errors.errorFile());
    ASSERT_TRUE(errors.open(QIODevice::ReadOnly));
    EXPECT_TRUE(
        errors.readAll().contains("modRealTimeMonitor.RunAlertOptions(iRuleNumber,iGridRow)"));

    alerts->RunAlertOptions(0, 1);
    alerts->RunAlertOptions(101, 1);
    EXPECT_EQ(a.engine.errors.count(), 3) << "rule numbers out of range are captured";
}

TEST_F(Dispatch, EventLogKeysAndTheWaitOfANewSource) {
    FilterRule& r = a.rule(2);
    r.NTEventLog = 1;
    r.RealtimeStatus = 1;
    a.setRow(1, RowSpec{QStringLiteral("fs1")});
    a.setRow(2, RowSpec{QStringLiteral("FS1")});
    const auto start = a.clock.elapsedMs();
    alerts->RunAlertOptions(2, 1);
    EXPECT_EQ(a.clock.elapsedMs() - start, 3000) << "the first event of a source waits 3 s";
    alerts->RunAlertOptions(2, 2);
    EXPECT_EQ(a.clock.elapsedMs() - start, 3000) << "the second finds its key";
    ASSERT_EQ(log.events.size(), 2u);
    EXPECT_EQ(log.events[0].source, QStringLiteral("FS1"));
    EXPECT_EQ(log.events[0].type, eventtype::Warning);
    EXPECT_EQ(log.events[0].category, 0) << "lists left at -1 pass 0";
    EXPECT_EQ(log.events[0].eventId, 0);

    const Registry& reg = a.engine.registry;
    const auto machine = [&](const QString& key, const char* value) {
        return reg.Reg_GetValue(Hive::LocalMachine, key, QLatin1String(value), QStringLiteral("-"));
    };
    const QString folder = a.tree.paths().appFolder;
    EXPECT_EQ(machine(kEventLogKey, "CategoryCount"), QStringLiteral("63"));
    EXPECT_EQ(machine(kEventLogKey, "TypesSupported"), QStringLiteral("7"));
    EXPECT_EQ(machine(kEventLogKey, "Sources"), QStringLiteral("Tarnwick#"));
    EXPECT_EQ(machine(kEventLogKey, "File"), folder + QStringLiteral("/config/TWK.Evt"));
    const QString source = kEventLogKey + QStringLiteral("\\FS1");
    EXPECT_EQ(machine(source, "EventMessageFile"), folder + QStringLiteral("/TwkEvntMsg.dll"));
    EXPECT_EQ(machine(source, "CategoryMessageFile"), folder + QStringLiteral("/TwkEvntCat.dll"));
    EXPECT_EQ(machine(source, "File"), QStringLiteral("-"));
}

TEST_F(Dispatch, SyslogIsPassedOverWithoutPriorityOrServer) {
    a.rule(3).SyslogPriority = 13;
    alerts->MonitorStarting(); // no server stored
    alerts->RunAlertOptions(3, 1);
    EXPECT_EQ(alerts->klog().openHandles(), 0);
    EXPECT_TRUE(a.ui.messages.empty());

    // A port no server can have: the send fails and the box tells why.
    a.setValue(QStringLiteral("Event Forwarding"), QStringLiteral("SyslogServer"),
               QStringLiteral("127.0.0.1"));
    a.engine.registry.Reg_SetDWord(Hive::CurrentUser,
                                   twkKey(QStringLiteral("Realtime Monitor\\Event Forwarding")),
                                   QStringLiteral("DestinationPort"), 0);
    alerts->MonitorStarting();
    a.rule(3).SyslogPriority = -1;
    alerts->RunAlertOptions(3, 1);
    EXPECT_TRUE(a.ui.messages.empty());
    a.rule(3).SyslogPriority = 0;
    alerts->RunAlertOptions(3, 1);
    ASSERT_EQ(a.ui.messages.size(), 1u);
    EXPECT_EQ(a.ui.messages[0].title, QStringLiteral(" KLOG.DLL error 3"));
    EXPECT_EQ(a.ui.messages[0].text, QStringLiteral("Invalid port number 0."));
    EXPECT_EQ(a.ui.messages[0].icon, MsgIcon::Critical);
    EXPECT_EQ(alerts->klog().openHandles(), 0);
}

TEST_F(Dispatch, HeartbeatStartsOnlyWithRecipientsAndHost) {
    a.setValue(QStringLiteral("Misc"), QStringLiteral("HeartbeatNotification"),
               QStringLiteral("1"));
    a.setValue(QStringLiteral("Misc"), QStringLiteral("HeartbeatInterval"), QStringLiteral("90"));
    a.setValue(QStringLiteral("E-Mail"), QStringLiteral("SMTP HOST"), QString());
    a.setValue(QStringLiteral("Misc"), QStringLiteral("NotificationRecipients"),
               QStringLiteral("ops@example.org"));
    alerts->MonitorStarted();
    EXPECT_TRUE(mail.sent.empty());
    EXPECT_FALSE(alerts->heartbeat().LongTimer2Enabled());
    // Entered later: no heartbeat in this run.
    a.setValue(QStringLiteral("E-Mail"), QStringLiteral("SMTP HOST"), QStringLiteral("mail.test"));
    a.clock.advance(10 * 3600 * 1000);
    EXPECT_TRUE(mail.sent.empty());

    a.engine.view.simpleText =
        QStringLiteral(" last monitoring timestamp: 10:00:00 h   06.05.2024 ");
    a.setValue(QStringLiteral("Misc"), QStringLiteral("StatusSurvey"), QStringLiteral("1"));
    alerts->MonitorStarted();
    ASSERT_EQ(mail.sent.size(), 1u);
    EXPECT_EQ(mail.sent[0].subject, QStringLiteral("Realtime Monitoring Started"));
    EXPECT_EQ(mail.sent[0].body,
              QStringLiteral("last monitoring timestamp: 10:00:00 h   06.05.2024") +
                  fnStatusSurvey(a.engine.Grid1));
    EXPECT_EQ(alerts->heartbeat().LongTimer2().hours, 1);
    EXPECT_EQ(alerts->heartbeat().LongTimer2().minutes, 30);
    a.clock.advance(90 * 60 * 1000);
    ASSERT_EQ(mail.sent.size(), 2u);
    EXPECT_EQ(mail.sent[1].subject, QStringLiteral("Realtime Monitoring Heartbeat Notification"));
}

TEST_F(Dispatch, HeartbeatDuringACycleGoesOutOnceAtItsEndAndAfterTheMonitorClosed) {
    a.setValue(QStringLiteral("Misc"), QStringLiteral("HeartbeatNotification"),
               QStringLiteral("1"));
    a.setValue(QStringLiteral("Misc"), QStringLiteral("HeartbeatInterval"), QStringLiteral("30"));
    a.setValue(QStringLiteral("Misc"), QStringLiteral("NotificationRecipients"),
               QStringLiteral("ops@example.org;boss@example.org"));
    alerts->MonitorStarted();
    ASSERT_EQ(mail.sent.size(), 1u);
    EXPECT_EQ(mail.sent[0].recipient, QStringLiteral("ops@example.org;boss@example.org"));

    a.engine.MonitorBusy = true;
    a.clock.advance(3 * 30 * 60 * 1000); // three ticks in one long cycle
    EXPECT_EQ(mail.sent.size(), 1u);
    EXPECT_TRUE(a.engine.HeartbeatPending);
    alerts->PollCycleDone();
    a.engine.MonitorBusy = false;
    EXPECT_FALSE(a.engine.HeartbeatPending);
    ASSERT_EQ(mail.sent.size(), 2u);
    alerts->PollCycleDone();
    EXPECT_EQ(mail.sent.size(), 2u);

    alerts->MonitorStopped();
    a.setValue(QStringLiteral("Misc"), QStringLiteral("NotificationRecipients"),
               QStringLiteral("new@example.org"));
    a.clock.advance(30 * 60 * 1000);
    ASSERT_EQ(mail.sent.size(), 3u) << "LongTimer2 outlives the monitor view";
    EXPECT_EQ(mail.sent[2].recipient, QStringLiteral("new@example.org"));
    EXPECT_EQ(mail.sent[2].subject, QStringLiteral("Realtime Monitoring Heartbeat Notification"));
}

TEST_F(Dispatch, WebpageFollowsItsSwitch) {
    const QString page = a.tree.path(QStringLiteral("www/rtm.html"));
    a.setValue(QStringLiteral("Misc"), QStringLiteral("WebpagePath"), page);
    alerts->PollCycleDone();
    EXPECT_FALSE(QFile::exists(page)) << "RTMWebsite off: nothing written";

    a.setValue(QStringLiteral("Misc"), QStringLiteral("RTMWebsite"), QStringLiteral("1"));
    a.setRow(2, RowSpec{QStringLiteral("FS2 <&>"), 38});
    alerts->PollCycleDone();
    QFile f(page);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray html = f.readAll();
    EXPECT_TRUE(html.contains("<meta http-equiv=\"refresh\" content=\"60\">"));
    EXPECT_TRUE(html.contains("<tr class=\"failure\"><td><span class=\"led\"></span>FAILURE</td>"
                              "<td>FS1</td><td>2024-05-06 10:00:00</td><td>Critical</td>"
                              "<td>Server</td><td>Communication</td>"
                              "<td>Unable to communicate with server FS2.</td></tr>"));
    EXPECT_TRUE(html.contains("<td>FS2 &lt;&amp;&gt;</td>"));
    EXPECT_FALSE(QFile::exists(page + QStringLiteral(".tmp")));
    EXPECT_FALSE(alerts->webpage().uploading()) << "FTPUpload off";
}
