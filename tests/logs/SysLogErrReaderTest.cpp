#include "logs/SysLogErr.h"

#include "LogText.h"
#include "TestSupport.h"
#include "core/ErrorCapture.h"

#include <gtest/gtest.h>

#include <deque>

using namespace twk;
using twk::test::englishEntry;
using twk::test::lines;

namespace {

std::vector<SysLogEntry> readEntries(const QByteArray& bytes, LogLanguage language,
                                     ErrorCapture* errors = nullptr) {
    test::TempTree tree;
    LineReader reader(tree.write("SYS$LOG.ERR", bytes));
    // The messages live in a pool that outlasts every test.
    static std::deque<StringPool> pools;
    SysLogEntryReader entries(reader, language, errors, pools.emplace_back());
    std::vector<SysLogEntry> out;
    SysLogEntry e;
    while (entries.read(e))
        out.push_back(e);
    return out;
}
std::vector<SysLogEntry> readEnglish(const QByteArray& bytes) {
    return readEntries(bytes, LogLanguage::English);
}

// The cells of an entry, "|" between them: date, time, status icon, state, source,
// category, error number, message, event icon.
std::string cells(const SysLogEntry& e) {
    std::string out;
    for (const std::string& cell :
         {std::string(e.date), std::string(e.time), std::to_string(e.statusIcon),
          std::string(e.state), std::string(e.source), std::string(e.category),
          std::string(e.errorNr), std::string(e.message), std::to_string(e.eventIcon)})
        out += (out.empty() ? "" : "|") + cell;
    return out;
}

const char* kZeroCodes = "Severity = 0  Locus = 0  Class = 0";

} // namespace

TEST(LogsSysLogFirstEntry, HeaderBannersAreSkippedAndAFileWithoutEntriesGivesMinusOne) {
    test::TempTree tree;
    const QString path =
        tree.write("log", lines({"SYS$LOG.ERR for server FS1", "*****************", "",
                                 "Note: 1-2-3 x", "1-15-2003   2:30:45 pm:    SERVER-5.60-0",
                                 "Severity = 0  Locus = 3  Class = 5"}));
    EXPECT_EQ(fnFirstEntryRow(path), 5);
    EXPECT_EQ(fnFirstEntryDate(path), "1-15-2003");
    EXPECT_EQ(fnFirstEntryRow(tree.write("a", lines({"SYS$LOG.ERR", "*****"}))), -1);
    EXPECT_EQ(fnFirstEntryDate(tree.write("b", QByteArray())), "");
    EXPECT_EQ(fnFirstEntryRow(tree.path("missing")), -1);
}

TEST(LogsSysLogFirstEntry, DateTokensOfAllThreeShapes) {
    std::string_view token;
    EXPECT_TRUE(isEntryHeader("15.01.2003  14:30:45 :  X", &token));
    EXPECT_EQ(token, "15.01.2003");
    EXPECT_TRUE(isEntryHeader("01/15/03  2:30", &token));
    EXPECT_EQ(token, "01/15/03");
    // The separator is the last one in the token and must occur exactly twice.
    EXPECT_TRUE(isEntryHeader("1-15/20/3 x"));
    EXPECT_FALSE(isEntryHeader("1/15-2003 x"));
    EXPECT_FALSE(isEntryHeader("1-15-20-03 x"));
    EXPECT_FALSE(isEntryHeader("1-15-03 "));       // trimmed it has no blank
    EXPECT_FALSE(isEntryHeader("123456789012 x")); // no separator
    EXPECT_FALSE(isEntryHeader("1-1-1 x"));        // token shorter than 7
    EXPECT_FALSE(isEntryHeader("1a-15-2003 x"));
    EXPECT_FALSE(isEntryHeader("1-15-2003 SYS$log.err"));
    EXPECT_TRUE(isEntryHeader("1-15-\n2003 x")); // line feeds are removed first
}

TEST(LogsSysLogLanguage, FirstCodeLineDecides) {
    test::TempTree tree;
    EXPECT_EQ(detectLanguage(tree.write("a", lines({"SYS$LOG.ERR Severity = 1", "x = y",
                                                    "Schweregrad = 0", "Severity = 0"}))),
              LanguageDecision::German);
    EXPECT_EQ(
        detectLanguage(tree.write("b", lines({"Severity only without equals", "Severity = 2"}))),
        LanguageDecision::English);
    EXPECT_EQ(detectLanguage(tree.write("c", lines({"severity = 2"}))), LanguageDecision::Unknown);
}

