// The texts of the alerts: popup and mail text, RTMLog records, the syslog message, the
// status survey, mail subjects and messages, the syslog wire format.

#include "alerts/AlertTexts.h"
#include "AlertTestSupport.h"
#include "alerts/Heartbeat.h"
#include "alerts/KLog.h"
#include "alerts/MailMessage.h"
#include "alerts/MonitorWebpage.h"
#include "alerts/RtmLogfile.h"
#include "alerts/SendEMail.h"
#include "alerts/SyslogForwarding.h"

using namespace twk;
using test::AlertEngine;
using test::RowSpec;

namespace {

MonitorRowEvent sampleEvent() {
    AlertEngine a;
    a.setRow(1, RowSpec{QStringLiteral("  fs1  "), 40, QStringLiteral(" 2024-05-06 10:00:00 "),
                        QStringLiteral(" Critical "), QStringLiteral("Server"),
                        QStringLiteral("Communication"), 8, QStringLiteral(" 1.1.52"),
                        QStringLiteral("lost  ")});
    return ReadMonitorRow(a.engine.Grid1, 1);
}

} // namespace

TEST(AlertTexts, RowCellsAreReadTrimmedAndMissingOnesEmpty) {
    const MonitorRowEvent e = sampleEvent();
    EXPECT_EQ(e.server, QStringLiteral("fs1"));
    EXPECT_EQ(e.date, QStringLiteral("2024-05-06 10:00:00"));
    EXPECT_EQ(e.errorNumber, QStringLiteral("1.1.52"));
    EXPECT_EQ(e.message, QStringLiteral("lost"));
    EXPECT_EQ(e.ledImage, 40);
    EXPECT_EQ(e.eventImage, 8);

    Grid twoColumns;
    twoColumns.setColumns({textColumn("a", "A", 10), textColumn("b", "B", 10)});
    twoColumns.setRows(1);
    twoColumns.setCellText(1, 2, "X");
    const MonitorRowEvent shortRow = ReadMonitorRow(twoColumns, 1);
    EXPECT_EQ(shortRow.server, QStringLiteral("X"));
    EXPECT_TRUE(shortRow.message.isEmpty());
    EXPECT_EQ(shortRow.eventImage, -1);
    EXPECT_TRUE(ReadMonitorRow(twoColumns, 7).server.isEmpty());
}

TEST(AlertTexts, PopupAndMailTextKeepEveryBlank) {
    const AlertTexts t = BuildAlertTexts(sampleEvent());
    const QString body = QStringLiteral(
        "\r\nDate:            2024-05-06 10:00:00\r\n\r\nServer:          fs1\r\n\r\n"
        "Status:          Critical\r\nSource:         Server\r\nCategory:     Communication\r\n"
        "\r\nError Message:\r\nlost");
    EXPECT_EQ(t.PopupText, QStringLiteral("Tarnwick Realtime Event Monitor ALERT:") +
                               QString(42, ' ') + "\r\n" + QString(67, '-') + body);
    EXPECT_EQ(t.MailText, QStringLiteral("Tarnwick Realtime Event Monitor ALERT:\r\n") +
                              QString(59, '-') + body);
}

TEST(AlertTexts, StateWordsAndEventDescriptions) {
    const std::pair<int, const char*> words[] = {
        {38, "ONLINE"},  {39, "WARNING"}, {40, "FAILURE"}, {41, "Monitoring not available"},
        {42, "OFFLINE"}, {43, "UNKNOWN"}, {37, "???"},     {-1, "???"}};
    for (const auto& [led, word] : words)
        EXPECT_EQ(RealtimeStateWord(led), QLatin1String(word)) << led;
    EXPECT_EQ(EventTypeDescription(7), QStringLiteral("established communication with server..."));
    EXPECT_EQ(EventTypeDescription(23), QStringLiteral("auditing event"));
    EXPECT_EQ(EventTypeDescription(24), QStringLiteral("icon not available"));
    EXPECT_EQ(EventTypeDescription(25), QString());
    EXPECT_EQ(EventTypeDescription(27), QStringLiteral("Bindery open request"));
    EXPECT_EQ(EventTypeDescription(32), QStringLiteral("router configuration error"));
    EXPECT_EQ(EventTypeDescription(33), QString());
}

