// The console, abend and cron logs of the demo servers, checked against the rules by
// which the program reads those logs.

#include "demo/AbendLogWriter.h"
#include "demo/ConsoleLogWriter.h"
#include "demo/CronlogWriter.h"
#include "demo/DemoTime.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace twk;
using namespace twk::demo;

namespace {

const QDateTime kEnd(QDate(2024, 3, 14), QTime(16, 5, 9));

QStringList linesOf(const QByteArray& bytes) {
    EXPECT_TRUE(bytes.endsWith("\r\n"));
    QStringList lines = QString::fromLatin1(bytes).split("\r\n");
    lines.removeLast();
    for (const QString& line : lines)
        EXPECT_FALSE(line.contains(u'\r') || line.contains(u'\n')) << "lines end in CR LF only";
    return lines;
}

/// The date-line test of the console and cron views: a first token of 7 to 10 digits
/// and "-", ".", "/" whose last separator occurs exactly twice.
bool isDateLine(QString text) {
    text.remove(u'\n');
    text = text.trimmed();
    const qsizetype blank = text.indexOf(u' ');
    if (text.size() < 7 || blank < 0)
        return false;
    const QString token = text.left(blank);
    if (token.size() < 7 || token.size() > 10)
        return false;
    QChar separator;
    for (const QChar c : token) {
        if (c.unicode() < 45 || c.unicode() > 57)
            return false;
        if (c.unicode() <= 47)
            separator = c;
    }
    return !separator.isNull() && token.count(separator) == 2;
}

int count(const QStringList& lines, const QString& word) {
    int n = 0;
    for (const QString& line : lines)
        n += line.toLower().contains(word) ? 1 : 0;
    return n;
}

ConsoleLogOptions console(LogLanguage language) {
    ConsoleLogOptions o;
    o.language = language;
    o.seed = 7;
    o.start = kEnd.addDays(-6);
    o.end = kEnd;
    return o;
}

} // namespace

TEST(DemoTime, StampsOfBothLanguages) {
    const QDateTime t(QDate(2003, 1, 5), QTime(8, 0, 12, 15));
    EXPECT_EQ(consoleStamp(t, LogLanguage::English), "1-5-2003   8:00:12 am");
    EXPECT_EQ(consoleStamp(t.addSecs(6 * 3600), LogLanguage::English), "1-5-2003   2:00:12 pm");
    EXPECT_EQ(consoleStamp(t, LogLanguage::German), "05.01.2003  08:00:12");
    EXPECT_EQ(abendStamp(t, LogLanguage::English), "Sunday, January 5, 2003   8:00:12.015 am");
    EXPECT_EQ(abendStamp(t, LogLanguage::German), "Sonntag, 5. Januar 2003  08:00:12.015");
    EXPECT_EQ(secondsBefore(t, 12), QDateTime(QDate(2003, 1, 5), QTime(8, 0, 0)));
}

TEST(ConsoleLogWriter, AnEnglishLogShowsLoadsUnloadsErrorsAndDates) {
    const QStringList lines = linesOf(consoleLogBytes(console(LogLanguage::English)));
    ASSERT_GT(lines.size(), 200);
    EXPECT_TRUE(lines[0].startsWith("System console logging started 3-8-2024"));
    EXPECT_GE(count(lines, "loading"), 12);
    EXPECT_GE(count(lines, "unloaded"), 1);
    EXPECT_GE(count(lines, "error") + count(lines, "warning"), 1);
    int dates = 0;
    for (const QString& line : lines) {
        if (!isDateLine(line))
            continue;
        ++dates;
        const QDateTime when =
            QDateTime::fromString(line.section(":    ", 0, 0).simplified(), "M-d-yyyy h:mm:ss ap");
        ASSERT_TRUE(when.isValid()) << line.toStdString();
        EXPECT_GE(when, kEnd.addDays(-6));
        EXPECT_LE(when, kEnd);
    }
    EXPECT_GT(dates, 60) << "about 24 events a day, most of them alerts";
}