TEST(LogsSysLogEntry, EnglishEntriesBecomeTheirCells) {
    const auto e = readEnglish(
        englishEntry("1-15-2003   2:30:45 pm:    SERVER-5.60-0  [nmID=1000A]",
                     "Severity = 4  Locus = 13  Class = 21", {"UPS battery low."}) +
        // Only the first message line loses its line feeds.
        englishEntry("1-15-2003  10:00:01 am:    X", "Severity = 1  Locus = 2  Class = 3",
                     {"  first\npart  ", "second\nline", "third", "fourth"}) +
        englishEntry("1-15-2003  10:00:01 am:    X", "Locus = 2", {"Third-party message"}) +
        englishEntry("1-15-2003  10:00:01 am:    X",
                     "Severity = x  Locus = ab  Class =   ", {"m"}) +
        // Each word counts where it stands first, whatever the order.
        englishEntry("1-15-2003  10:00:01 am:    X",
                     "Class = 5  Locus = 3  Severity = 2  Locus = 7  Class = 9", {"n"}));
    ASSERT_EQ(e.size(), 5u);
    EXPECT_EQ(cells(e[0]), "1-15-2003|02:30:45 pm|4|Fatal|UPS|Protect Violation|   SERVER-5.60-0 "
                           " [nmID=1000A]|UPS battery low.|24");
    EXPECT_EQ(e[1].message, "first part  |  second\nline  |  third  |  fourth");
    // Missing tokens read as question marks, garbled numbers as zero.
    EXPECT_EQ(cells(e[2]), "1-15-2003|10:00:01 am|26|???|File System|???|   X|Third-party "
                           "message|24");
    EXPECT_EQ(cells(e[3]), "1-15-2003|10:00:01 am|0|Informational|Unknown|Class Unknown|   X|m|24");
    EXPECT_EQ(cells(e[4]), "1-15-2003|10:00:01 am|2|Recovered|Disk|Hardware Failure|   X|n|24");
}

TEST(LogsSysLogEntry, CodeLinesNearTheUsualLayoutReadAsTheirTokens) {
    struct Case {
        const char* code;
        const char* cells; // state, source, category
    };
    const Case cases[] = {
        {"Severity = 3  Locus = 19  Class = 21", "Critical|Domain|Protect Violation"},
        {"Severity = 1 Locus = 5  Class = 7", "Warning|Protocols|Request Error"},
        {"Severity = 12  Locus = 5  Class = 7", "Warning|Protocols|Request Error"},
        {"Severity = 3  Locus = 123  Class = 2", "Critical|Kernel|Temporary Situation"},
        {"Severity = 3  Locus = 5  Class = 2  Locus = 7", "Critical|Protocols|Temporary Situation"},
        {"Severity = 3  Locus = 20  Class = 2", "Critical|???|Temporary Situation"},
        {"Severity = 3  Locus =  5  Class = 2", "Critical|Protocols|Temporary Situation"},
    };
    QByteArray bytes;
    for (const Case& c : cases)
        bytes += englishEntry("1-15-2003  10:00:01 am:    X", c.code, {"m"});
    const auto e = readEnglish(bytes);
    ASSERT_EQ(e.size(), std::size(cases));
    for (std::size_t i = 0; i < e.size(); ++i)
        EXPECT_EQ(std::string(e[i].state) + "|" + std::string(e[i].source) + "|" +
                      std::string(e[i].category),
                  cases[i].cells)
            << cases[i].code;
}

TEST(LogsSysLogEntry, AmAndPmAreTestedOnTheWholeHeader) {
    const auto e =
        readEnglish(englishEntry("1-15-2003  10:00:01 am:    CAMPUS-PM-7", kZeroCodes, {"x"}) +
                    englishEntry("1-15-2003  10:00:02:    SAM", kZeroCodes, {"y"}));
    ASSERT_EQ(e.size(), 2u);
    EXPECT_EQ(e[0].time, "10:00:01 am pm");
    EXPECT_EQ(e[1].time, "10:00:02 am"); // "SAM" holds "am"
}

