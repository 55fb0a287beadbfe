// Mail against a real SMTP server on 127.0.0.1 (aiosmtpd): what arrives to the byte,
// STARTTLS and AUTH, POP3 before SMTP, refused log-ins, a silent server and a closed
// port, the mail object's events and the mail test's list.

#include "AlertTestSupport.h"
#include "alerts/CurlMailTransport.h"
#include "alerts/SendMailInfosForm.h"

#include <QTimer>

using namespace twk;
using test::AlertEngine;
using test::Receiver;

namespace {

QString encodePassword(const QString& plain) {
    const QString key = QStringLiteral("7QkuRM3PV%");
    QString stored;
    for (int i = 0; i < plain.size(); ++i) {
        const int s = plain[i].unicode() + key[i % 10].unicode();
        stored += QChar(s < 256 ? s : s - 255);
    }
    return stored;
}

struct EventRecorder : MailEvents {
    QStringList events;
    void poSendMail_Status(const QString& text) override { events << text; }
    void poSendMail_SendSuccesful() override { events << QStringLiteral("(successful)"); }
    void poSendMail_SendFailed(const QString& reason) override {
        events << QStringLiteral("(failed) ") + reason;
    }
};

class Mail : public ::testing::Test {
protected:
    void SetUp() override {
        if (const QString why = test::missingReceiver(QStringLiteral("aiosmtpd")); !why.isEmpty())
            GTEST_SKIP() << why.toStdString();
        alerts = InstallMonitorAlerts(a.engine);
        alerts->setMailTransport(transport);
        a.setRow(1);
        a.setValue(QStringLiteral("E-Mail"), QStringLiteral("From"),
                   QStringLiteral("monitor@example.org"));
    }
    /// Starts the SMTP receiver with these options and points the settings at it.
    void startSmtp(QStringList options = {}) {
        smtp = Receiver::script("smtp_receiver.py",
                                QStringList{QStringLiteral("--out"), out} + options);
        const int port = smtp->port();
        ASSERT_GT(port, 0);
        useSmtp(port);
    }
    void useSmtp(int port) {
        a.setValue(QStringLiteral("E-Mail"), QStringLiteral("SMTP HOST"),
                   QStringLiteral("127.0.0.1"));
        a.setValue(QStringLiteral("E-Mail"), QStringLiteral("SMTP Port"), QString::number(port));
    }
    void useLogin(const QString& user, const QString& password) {
        a.setValue(QStringLiteral("E-Mail"), QStringLiteral("SMTP Authentication"),
                   QStringLiteral("1"));
        a.setValue(QStringLiteral("E-Mail"), QStringLiteral("User Name"), user);
        a.setValue(QStringLiteral("E-Mail"), QStringLiteral("Password"), encodePassword(password));
    }
    EventRecorder sendDirect(const QString& recipient) {
        EventRecorder r;
        MailFields f;
        f.smtpHost = a.value(QStringLiteral("E-Mail"), QStringLiteral("SMTP HOST"));
        f.smtpPort = a.value(QStringLiteral("E-Mail"), QStringLiteral("SMTP Port")).toInt();
        f.from = QStringLiteral("monitor@example.org");
        f.recipient = recipient;
        f.subject = QStringLiteral("s");
        f.body = QStringLiteral("b");
        f.date = QDateTime::currentDateTime();
        transport.Send(f, r);
        return r;
    }

    AlertEngine a;
    CurlMailTransport transport{MailTimeouts{2000, 1000, 10000}};
    std::unique_ptr<MonitorAlerts> alerts;
    QString out = a.tree.path(QStringLiteral("mail.jsonl"));
    std::unique_ptr<Receiver> smtp;
};

} // namespace