TEST(ConsoleLogWriter, AGermanLogIsInCodePage850AndHasDateLines) {
    const QByteArray bytes = consoleLogBytes(console(LogLanguage::German));
    EXPECT_TRUE(bytes.startsWith("Protokollierung der Systemkonsole gestartet 08.03.2024"));
    EXPECT_EQ(bytes.indexOf("\xC3"), -1) << "no UTF-8 sequences";
    int dates = 0;
    for (const QString& line : linesOf(bytes))
        dates += isDateLine(line) ? 1 : 0;
    EXPECT_GT(dates, 60);
}

TEST(ConsoleLogWriter, SameOptionsSameBytesAndTheEndIsKept) {
    ConsoleLogOptions o = console(LogLanguage::English);
    o.shutdownAtEnd = true;
    const QByteArray bytes = consoleLogBytes(o);
    EXPECT_EQ(consoleLogBytes(o), bytes);
    EXPECT_TRUE(bytes.contains("FS1:down\r\n"));
    EXPECT_TRUE(bytes.endsWith("Module CONLOG.NLM unloaded.\r\n"));
    o.end = o.start.addSecs(-1);
    EXPECT_TRUE(consoleLogBytes(o).isEmpty()) << "an end before the start gives nothing";
}

TEST(AbendLogWriter, EveryAbendHasAHaltedLineAndItsSections) {
    AbendLogOptions o;
    o.seed = 3;
    o.abends = {kEnd.addDays(-1), kEnd.addDays(-20), kEnd.addDays(-9)};
    const QStringList lines = linesOf(abendLogBytes(o));
    QStringList halted;
    for (const QString& line : lines)
        if (line.contains("halted") || line.contains("Halted"))
            halted << line;
    ASSERT_EQ(halted.size(), 3);
    EXPECT_TRUE(halted[0].startsWith("Server FS1 halted "));
    EXPECT_TRUE(halted[0].endsWith("February 23, 2024   4:05:09.000 pm")) << "oldest first";
    EXPECT_TRUE(halted[2].contains("March 13, 2024"));
    for (const char* section :
         {"registers", "running process", "additional information", "loaded modules"})
        EXPECT_EQ(count(lines, section), 3) << section;
    int abendLines = 0;
    for (const QString& line : lines)
        abendLines += line.toLower().startsWith("abend") ? 1 : 0;
    EXPECT_EQ(abendLines, 3);
    EXPECT_GE(count(lines, ".nlm"), 3);
    EXPECT_GE(count(lines, ".lan"), 3);
    EXPECT_EQ(abendLogBytes(o), abendLogBytes(o));
    EXPECT_TRUE(abendLogBytes(AbendLogOptions()).isEmpty());
}

TEST(AbendLogWriter, AGermanAbendCarriesAGermanDate) {
    AbendLogOptions o;
    o.language = LogLanguage::German;
    o.serverName = "FS2";
    o.abends = {QDateTime(QDate(2024, 3, 5), QTime(9, 1, 2))};
    const QByteArray bytes = abendLogBytes(o);
    EXPECT_TRUE(bytes.contains("Server FS2 halted Dienstag, 5. M\x84rz 2024  09:01:02.000\r\n"))
        << "März in code page 850";
}

TEST(CronlogWriter, ServiceStartsAndStopsAroundRestartsAndJobsRun) {
    CronlogOptions o;
    o.seed = 5;
    o.start = kEnd.addDays(-30);
    o.end = kEnd;
    o.restarts = {kEnd.addDays(-10), kEnd.addDays(-40)};
    const QStringList lines = linesOf(cronlogBytes(o));
    ASSERT_GT(lines.size(), 80);
    EXPECT_EQ(count(lines, "cron service started"), 2) << "the start and one restart";
    EXPECT_EQ(count(lines, "cron service shutdown"), 1);
    EXPECT_EQ(count(lines, "size set to"), 2);
    QDateTime previous;
    for (const QString& line : lines) {
        ASSERT_TRUE(isDateLine(line)) << line.toStdString();
        const QDateTime when = QDateTime::fromString(line.left(19), "MM/dd/yyyy HH:mm:ss");
        ASSERT_TRUE(when.isValid());
        EXPECT_LE(when, kEnd);
        if (previous.isValid()) {
            EXPECT_GE(when, previous) << "in the order of time";
        }
        previous = when;
    }
    EXPECT_GE(count(lines, "loading"), 20);
    EXPECT_GE(count(lines, "unloaded"), 20);
    EXPECT_EQ(cronlogBytes(o), cronlogBytes(o));
}