TEST(AlertTexts, RtmLogRecordHasTwoLinesAndAnEmptyOne) {
    EXPECT_EQ(RtmLogRecord(sampleEvent()),
              QStringLiteral("fs1 - FAILURE - 2024-05-06 10:00:00 - Source: Server - Category: "
                             "Communication - Error#: 1.1.52\r\n  ErrorType: lost communication "
                             "with server... -> ErrorMessage: lost\r\n\r\n"));
    // A state row: empty source, category, number and message; no known event type.
    MonitorRowEvent offline;
    offline.server = QStringLiteral("NT1");
    offline.ledImage = 42;
    offline.date = QStringLiteral("2024-05-06");
    offline.eventImage = 24;
    EXPECT_EQ(RtmLogRecord(offline),
              QStringLiteral("NT1 - OFFLINE - 2024-05-06 - Source:  - Category:  - Error#: \r\n"
                             "  ErrorType: icon not available -> ErrorMessage: \r\n\r\n"));
}

TEST(AlertTexts, SyslogMessageIsCutAt900BeforeTheLineEnd) {
    MonitorRowEvent e = sampleEvent();
    EXPECT_EQ(SyslogMessage(e, false),
              QStringLiteral("Server: fs1, RTM State: FAILURE, Date: 2024-05-06 10:00:00, Status: "
                             "Critical, Source: Server, Category: Communication, Error#: 1.1.52, "
                             "ErrorMessage: lost"));
    e.message = QString(2000, 'x');
    const QString cut = SyslogMessage(e, true);
    EXPECT_EQ(cut.size(), 902);
    EXPECT_TRUE(cut.endsWith(QStringLiteral("x\r\n")));
    e.ledImage = 12;
    EXPECT_TRUE(SyslogMessage(e, false).contains(QStringLiteral("RTM State: ???,")));
}

TEST(AlertTexts, StatusSurveyBlocksPerRow) {
    AlertEngine a;
    a.setRow(1, RowSpec{QStringLiteral("FS1"), 38, QStringLiteral("2024-05-06 10:00:00"),
                        QStringLiteral("Informational"), QStringLiteral("Server"),
                        QStringLiteral("Login"), 24, QStringLiteral(" 7"), QStringLiteral("m")});
    a.setRow(2, RowSpec{QStringLiteral("NT1"),
                        44,
                        QStringLiteral("2024-05-06"),
                        QStringLiteral("OFFLINE"),
                        {},
                        {},
                        24,
                        {},
                        {}});
    const QString survey = fnStatusSurvey(a.engine.Grid1);
    EXPECT_TRUE(survey.startsWith(QStringLiteral(
        "\r\n\r\n\r\nDate:                2024-05-06 10:00:00\r\nServer:              FS1\r\n"
        "Realtime Status:     ONLINE\r\n\r\nSource:              Server\r\n"
        "Category:            Login\r\n\r\nError Number:        7\r\n"
        "Error Description:   not available\r\n\r\nError Message\r\n-------------\r\nm\r\n")));
    EXPECT_TRUE(survey.contains(QStringLiteral("Realtime Status:     ???\r\n")));
    EXPECT_TRUE(survey.endsWith(QStringLiteral("-------------\r\n\r\n\r\n\r\n\r\n")));
    EXPECT_EQ(fnStatusSurvey(Grid()), QStringLiteral("\r\n\r\n\r\n"));
}

TEST(AlertTexts, MailSubjectsByMarkOrServer) {
    EXPECT_EQ(MailSubject(QStringLiteral("fs1")),
              QStringLiteral("Realtime Event Monitor Alert Server FS1"));
    EXPECT_EQ(MailSubject(QStringLiteral("###")),
              QStringLiteral("Realtime Event Monitor Alert (TEST)"));
    EXPECT_EQ(MailSubject(QStringLiteral("+++")), QStringLiteral("Realtime Monitoring Started"));
    EXPECT_EQ(MailSubject(QStringLiteral("***")),
              QStringLiteral("Realtime Monitoring Heartbeat Notification"));
    EXPECT_EQ(MailSubject(QStringLiteral("### ")),
              QStringLiteral("Realtime Event Monitor Alert Server ### "));
}

TEST(AlertTexts, PasswordDecodingWrapsAt255AndReusesTheKey) {
    // Encoded by hand with the key "7QkuRM3PV%": code + key, less 255 from 256 on.
    const QString key = QStringLiteral("7QkuRM3PV%");
    const auto encode = [&](const QString& plain) {
        QString stored;
        for (int i = 0; i < plain.size(); ++i) {
            const int s = plain[i].unicode() + key[i % 10].unicode();
            stored += QChar(s < 256 ? s : s - 255);
        }
        return stored;
    };
    const QString plain = QStringLiteral("secret\u00e9Password!");
    EXPECT_EQ(DecodeMailPassword(encode(plain)), plain);
    // The wrap at 255: a character of code 255 comes back as 0.
    EXPECT_EQ(DecodeMailPassword(encode(QStringLiteral("\u00ff"))), QString(QChar(0)));
    EXPECT_EQ(DecodeMailPassword(QString()), QString());
}