TEST_F(Mail, EachRecipientGetsTheAlertToTheByte) {
    startSmtp();
    a.addName(QStringLiteral("E-Mail\\Recipients"), QStringLiteral("ops@example.org"));
    a.addName(QStringLiteral("E-Mail\\Recipients"), QStringLiteral("a@example.org;b@example.org"));
    a.rule(1).EMail = 1;
    alerts->RunAlertOptions(1, 1);

    const auto mails = test::jsonLines(out);
    ASSERT_EQ(mails.size(), 2u);
    EXPECT_EQ(mails[0]["mail_from"].toString(), QStringLiteral("monitor@example.org"));
    EXPECT_EQ(mails[0]["rcpt_tos"].toArray().size(), 1);
    EXPECT_EQ(mails[1]["rcpt_tos"].toArray().at(1).toString(), QStringLiteral("b@example.org"));
    const QJsonObject headers = mails[0]["headers"].toObject();
    EXPECT_EQ(headers["From"].toString(), QStringLiteral("Tarnwick <monitor@example.org>"));
    EXPECT_EQ(headers["To"].toString(), QStringLiteral("ops@example.org"));
    EXPECT_EQ(mails[1]["headers"].toObject()["To"].toString(),
              QStringLiteral("a@example.org, b@example.org"));
    EXPECT_EQ(headers["Subject"].toString(),
              QStringLiteral("Realtime Event Monitor Alert Server FS1"));
    EXPECT_TRUE(headers["Message-ID"].toString().endsWith(QStringLiteral("@example.org>")));
    EXPECT_NE(headers["Message-ID"], mails[1]["headers"].toObject()["Message-ID"]);
    EXPECT_TRUE(headers.contains(QStringLiteral("Date")));
    EXPECT_EQ(headers["Content-Type"].toString(), QStringLiteral("text/plain; charset=\"UTF-8\""));
    const QByteArray raw = QByteArray::fromBase64(mails[0]["raw"].toString().toLatin1());
    const QByteArray body = raw.mid(raw.indexOf("\r\n\r\n") + 4);
    EXPECT_EQ(body, BuildAlertTexts(ReadMonitorRow(a.engine.Grid1, 1)).MailText.toUtf8() + "\r\n");
    EXPECT_FALSE(mails[0]["tls"].toBool());
    EXPECT_EQ(a.engine.errors.count(), 0);
}

TEST_F(Mail, StartTlsWhenOfferedAndAuthWhenAsked) {
    startSmtp({QStringLiteral("--tls"), QStringLiteral("--auth"),
               QStringLiteral("alert:s3cret pa\u00df")});
    useLogin(QStringLiteral("alert"), QStringLiteral("s3cret pa\u00df"));
    a.engine.DebugMode = true;
    alerts->mail().SendEMail(QStringLiteral("ops@example.org"), QStringLiteral("***"),
                             QStringLiteral("Gr\u00fc\u00dfe\r\n"));
    const auto mails = test::jsonLines(out);
    ASSERT_EQ(mails.size(), 1u);
    EXPECT_TRUE(mails[0]["tls"].toBool());
    EXPECT_EQ(mails[0]["login"].toString(), QStringLiteral("alert"));
    EXPECT_EQ(mails[0]["body"].toString(), QStringLiteral("Gr\u00fc\u00dfe\r\n"));
    QFile trace(a.engine.trace.path());
    ASSERT_TRUE(trace.open(QIODevice::ReadOnly));
    const QString debug = QString::fromUtf8(trace.readAll());
    EXPECT_TRUE(debug.contains(QStringLiteral("vbSendMail Audit Entry ")));
    EXPECT_TRUE(debug.contains(QStringLiteral("Sending Message to ops@example.org...")));
    EXPECT_TRUE(debug.contains(QStringLiteral("vbSendMail: Send Successful!")));
    EXPECT_FALSE(debug.contains(QStringLiteral("s3cret")));
}

TEST_F(Mail, RefusedLoginFailsWithTheReason) {
    startSmtp({QStringLiteral("--auth"), QStringLiteral("alert:right")});
    useLogin(QStringLiteral("alert"), QStringLiteral("wrong"));
    a.engine.DebugMode = true;
    alerts->mail().SendEMail(QStringLiteral("ops@example.org"), QStringLiteral("FS1"),
                             QStringLiteral("x"));
    EXPECT_TRUE(test::jsonLines(out).empty());
    QFile trace(a.engine.trace.path());
    ASSERT_TRUE(trace.open(QIODevice::ReadOnly));
    const QByteArray debug = trace.readAll();
    EXPECT_TRUE(debug.contains("vbSendMail: Login denied (server reply 535)"))
        << debug.toStdString();
}

