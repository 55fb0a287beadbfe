// The monitor and its alerts together on a demo network, against the real receivers: a
// new event of FS1 sends a mail, a syslog message and a notification and is written to
// RTMLog.txt, from tarnwick-cli monitor and in-process on the virtual clock, where the
// heartbeat falls due and mails take their time while the poll timer keeps ticking.

#include "AlertTestSupport.h"
#include "alerts/CurlMailTransport.h"
#include "core/settings/TwkIniHead.h"
#include "demo/DemoNetwork.h"
#include "directory/NetworkFolder.h"
#include "monitor/MonitorRows.h"
#include "monitor/RealtimeMonitor.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QFileInfo>
#include <QScopeGuard>

using namespace twk;
using test::Receiver;

namespace {

const QString kMessage = QStringLiteral("Volume SYS is almost out of space (check 4711)");
const QByteArray kNewEvent = "1-15-2003  2:30:45 pm:    SERVER-5.60-0  [nmID=1000A]\r\n"
                             "Severity = 4  Locus = 7  Class = 6\r\n"
                             "Volume SYS is almost out of space (check 4711)\r\n\r\n";
// FAILURE on "check 4711": local popup, mail, syslog user.err, RTMLog.txt, event log.
const char* const kRule = "1,2,0,0,0,0,check 4711,(none),1,0,1,11,,1,1,4,9";

QString cliProgram() {
    const QString self = QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath();
    return QFileInfo(self).dir().absoluteFilePath(QStringLiteral("../src/cli/tarnwick-cli"));
}

/// Takes the calls of org.freedesktop.Notifications on a bus.
class NotificationRecorder : public QDBusVirtualObject {
public:
    QStringList summaries;
    QStringList bodies;
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& m, const QDBusConnection& bus) override {
        if (m.member() == QStringLiteral("GetCapabilities"))
            return bus.send(m.createReply(QVariant(QStringList{QStringLiteral("body")})));
        if (m.member() != QStringLiteral("Notify") || m.arguments().size() < 5)
            return false;
        summaries << m.arguments()[3].toString();
        bodies << m.arguments()[4].toString();
        return bus.send(m.createReply(QVariant(1u)));
    }
};