TEST(LogsSysLogEntry, NumbersOutsideTheTablesAreCapturedAndReadingGoesOn) {
    test::TempTree tree;
    ErrorCapture errors(tree.paths());
    const auto e = readEntries(englishEntry("1-15-2003  10:00:01 am:    X",
                                            "Severity = 9  Locus = 42  Class = -1", {"a"}) +
                                   englishEntry("1-15-2003  10:00:02 am:    Y",
                                                "Severity = 8  Locus = 1  Class = 1", {"b"}),
                               LogLanguage::English, &errors);
    ASSERT_EQ(e.size(), 2u);
    EXPECT_EQ(cells(e[0]), "1-15-2003|10:00:01 am|26|???|???|???|   X|a|24");
    EXPECT_EQ(e[1].message, "b");
    EXPECT_EQ(e[1].source, "Memory");
    EXPECT_EQ(errors.count(), 1); // captured once per reading
    const QByteArray written = tree.read("app/error.txt");
    EXPECT_TRUE(written.contains("Method: modSysLogErr.ShowSysLogErr(sPath)"));
    EXPECT_TRUE(written.contains("Number: 9 = &H9"));
    EXPECT_TRUE(written.contains("Subscript out of range"));
}

TEST(LogsSysLogEntry, HeaderWithoutDoubleBlankKeepsThePreviousDate) {
    const auto e = readEnglish(englishEntry("1-15-2003  10:00:01 am:    X", kZeroCodes, {"a"}) +
                               englishEntry("garbled-header", kZeroCodes, {"b"}));
    ASSERT_EQ(e.size(), 2u);
    EXPECT_EQ(e[1].date, "1-15-2003");
    EXPECT_EQ(e[1].time, "arbled-h"); // 8 characters from place 0 + 2
    EXPECT_EQ(e[1].errorNr, " ");
}

TEST(LogsSysLogEntry, GermanTextIsConvertedFromTheServerCodePage) {
    const auto e = readEntries(lines({"15.01.2003  14:30:45 :    SERVER-5.60-0",
                                      "Schweregrad = 2  Geometrischer Ort = 10  Klasse = 15",
                                      "Ger\x84t 0x3 wurde deaktiviert",
                                      "Gr\x94\xe1"
                                      "e \x9a\x8e\x99\x81 ok",
                                      ""}),
                               LogLanguage::German);
    ASSERT_EQ(e.size(), 1u);
    EXPECT_EQ(e[0].date, "15.01.2003");
    EXPECT_EQ(e[0].time, "14:30:45");
    EXPECT_EQ(e[0].state, "Recovered");
    EXPECT_EQ(e[0].source, "Router");
    EXPECT_EQ(e[0].category, "Configuration Error");
    EXPECT_EQ(e[0].message, "Gerät 0x3 wurde deaktiviert  |  Größe ÜÄÖü ok");
    EXPECT_EQ(e[0].eventIcon, 20);
}

TEST(LogsSysLogEntry, AnEntryRunningIntoTheEndOfTheFileEndsThere) {
    const auto e =
        readEnglish(lines({"1-15-2003  10:00:01 am:    X", kZeroCodes, "line one", "line two"}));
    ASSERT_EQ(e.size(), 1u);
    EXPECT_EQ(e[0].message, "line one  |  line two");
    // Only empty lines left at the end are no entry.
    EXPECT_TRUE(readEnglish(lines({"", ""})).empty());
    const auto headerOnly = readEnglish(lines({"1-15-2003  10:00:01 am:    X"}));
    ASSERT_EQ(headerOnly.size(), 1u);
    EXPECT_EQ(headerOnly[0].state, "???");
}

TEST(LogsSysLogFormat, FormatDatumOrdersYearMonthDay) {
    EXPECT_EQ(FormatDatum(" 15.01.2003 "), "2003.01.15");
    EXPECT_EQ(FormatDatum("1-15-2003"), "2003-15-01");
    EXPECT_EQ(FormatDatum("5.1.03"), "2003.1..05");
    EXPECT_EQ(FormatDatum("15.01.98"), "1998.01.15");
    EXPECT_EQ(FormatDatum("01/15/03"), "01/15/03"); // a slash alone stays as it was
    EXPECT_EQ(FormatDatum("20030115"), "20030115");
}

TEST(LogsSysLogFormat, FileSizeTextInKilobytesOrMegabytes) {
    EXPECT_EQ(FileSizeText(0), QStringLiteral("0.0 KB"));
    EXPECT_EQ(FileSizeText(1536), QStringLiteral("1.5 KB"));
    EXPECT_EQ(FileSizeText(1024 * 1023), QStringLiteral("1023.0 KB"));
    EXPECT_EQ(FileSizeText(1024 * 1024), QStringLiteral("1.0 MB"));
    EXPECT_EQ(FileSizeText(100 * 1000 * 1000), QStringLiteral("95.37 MB"));
    EXPECT_EQ(FileSizeText(1300), QStringLiteral("1.27 KB"));
}