TEST_F(Mail, StepsOfTheMailObjectInOrder) {
    startSmtp();
    const EventRecorder ok = sendDirect(QStringLiteral("ops@example.org"));
    EXPECT_EQ(
        ok.events,
        (QStringList{QStringLiteral("Connecting to 127.0.0.1 on port %1...")
                         .arg(a.value(QStringLiteral("E-Mail"), QStringLiteral("SMTP Port"))),
                     QStringLiteral("Connected to 127.0.0.1"), QStringLiteral("Sending Message"),
                     QStringLiteral("Closing Connection"), QStringLiteral("(successful)")}));
    const EventRecorder refused = sendDirect(QStringLiteral("ops@refused.test"));
    ASSERT_GE(refused.events.size(), 2);
    EXPECT_TRUE(refused.events[refused.events.size() - 2].startsWith(QStringLiteral("(failed) ")));
    EXPECT_TRUE(refused.events[refused.events.size() - 2].contains(QStringLiteral("550")))
        << refused.events.join(QLatin1Char('|')).toStdString();
    EXPECT_EQ(refused.events.back(), QStringLiteral("Closing Connection"));
    const EventRecorder none = sendDirect(QStringLiteral(" ; "));
    EXPECT_EQ(none.events, QStringList{QStringLiteral("(failed) No recipient address given.")});
}

TEST_F(Mail, ClosedPortFailsAndTheNextActionRuns) {
    useSmtp(test::freePort());
    a.addName(QStringLiteral("E-Mail\\Recipients"), QStringLiteral("ops@example.org"));
    a.rule(1).EMail = 1;
    a.rule(1).LocalLogfile = 1;
    const EventRecorder r = sendDirect(QStringLiteral("ops@example.org"));
    ASSERT_EQ(r.events.size(), 3);
    EXPECT_TRUE(r.events[1].contains(QStringLiteral("Couldn't connect")))
        << r.events[1].toStdString();
    alerts->RunAlertOptions(1, 1);
    EXPECT_TRUE(QFile::exists(a.tree.paths().inApp(QStringLiteral("RTMLog.txt"))));
    EXPECT_EQ(a.engine.errors.count(), 0);
}

TEST_F(Mail, SilentServerFailsInBoundedTimeWhileTheWindowRuns) {
    startSmtp({QStringLiteral("--silent")});
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(50);
    const EventRecorder first = sendDirect(QStringLiteral("ops@example.org"));
    EXPECT_GT(ticks, 3) << "the event loop ran during the wait";
    ASSERT_EQ(first.events.size(), 3);
    // The greeting belongs to the connection: a server that never greets runs into the
    // connect time-out.
    EXPECT_TRUE(first.events[1].startsWith(QStringLiteral("(failed) Operation timed out after 20")))
        << first.events[1].toStdString();
    // The same cycle: the next mail to the silent server fails at once.
    ticks = 0;
    const EventRecorder second = sendDirect(QStringLiteral("ops@example.org"));
    EXPECT_TRUE(second.events[1].contains(QStringLiteral("did not answer a moment ago")));
    EXPECT_LE(ticks, 1);
    transport.NewCycle();
    const EventRecorder third = sendDirect(QStringLiteral("ops@example.org"));
    EXPECT_TRUE(third.events[1].startsWith(QStringLiteral("(failed) Operation timed out")));
}