class MonitorWithAlerts : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* receiver : {"aiosmtpd", "rsyslogd"})
            if (const QString why = test::missingReceiver(QLatin1String(receiver)); !why.isEmpty())
                GTEST_SKIP() << why.toStdString();
        ASSERT_TRUE(syslog.ready);
        smtp = Receiver::script("smtp_receiver.py", {QStringLiteral("--out"), mailOut});
        smtpPort = smtp->port();
        ASSERT_GT(smtpPort, 0);
    }

    /// Servers, mail, syslog and heartbeat as a user sets them in the options, and the
    /// rule in twk.ini.
    /// A demo network of 20 events a log in `network`, monitored with the alerts set.
    void useSmallDemo(Engine& e, const QString& network, int heartbeatMinutes) const {
        demo::DemoNetworkOptions small;
        small.sysLogEntries = 20;
        ASSERT_TRUE(demo::createDemoNetwork(network, small).ok);
        useNetworkFolder(e, network);
        configure(e.registry, e.paths, heartbeatMinutes);
    }
    void configure(Registry& r, const AppPaths& paths, int heartbeatMinutes) const {
        const Registry::Batch oneWrite(r);
        const auto set = [&](const char* subkey, const char* name, const QString& value) {
            r.Reg_SetString(Hive::CurrentUser,
                            twkKey(QStringLiteral("Realtime Monitor") + QLatin1String(subkey)),
                            QLatin1String(name), value);
        };
        set("", "FS1", QStringLiteral("10.10.1.11"));
        set("", "FS2", {});
        set("\\E-Mail", "SMTP HOST", QStringLiteral("127.0.0.1"));
        set("\\E-Mail", "SMTP Port", QString::number(smtpPort));
        set("\\E-Mail", "From", QStringLiteral("monitor@example.org"));
        set("\\E-Mail\\Recipients", "ops@example.org", {});
        set("\\Event Forwarding", "SyslogServer", QStringLiteral("127.0.0.1"));
        set("\\Event Forwarding", "DestinationPort", QString::number(syslog.udpPort));
        set("\\Misc", "HeartbeatNotification", QStringLiteral("1"));
        set("\\Misc", "HeartbeatInterval", QString::number(heartbeatMinutes));
        set("\\Misc", "NotificationRecipients", QStringLiteral("boss@example.org"));
        set("\\Misc", "StatusSurvey", QStringLiteral("1"));
        QDir().mkpath(paths.appFolder);
        QFile ini(paths.inApp(QStringLiteral("twk.ini")));
        ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
        const QStringList lines = twkIniHead() << QStringLiteral("[RealtimeMonitor]")
                                               << QLatin1String(kRule) << QString();
        ini.write(lines.join(QStringLiteral("\r\n")).toUtf8());
    }
    static void appendNewEvent(const QString& network) {
        QFile log(network + QStringLiteral("/servers/FS1/SYS/SYSTEM/SYS$LOG.ERR"));
        ASSERT_TRUE(log.open(QIODevice::WriteOnly | QIODevice::Append));
        ASSERT_EQ(log.write(kNewEvent), kNewEvent.size());
    }
    /// Subjects of the mails that arrived, by recipient.
    QMap<QString, QStringList> mailsByRecipient(std::size_t count) const {
        test::runUntil([&] { return test::jsonLines(mailOut).size() >= count; });
        QMap<QString, QStringList> mails;
        for (const QJsonObject& m : test::jsonLines(mailOut))
            mails[m[QStringLiteral("rcpt_tos")].toArray()[0].toString()]
                << m[QStringLiteral("headers")].toObject()[QStringLiteral("Subject")].toString();
        return mails;
    }
    QString mailBody(const QString& subject) const {
        for (const QJsonObject& m : test::jsonLines(mailOut))
            if (m[QStringLiteral("headers")].toObject()[QStringLiteral("Subject")].toString() ==
                subject)
                return m[QStringLiteral("body")].toString();
        return {};
    }
    /// The one syslog message: it carries the event with the rule's priority.
    void expectSyslogMessage() {
        const std::vector<QJsonObject> received = syslog.messages(1);
        ASSERT_EQ(received.size(), 1u);
        EXPECT_EQ(received[0][QStringLiteral("pri")].toString(), QStringLiteral("11"));
        EXPECT_TRUE(
            received[0][QStringLiteral("tag")].toString().startsWith(QStringLiteral("TWK")));
        EXPECT_TRUE(received[0][QStringLiteral("msg")].toString().contains(kMessage));
    }
    static void expectLogRecord(const QString& appFolder) {
        QFile f(appFolder + QStringLiteral("/RTMLog.txt"));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        const QString log = QString::fromUtf8(f.readAll());
        EXPECT_TRUE(log.startsWith(QStringLiteral("FS1 - FAILURE - 2003-01-15 14:30:45 - ")));
        EXPECT_TRUE(
            log.endsWith(QStringLiteral("ErrorMessage: ") + kMessage + QStringLiteral("\r\n\r\n")))
            << "one record";
        EXPECT_EQ(log.count(QStringLiteral("ErrorMessage: ")), 1);
    }

    test::SyslogReceiver syslog;
    test::TempTree tree;
    QString mailOut = tree.path(QStringLiteral("mail.jsonl"));
    std::unique_ptr<Receiver> smtp;
    int smtpPort = 0;
};

const QString kAlertSubject = QStringLiteral("Realtime Event Monitor Alert Server FS1");
const QString kStartedSubject = QStringLiteral("Realtime Monitoring Started");
const QString kHeartbeatSubject = QStringLiteral("Realtime Monitoring Heartbeat Notification");

} // namespace

