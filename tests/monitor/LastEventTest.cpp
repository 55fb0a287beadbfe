// The last event of a log, read back from its last lines.

#include "monitor/LastEvent.h"
#include "MonitorFixture.h"
#include "core/ErrorCapture.h"

#include <gtest/gtest.h>

using namespace twk;
using test::englishEntry;
using test::germanEntry;

namespace {

const QString kEnglish = QStringLiteral("Englisch");
const QString kGerman = QStringLiteral("Deutsch");

// The log behind a first line: the first line of a file is never read back, as no line
// end stands before it.
LastEvent parse(const std::string& log, const QString& language = QStringLiteral("Englisch")) {
    return ParseLastEvent(
        LastLines::ofBytes("*** SYS$LOG.ERR ***\r\n" + log, true, kLastEventLines - 1), language);
}

} // namespace

TEST(LastEvent, EnglishEntry) {
    const std::string log =
        englishEntry(2, 1, 4, "Old event.") +
        englishEntry("1-15-2003   2:30:45 pm:    SERVER-5.60-0  [nmID=1000A]",
                     "Severity = 4  Locus = 3  Class = 5",
                     {"Volume SYS dismounted:", "  Established communication with server FS2  "});
    const LastEvent e = parse(log);
    ASSERT_TRUE(e.found);
    EXPECT_EQ(e.date, QStringLiteral("2003-01-15 14:30:45"));
    EXPECT_EQ(e.severity, QStringLiteral("Fatal"));
    EXPECT_EQ(e.locus, QStringLiteral("Disk"));
    EXPECT_EQ(e.category, QStringLiteral("Hardware Failure"));
    EXPECT_EQ(e.errorNumber, QStringLiteral("   SERVER-5.60-0  [nmID=1000A]"));
    EXPECT_EQ(
        e.message,
        QStringLiteral("Volume SYS dismounted:  |  Established communication with server FS2"));
    EXPECT_EQ(e.eventImage, 7);
}

TEST(LastEvent, GermanEntryIsConverted) {
    const LastEvent e = parse(germanEntry(0, 16, 19, "Ger\x84t VOL1 wurde deaktiviert."), kGerman);
    ASSERT_TRUE(e.found);
    EXPECT_EQ(e.date, QStringLiteral("2003-01-15 14:30:45")) << "day first with dots";
    EXPECT_EQ(e.severity, QStringLiteral("Informational"));
    EXPECT_EQ(e.locus, QStringLiteral("NLM"));
    EXPECT_EQ(e.category, QStringLiteral("General Information"));
    EXPECT_EQ(e.message, QStringLiteral("Gerät VOL1 wurde deaktiviert."));
    EXPECT_EQ(e.eventImage, 20);
}

TEST(LastEvent, AGermanLogReadAsEnglishHasNoEvent) {
    EXPECT_FALSE(parse(germanEntry(0, 1, 1, "Text."), kEnglish).found);
    EXPECT_FALSE(parse(std::string(5000, '\0')).found);
    // The severity line must lie within the last 21 non-blank lines.
    std::vector<std::string> lines(20, "line");
    EXPECT_TRUE(parse(englishEntry("h  1:00:00", "Severity = 0", lines)).found);
    lines.push_back("one more");
    EXPECT_FALSE(parse(englishEntry("h  1:00:00", "Severity = 0", lines)).found);
}

TEST(LastEvent, HeaderQuirks) {
    // No two blanks: no date text; the time is cut from position 2.
    LastEvent e = parse(englishEntry("1-15-2003 2:30:45", "Severity = 0", {"x"}));
    EXPECT_EQ(e.date, QString());
    EXPECT_EQ(e.errorNumber, QStringLiteral(" 45"));
    // "am" anywhere in the header; with both letters the marker behind the time decides.
    e = parse(englishEntry("01/15/03  12:05:00 am:   RAMSERVER pm", "Severity = 0", {"x"}));
    EXPECT_EQ(e.date, QStringLiteral("2003-01-15 00:05:00"));
    // Month first with "-": a 15th month is no date.
    e = parse(englishEntry("15-01-2003   2:30:45 pm:  X", "Severity = 0", {"x"}));
    EXPECT_EQ(e.date, QString());
    // The severity line as the file's last non-blank line: no message.
    e = parse("1-15-2003   2:30:45 pm:  X\r\nSeverity = 1  Locus = 0  Class = 0\r\n\r\n");
    EXPECT_TRUE(e.found);
    EXPECT_EQ(e.date, QStringLiteral("2003-01-15 14:30:45"));
    EXPECT_EQ(e.message, QString());
    EXPECT_EQ(e.eventImage, 24);
    // The header as the file's first line cannot be read back.
    e = ParseLastEvent(LastLines::ofBytes(englishEntry(1, 1, 1, "x"), true, kLastEventLines - 1),
                       QStringLiteral("Englisch"));
    EXPECT_TRUE(e.found);
    EXPECT_EQ(e.date, QString());
}

TEST(LastEvent, CodesOutsideTheirTables) {
    LastEvent e = parse(englishEntry("h  1:00:00", "Severity = 9  Class = 25", {"x"}));
    EXPECT_EQ(e.severity, QStringLiteral("???"));
    EXPECT_EQ(e.locus, QStringLiteral("???")) << "missing label";
    EXPECT_EQ(e.category, QStringLiteral("???"));
    EXPECT_THROW(parse(englishEntry("h  1:00:00", "Severity = 1  Locus = -1", {"x"})),
                 RunTimeError);
    // The German class is not guarded.
    EXPECT_THROW(parse(germanEntry(0, 1, 30, "x"), kGerman), RunTimeError);
}

TEST(LastEvent, DateValues) {
    struct Case {
        const char* date;
        const char* time;
        const char* value;
    } cases[] = {
        {"1-15-2003", "02:30:45 pm", "2003-01-15 14:30:45"},
        {"01/15/03", "12:00:00 pm", "2003-01-15 12:00:00"},
        {"15.01.1999", "23.59.59", "1999-01-15 23:59:59"},
        {"2003-01-15", "1:02:03", "2003-01-15 01:02:03"},
        {"2-30-2003", "01:00:00", ""},
        {"1-15-2003", "25:00:00", ""},
        {"", "01:00:00", ""},
        {"1-15", "01:00:00", ""},
        {"a-b-c", "01:00:00", ""},
        {"1-15-2003", "01:00:00 xm", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(MonitorDateValue(c.date, c.time), QLatin1String(c.value))
            << c.date << " " << c.time;
}
