// The demo's message catalogue and the byte layout of single entries.

#include "demo/SysLogErrFormat.h"
#include "demo/SysLogErrMessages.h"
#include "logs/EventTypeRecognizer.h"
#include "logs/Vocabulary.h"

#include <gtest/gtest.h>

#include <set>

namespace twk::demo {
namespace {

std::string joined(const std::vector<std::string>& lines) {
    std::string out;
    for (const std::string& line : lines) {
        if (!out.empty())
            out += "  |  ";
        out += line;
    }
    return out;
}

SysLogErrEvent volumeMounted() {
    SysLogErrEvent e;
    e.severity = 0;
    e.locus = 3;
    e.klass = 5;
    e.errorNumber = "SERVER-5.60-0  [nmID=1000A]";
    e.lines = {"Volume SYS was mounted."};
    return e;
}

TEST(DemoSysLogErrMessages, BothLanguagesKnowTheSameKeysInTheSameOrder) {
    const auto english = sysLogErrMessages(LogLanguage::English);
    const auto german = sysLogErrMessages(LogLanguage::German);
    ASSERT_EQ(english.size(), german.size());
    for (std::size_t i = 0; i < english.size(); ++i) {
        EXPECT_EQ(english[i].key, german[i].key);
        EXPECT_EQ(sysLogErrMessageIndex(english[i].key), static_cast<int>(i));
    }
}

TEST(DemoSysLogErrMessages, CodeNumbersStayInsideTheTables) {
    for (const auto language : {LogLanguage::English, LogLanguage::German})
        for (const SysLogErrMessage& m : sysLogErrMessages(language)) {
            EXPECT_TRUE(m.severity >= 0 && m.severity < kStatusCount) << m.key;
            EXPECT_TRUE(m.locus >= 0 && m.locus < kLocusCount) << m.key;
            EXPECT_TRUE(m.klass >= 0 && m.klass < kClassCount) << m.key;
            EXPECT_GT(m.weight, 0) << m.key;
        }
}

// Each message, with its placeholders filled in many ways, is recognised as the type
// it claims; and together they reach every type the language has phrases for.
TEST(DemoSysLogErrMessages, EveryMessageIsRecognisedAsItsDeclaredType) {
    for (const auto language : {LogLanguage::English, LogLanguage::German}) {
        SysLogErrEventSource source(language, 7, "FS1");
        std::set<int> types;
        for (int i = 0; i < 20000; ++i) {
            const SysLogErrEvent e = source.next();
            ASSERT_EQ(iEventType(joined(e.lines), language), e.eventType) << joined(e.lines);
            ASSERT_GE(e.lines.size(), 1u);
            ASSERT_LE(e.lines.size(), 4u);
            ASSERT_LE(e.errorNumber.size(), kErrorNumberWidth);
            types.insert(e.eventType);
        }
        std::set<int> wanted = {24};
        for (int t = 7; t <= 32; ++t)
            if (t != 24 && t != 25 && t != 26)
                wanted.insert(t);
        if (language == LogLanguage::German)
            for (const int none : {13, 14, 30})
                wanted.erase(none);
        EXPECT_EQ(types, wanted);
    }
}

TEST(DemoSysLogErrFormat, EnglishEntryPutsAOneDigitHourBehindThreeBlanks) {
    const QDateTime when(QDate(2003, 1, 15), QTime(14, 30, 45));
    EXPECT_EQ(formatSysLogErrEntry(volumeMounted(), when, LogLanguage::English),
              "1-15-2003   2:30:45 pm:  SERVER-5.60-0  [nmID=1000A]\r\n"
              "Severity = 0  Locus = 3  Class = 5\r\n"
              "Volume SYS was mounted.\r\n"
              "\r\n");
}

TEST(DemoSysLogErrFormat, EnglishClockRunsFromTwelveAmToElevenPm) {
    const auto header = [](int hour) {
        const std::string entry =
            formatSysLogErrEntry(volumeMounted(), QDateTime(QDate(2004, 12, 3), QTime(hour, 5, 9)),
                                 LogLanguage::English);
        return entry.substr(0, entry.find("m:") + 2);
    };
    EXPECT_EQ(header(0), "12-3-2004  12:05:09 am:");
    EXPECT_EQ(header(11), "12-3-2004  11:05:09 am:");
    EXPECT_EQ(header(12), "12-3-2004  12:05:09 pm:");
    EXPECT_EQ(header(23), "12-3-2004  11:05:09 pm:");
}

TEST(DemoSysLogErrFormat, GermanEntryIsWrittenInCodePage850) {
    SysLogErrEvent e = volumeMounted();
    e.lines = {"Schließen der Bindery für Gerät Ä Ö Ü ö ü"};
    EXPECT_EQ(
        formatSysLogErrEntry(e, QDateTime(QDate(2003, 1, 5), QTime(9, 3, 7)), LogLanguage::German),
        "05.01.2003  09:03:07:     SERVER-5.60-0  [nmID=1000A]\r\n"
        "Schweregrad = 0  Geometrischer Ort = 3  Klasse = 5\r\n"
        "Schlie\xE1"
        "en der Bindery f\x81r Ger\x84t \x8E \x99 \x9A \x94 \x81\r\n"
        "\r\n");
}

TEST(DemoSysLogErrFormat, ClockTimesSurviveTheRoundTripThroughSeconds) {
    for (const SysLogErrTime t :
         {SysLogErrTime{1970, 1, 1, 0, 0, 0}, SysLogErrTime{2000, 2, 29, 23, 59, 59},
          SysLogErrTime{1999, 12, 31, 12, 0, 1}, SysLogErrTime{1965, 3, 1, 6, 7, 8}})
        EXPECT_EQ(clockTimeAt(secondsSinceEpoch(t)), t);
    EXPECT_EQ(secondsSinceEpoch({1970, 1, 2, 0, 0, 1}), 86401);
}

TEST(DemoSysLogErrFormat, BannerLinesNameTheLogOrAreStars) {
    const std::string banner = sysLogErrBanner(LogLanguage::English, "FS1");
    EXPECT_EQ(banner.substr(banner.size() - 4), "\r\n\r\n");
    std::size_t from = 0;
    int lines = 0;
    while (true) {
        const auto end = banner.find("\r\n", from);
        const std::string line = banner.substr(from, end - from);
        if (line.empty())
            break;
        ++lines;
        EXPECT_TRUE(line.find("SYS$LOG.ERR") != std::string::npos ||
                    line.find("*****") != std::string::npos)
            << line;
        EXPECT_EQ(line.find('='), std::string::npos) << line;
        from = end + 2;
    }
    EXPECT_EQ(lines, 3);
}

} // namespace
} // namespace twk::demo