TEST_F(MonitorWithAlerts, CommandLineMonitorAlertsOnANewEventOfFS1) {
    if (!QFileInfo(cliProgram()).isExecutable())
        GTEST_SKIP() << "tarnwick-cli is not built beside the tests";
    if (const QString why = test::missingReceiver(QStringLiteral("dbus-daemon")); !why.isEmpty())
        GTEST_SKIP() << why.toStdString();
    test::PrivateBus bus;
    ASSERT_FALSE(bus.address.isEmpty());
    QDBusConnection service = QDBusConnection::connectToBus(bus.address, QStringLiteral("e2e"));
    const auto disconnect =
        qScopeGuard([] { QDBusConnection::disconnectFromBus(QStringLiteral("e2e")); });
    NotificationRecorder notifications;
    ASSERT_TRUE(service.registerVirtualObject(QStringLiteral("/org/freedesktop/Notifications"),
                                              &notifications));
    ASSERT_TRUE(service.registerService(QStringLiteral("org.freedesktop.Notifications")));

    AppPaths paths = tree.paths();
    paths.configFolder = tree.path(QStringLiteral("xdg/tarnwick"));
    QDir().mkpath(paths.configFolder);
    Registry settings(paths.registryFile());
    configure(settings, paths, 30);
    QProcess cli;
    cli.setProgram(cliProgram());
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("TARNWICK_HOME"), paths.appFolder);
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), tree.path(QStringLiteral("xdg")));
    env.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus.address);
    cli.setProcessEnvironment(env);
    const QString network = tree.path(QStringLiteral("net"));
    cli.setArguments({QStringLiteral("demo"), network});
    cli.start();
    ASSERT_TRUE(cli.waitForFinished(60000) && cli.exitCode() == 0);

    // Runs until a line shows the new event; the event is written after the start pass.
    cli.setArguments({QStringLiteral("--network"), network, QStringLiteral("monitor"),
                      QStringLiteral("--interval"), QStringLiteral("0.2")});
    cli.start();
    std::vector<QJsonObject> lines;
    QJsonArray fs1;
    QJsonArray fs1Colors;
    test::runUntil(
        [&] {
            while (cli.canReadLine()) {
                lines.push_back(QJsonDocument::fromJson(cli.readLine()).object());
                if (lines.size() == 1)
                    appendNewEvent(network);
                const QJsonObject& line = lines.back();
                const QJsonArray rows = line[QStringLiteral("rows")].toArray();
                for (qsizetype i = 0; i < rows.size(); ++i)
                    if (rows[i].toArray()[8].toString() == kMessage) {
                        fs1 = rows[i].toArray();
                        fs1Colors = line[QStringLiteral("colors")].toArray()[i].toArray();
                    }
            }
            return !fs1.isEmpty() || cli.state() == QProcess::NotRunning;
        },
        30000);
    cli.terminate();
    test::runUntil([&] { return cli.state() == QProcess::NotRunning; });
    ASSERT_EQ(cli.exitCode(), 0) << cli.readAllStandardError().constData();
    const QByteArray err = cli.readAllStandardError();
    EXPECT_TRUE(err.isEmpty()) << err.constData();

    ASSERT_EQ(fs1.size(), 9) << "no line showed the new event";
    EXPECT_EQ(fs1[0].toInt(), 40);
    EXPECT_EQ(fs1[1].toString(), QStringLiteral("FS1"));
    EXPECT_EQ(fs1[2].toString(), QStringLiteral("2003-01-15 14:30:45"));
    EXPECT_EQ(fs1Colors, (QJsonArray{255, 0xC0C0FF}));
    for (std::size_t k = 0; k < lines.size(); ++k)
        EXPECT_EQ(lines[k][QStringLiteral("cycle")].toInt(-1), static_cast<int>(k));

    const auto mails = mailsByRecipient(2);
    EXPECT_EQ(mails.value(QStringLiteral("ops@example.org")), QStringList{kAlertSubject});
    EXPECT_EQ(mails.value(QStringLiteral("boss@example.org")), QStringList{kStartedSubject});
    EXPECT_TRUE(mailBody(kAlertSubject).contains(kMessage));
    expectSyslogMessage();
    expectLogRecord(paths.appFolder);
    ASSERT_TRUE(test::runUntil([&] { return !notifications.bodies.isEmpty(); }, 2000));
    EXPECT_EQ(notifications.summaries,
              QStringList{QStringLiteral("Tarnwick Realtime Event Monitor ALERT:")});
    EXPECT_TRUE(notifications.bodies[0].contains(kMessage));
}

namespace {

// A mail server that takes its time: the clock moves on while each mail is sent.
struct SlowMail : MailTransport {
    SlowMail(VirtualClock& c, std::int64_t ms) : clock(c), waitMs(ms) {}
    void Send(const MailFields& fields, MailEvents& events) override {
        clock.advance(waitMs);
        real.Send(fields, events);
    }
    void NewCycle() override { real.NewCycle(); }
    VirtualClock& clock;
    std::int64_t waitMs;
    CurlMailTransport real{MailTimeouts{5000, 5000, 10000}};
};

} // namespace

