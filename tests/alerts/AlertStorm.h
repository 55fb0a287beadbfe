#pragma once
// The alert storm: 100 monitor rows whose events each match three rules with mail,
// syslog (TCP) and RTMLog.txt on, against real receivers on 127.0.0.1. Used by the
// reliability test and by the benchmark.

#include "AlertTestSupport.h"
#include "alerts/CurlMailTransport.h"

namespace twk::test {

class AlertStorm {
public:
    static constexpr int kServers = 100;
    static constexpr int kRules = 3;

    AlertStorm() {
        alerts = InstallMonitorAlerts(a.engine);
        alerts->setMailTransport(mail);
        for (int row = 1; row <= kServers; ++row) {
            RowSpec cells;
            cells.server = QStringLiteral("SRV%1").arg(row, 3, 10, QLatin1Char('0'));
            cells.message = QStringLiteral("Event of server %1").arg(row);
            a.setRow(row, cells);
        }
        FilterRule& everything = a.rule(1);
        everything.EMail = 1;
        everything.SyslogPriority = 11;
        everything.LocalLogfile = 1;
        FilterRule& mailAndLog = a.rule(2);
        mailAndLog.EMail = 1;
        mailAndLog.LocalLogfile = 1;
        FilterRule& syslogAndLog = a.rule(3);
        syslogAndLog.SyslogPriority = 131;
        syslogAndLog.LocalLogfile = 1;
        a.addName(QStringLiteral("E-Mail\\Recipients"), QStringLiteral("ops@example.org"));
        a.setValue(QStringLiteral("E-Mail"), QStringLiteral("From"),
                   QStringLiteral("monitor@example.org"));
        a.setValue(QStringLiteral("E-Mail"), QStringLiteral("SMTP HOST"),
                   QStringLiteral("127.0.0.1"));
        a.setValue(QStringLiteral("Event Forwarding"), QStringLiteral("SyslogServer"),
                   QStringLiteral("127.0.0.1"));
        const QString key = twkKey(QStringLiteral("Realtime Monitor\\Event Forwarding"));
        a.engine.registry.Reg_SetDWord(Hive::CurrentUser, key, QStringLiteral("DestinationPort"),
                                       static_cast<quint32>(syslog.tcpPort));
        a.engine.registry.Reg_SetDWord(Hive::CurrentUser, key, QStringLiteral("SyslogProtocol"), 1);
        alerts->MonitorStarting();
    }

    /// Mails expected per cycle, syslog messages and RTMLog records.
    static constexpr int kMails = kServers * 2;
    static constexpr int kSyslogMessages = kServers * 2;
    static constexpr int kLogRecords = kServers * kRules;

    /// A new SMTP receiver (silent: it takes connections and says nothing); the settings
    /// point at it. False when it did not start.
    bool startSmtp(bool silent = false) {
        QStringList options{QStringLiteral("--out"), mailOut};
        if (silent)
            options << QStringLiteral("--silent");
        smtp = Receiver::script("smtp_receiver.py", options);
        const int port = smtp->port();
        a.setValue(QStringLiteral("E-Mail"), QStringLiteral("SMTP Port"), QString::number(port));
        return port > 0;
    }
    /// The SMTP server goes down: nothing listens on its port any more.
    void stopSmtp() { smtp.reset(); }

    /// One poll cycle in which every row matches the three rules.
    void cycle() {
        a.engine.MonitorBusy = true;
        for (int row = 1; row <= kServers; ++row)
            for (int rule = 1; rule <= kRules; ++rule)
                alerts->RunAlertOptions(rule, row);
        alerts->PollCycleDone();
        a.engine.MonitorBusy = false;
    }

    int mailsReceived() const { return static_cast<int>(jsonLines(mailOut).size()); }
    int logRecords() const {
        QFile f(a.tree.paths().inApp(QStringLiteral("RTMLog.txt")));
        if (!f.open(QIODevice::ReadOnly))
            return 0;
        return static_cast<int>(f.readAll().count("\r\n  ErrorType: "));
    }

    SyslogReceiver syslog;
    AlertEngine a;
    CurlMailTransport mail{MailTimeouts{2000, 1000, 10000}};
    std::unique_ptr<MonitorAlerts> alerts;
    QString mailOut = a.tree.path(QStringLiteral("storm-mail.jsonl"));
    std::unique_ptr<Receiver> smtp;
};

} // namespace twk::test