TEST_F(Mail, Pop3LogInBeforeSmtp) {
    startSmtp();
    const QString pop3Out = a.tree.path(QStringLiteral("pop3.jsonl"));
    auto pop3 =
        Receiver::script("pop3_receiver.py", {QStringLiteral("--out"), pop3Out,
                                              QStringLiteral("--user"), QStringLiteral("alert"),
                                              QStringLiteral("--password"), QStringLiteral("pw")});
    const int pop3Port = pop3->port();
    ASSERT_GT(pop3Port, 0);
    a.setValue(QStringLiteral("E-Mail"), QStringLiteral("POP3 Authentication"),
               QStringLiteral("1"));
    a.setValue(QStringLiteral("E-Mail"), QStringLiteral("POP3 HOST"),
               QStringLiteral("127.0.0.1:%1").arg(pop3Port));
    a.setValue(QStringLiteral("E-Mail"), QStringLiteral("User Name"), QStringLiteral("alert"));
    a.setValue(QStringLiteral("E-Mail"), QStringLiteral("Password"),
               encodePassword(QStringLiteral("pw")));
    alerts->mail().SendEMail(QStringLiteral("ops@example.org"), QStringLiteral("FS1"),
                             QStringLiteral("x"));
    ASSERT_EQ(test::jsonLines(pop3Out).size(), 1u);
    EXPECT_TRUE(test::jsonLines(pop3Out)[0]["ok"].toBool());
    ASSERT_EQ(test::jsonLines(out).size(), 1u);
    EXPECT_TRUE(test::jsonLines(out)[0]["login"].isNull()) << "SMTP authentication stays off";

    a.setValue(QStringLiteral("E-Mail"), QStringLiteral("Password"),
               encodePassword(QStringLiteral("no")));
    alerts->mail().SendEMail(QStringLiteral("ops@example.org"), QStringLiteral("FS1"),
                             QStringLiteral("x"));
    EXPECT_EQ(test::jsonLines(out).size(), 1u) << "a refused POP3 log-in sends nothing";
}

TEST_F(Mail, TheMailTestListsWhatHappens) {
    FrmSendMailInfos infos(a.engine, alerts->mail());
    infos.Form_Load();
    EXPECT_TRUE(alerts->mail().MailTestActive);
    infos.RunMailTest();
    EXPECT_EQ(infos.Listbox1,
              (QStringList{QStringLiteral("E-Mail recipient not found!"),
                           QStringLiteral("Please add a recipient and try again.")}));

    startSmtp();
    a.addName(QStringLiteral("E-Mail\\Recipients"), QStringLiteral("first@example.org"));
    a.addName(QStringLiteral("E-Mail\\Recipients"), QStringLiteral("second@example.org"));
    infos.Form_Load();
    infos.RunMailTest();
    ASSERT_EQ(test::jsonLines(out).size(), 1u) << "only the first recipient";
    EXPECT_EQ(test::jsonLines(out)[0]["headers"].toObject()["Subject"].toString(),
              QStringLiteral("Realtime Event Monitor Alert (TEST)"));
    EXPECT_EQ(test::jsonLines(out)[0]["body"].toString(), QStringLiteral("-STOP-\r\n"));
    ASSERT_EQ(infos.Listbox1.size(), 7);
    EXPECT_EQ(infos.Listbox1[0], QString());
    EXPECT_TRUE(infos.Listbox1[1].startsWith(QStringLiteral("vbSendMail Audit Entry ")));
    EXPECT_EQ(infos.Listbox1[4], QStringLiteral("Sending Message to first@example.org..."));
    EXPECT_EQ(infos.Listbox1[6], QStringLiteral("Send Successful!"));
    EXPECT_EQ(infos.ListIndex, 6);

    useSmtp(test::freePort());
    infos.Form_Load();
    infos.RunMailTest();
    ASSERT_GE(infos.Listbox1.size(), 3);
    EXPECT_EQ(infos.Listbox1[infos.Listbox1.size() - 4],
              QStringLiteral("Your attempt to send mail failed for the following reason(s):"));
    EXPECT_EQ(infos.Listbox1[infos.Listbox1.size() - 2], QStringLiteral("Closing Connection"));
    EXPECT_EQ(infos.Listbox1.back(), QStringLiteral("Send Mail Failed!"));
    infos.Form_Unload();
    EXPECT_FALSE(alerts->mail().MailTestActive);
    EXPECT_FALSE(alerts->mail().MailSendFailed);
}