TEST_F(MonitorWithAlerts, TicksWhileAMailWaitsArePassedOverAndTheHeartbeatFollowsTheCycle) {
    test::AlertEngine a;
    Engine& e = a.engine;
    const QString network = a.tree.paths().networkFolder;
    ASSERT_NO_FATAL_FAILURE(useSmallDemo(e, network, 1));
    e.registry.Reg_SetString(Hive::CurrentUser,
                             twkKey(QStringLiteral("Realtime Monitor\\Interval")),
                             QStringLiteral("Interval"), QStringLiteral("1"));
    const auto alerts = InstallMonitorAlerts(e);
    SlowMail mail(a.clock, 2500);
    test::RecordingEventLog journal;
    test::RecordingPopups popups;
    alerts->setMailTransport(mail);
    alerts->setEventLog(journal);
    alerts->setPopups(popups);
    std::vector<int> cycles;
    e.monitor.onCycleDone = [&](int cycle) {
        cycles.push_back(cycle);
    };

    // The start mail takes 2.5 s: the two ticks of the poll timer meanwhile are passed over.
    mnuRTM_Click(e);
    ASSERT_TRUE(MonitorRunning(e));
    EXPECT_EQ(cycles, std::vector<int>{0});
    EXPECT_FALSE(e.MonitorBusy);

    // The new event in the cycle of second 59: its mail takes 2.5 s, the new event source
    // 3 s more; the heartbeat falls due meanwhile (at 62.5 s) and goes out at the cycle's
    // end, and no tick starts a cycle inside another.
    a.clock.advance(58000 - a.clock.elapsedMs());
    appendNewEvent(network);
    a.clock.advance(1000);
    const int fs1 = ServerGridRow(e, QStringLiteral("FS1"));
    EXPECT_EQ(e.Grid1.CellText(fs1, 9), kMessage.toStdString());
    EXPECT_EQ(e.Grid1.CellIcon(fs1, 1), 40);
    EXPECT_EQ(a.clock.elapsedMs(), 59000 + 2500 + 3000 + 2500);
    EXPECT_FALSE(e.HeartbeatPending);
    // The next heartbeat falls due between two cycles: the ticks during its mail too are
    // passed over.
    a.clock.advance(123000 - a.clock.elapsedMs());
    EXPECT_EQ(a.clock.elapsedMs(), 125000);
    for (std::size_t k = 0; k < cycles.size(); ++k)
        ASSERT_EQ(cycles[k], static_cast<int>(k)) << "a cycle ran inside another";
    EXPECT_EQ(cycles.back(), 56 + 1 + 55) << "ticks of seconds 3-58, 59 and 68-122";

    const auto mails = mailsByRecipient(4);
    EXPECT_EQ(mails.value(QStringLiteral("ops@example.org")), QStringList{kAlertSubject});
    EXPECT_EQ(mails.value(QStringLiteral("boss@example.org")),
              (QStringList{kStartedSubject, kHeartbeatSubject, kHeartbeatSubject}));
    EXPECT_TRUE(mailBody(kHeartbeatSubject).contains(kMessage)) << "the status survey";
    expectSyslogMessage();
    expectLogRecord(e.paths.appFolder);
    ASSERT_EQ(journal.events.size(), 1u);
    EXPECT_EQ(journal.events[0].source, QStringLiteral("FS1"));
    EXPECT_EQ(journal.events[0].category, 5);
    EXPECT_EQ(journal.events[0].eventId, 10);
    EXPECT_EQ(journal.events[0].message, kMessage);
    ASSERT_EQ(popups.messages.size(), 1u);
    EXPECT_TRUE(popups.messages[0].second.contains(kMessage));
    EXPECT_EQ(e.errors.count(), 0);
}

TEST_F(MonitorWithAlerts, AStopWhileAMailWaitsEndsTheRulesButNotTheEventsRecord) {
    test::AlertEngine a;
    Engine& e = a.engine;
    const QString network = a.tree.paths().networkFolder;
    ASSERT_NO_FATAL_FAILURE(useSmallDemo(e, network, 30));
    QFile ini(e.paths.inApp(QStringLiteral("twk.ini")));
    ASSERT_TRUE(ini.open(QIODevice::Append));
    ini.write("2,2,0,0,0,0,check 4711,(none),0,0,0,11,,1,0,-1,-1\r\n");
    ini.close();
    struct StoppingMail : MailTransport {
        Engine* engine = nullptr;
        void Send(const MailFields&, MailEvents& events) override {
            StopMonitoring(*engine);
            events.poSendMail_SendFailed(QStringLiteral("stopped"));
        }
    } mail;
    mail.engine = &e;
    const auto alerts = InstallMonitorAlerts(e);
    alerts->setMailTransport(mail);
    test::RecordingEventLog journal;
    test::RecordingPopups popups;
    alerts->setEventLog(journal);
    alerts->setPopups(popups);
    e.registry.Reg_SetString(Hive::CurrentUser, twkKey(QStringLiteral("Realtime Monitor\\Misc")),
                             QStringLiteral("HeartbeatNotification"), QStringLiteral("0"));
    appendNewEvent(network);

    mnuRTM_Click(e);

    EXPECT_FALSE(MonitorRunning(e));
    expectLogRecord(e.paths.appFolder); // rule 1's record, not one of rule 2 on a closed grid
    expectSyslogMessage();
    ASSERT_EQ(journal.events.size(), 1u);
    EXPECT_EQ(journal.events[0].message, kMessage);
}