TEST(AlertTexts, HeartbeatTimerHoursAndMinutes) {
    const std::tuple<int, int, int> cases[] = {{59, 0, 59}, {60, 1, 0}, {90, 1, 30}, {360, 6, 0}};
    for (const auto& [interval, hours, minutes] : cases) {
        EXPECT_EQ(HeartbeatTimerSetting(interval).hours, hours) << interval;
        EXPECT_EQ(HeartbeatTimerSetting(interval).minutes, minutes) << interval;
    }
}

TEST(AlertTexts, SyslogPacketWithAndWithoutHeader) {
    const QDateTime t(QDate(2024, 5, 6), QTime(9, 5, 7));
    EXPECT_EQ(SyslogPacket(13, true, QStringLiteral("TWK"), QStringLiteral("hello"), t,
                           QStringLiteral("ws1.example.org")),
              QByteArray("<13>May  6 09:05:07 ws1 TWK: hello"));
    EXPECT_EQ(SyslogPacket(0, false, QStringLiteral("TWK"), QStringLiteral("x"), t, {}),
              QByteArray("<0>TWK: x"));
    EXPECT_EQ(SyslogPacket(191, false, QString(), QStringLiteral("x"), t, {}),
              QByteArray("<191>x"));
    EXPECT_EQ(SyslogPacket(8, true, {}, {}, QDateTime(QDate(2024, 12, 24), QTime(23, 0)), {}),
              QByteArray("<8>Dec 24 23:00:00 localhost "));
}

TEST(AlertTexts, MailMessageHeadersAndBody) {
    MailFields f;
    f.from = QStringLiteral("monitor@example.org");
    f.recipient = QStringLiteral("a@example.org; ;b@example.org ");
    f.subject = QStringLiteral("Realtime Event Monitor Alert Server FS1");
    f.body = QStringLiteral("line 1\nline 2\r\nline 3");
    f.date = QDateTime(QDate(2024, 5, 6), QTime(10, 0), Qt::OffsetFromUTC, 7200);
    const QByteArray m = ComposeMailMessage(f, QStringLiteral("id@example.org"));
    EXPECT_TRUE(m.startsWith("Date: Mon, 06 May 2024 10:00:00 +0200\r\n"
                             "From: \"Tarnwick\" <monitor@example.org>\r\n"
                             "To: a@example.org, b@example.org\r\n"
                             "Subject: Realtime Event Monitor Alert Server FS1\r\n"
                             "Message-ID: <id@example.org>\r\nMIME-Version: 1.0\r\n"
                             "Content-Type: text/plain; charset=UTF-8\r\n"
                             "Content-Transfer-Encoding: 7bit\r\n"));
    EXPECT_TRUE(m.endsWith("\r\n\r\nline 1\r\nline 2\r\nline 3\r\n"));

    f.subject = QStringLiteral("Größe");
    f.body = QStringLiteral("Größe = 5 \r\n") + QString(1000, 'a');
    const QByteArray encoded = ComposeMailMessage(f, QStringLiteral("id@x"));
    EXPECT_TRUE(encoded.contains("Subject: =?UTF-8?B?R3LDtsOfZQ==?=\r\n"));
    EXPECT_TRUE(encoded.contains("Content-Transfer-Encoding: quoted-printable\r\n"));
    EXPECT_TRUE(encoded.contains("\r\n\r\nGr=C3=B6=C3=9Fe =3D 5=20\r\naaaa"));
    for (const QByteArray& line : encoded.split('\n'))
        EXPECT_LE(line.size(), 77);
}

TEST(AlertTexts, FtpUploadAddresses) {
    const std::tuple<const char*, const char*> cases[] = {
        {"ftp.example.org", "ftp://ftp.example.org/rtm.html"},
        {"ftp.example.org/www/", "ftp://ftp.example.org/www/rtm.html"},
        {"ftp://127.0.0.1:2121", "ftp://127.0.0.1:2121/rtm.html"},
        {"ftp://host/www/index.html", "ftp://host/www/index.html"}};
    for (const auto& [server, url] : cases)
        EXPECT_EQ(FtpUploadUrl(QLatin1String(server), QStringLiteral("rtm.html")),
                  QLatin1String(url))
            << server;
}
