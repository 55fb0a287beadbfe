// Filter rules: the line reader, the three passes over a monitor row, and writing a
// rule back into twk.ini.

#include "monitor/FilterRules.h"
#include "MonitorFixture.h"
#include "logs/GridViews.h"
#include "monitor/FilterRuleFile.h"
#include "monitor/MonitorRows.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

using namespace twk;

namespace {

const char* kTail = ",0,0,-1,,0,0,-1,-1";

std::string rule(const std::string& head) {
    return head + kTail;
}

class Rules : public ::testing::Test {
protected:
    void SetUp() override {
        CreateNewTable(*f.engine, views::kRealtimeMonitor);
        f.engine->Grid1.setRows(1);
        WriteStateRow(*f.engine, 1, StateRow::Starting, QStringLiteral("FS1"));
    }
    // An event in row 1: status, source, category, event image, message.
    void event(const char* status, const char* source, const char* category, int image,
               const char* message) {
        Grid& g = f.engine->Grid1;
        g.setCellIcon(1, 1, led::kUnknown);
        g.setCellText(1, 4, status);
        g.setCellText(1, 5, source);
        g.setCellText(1, 6, category);
        g.setCellIcon(1, 7, image);
        g.setCellText(1, 9, message);
    }
    std::vector<int> firedRules() const {
        std::vector<int> rules;
        for (const auto& [number, row] : f.alerts.matches)
            rules.push_back(number);
        return rules;
    }
    void check(const std::vector<std::string>& rules) {
        f.writeRules(rules);
        ReadFilterRules(*f.engine);
        f.alerts.matches.clear();
        CheckRealtimeStatus(*f.engine, 1);
    }

    test::MonitorFixture f;
};

} // namespace

TEST(RuleLines, FieldsInTheirOrder) {
    const FilterRule r = ParseFilterRuleLine(QStringLiteral(
        "19,2,0,0,0,7,experienced a critical error,(none),1,0,1,134,/a.wav,1,1,5,99"));
    EXPECT_EQ(r.RuleNumber, 19);
    EXPECT_EQ(r.RealtimeStatus, 2);
    EXPECT_EQ(r.Category, 7);
    EXPECT_EQ(r.SearchString1, QStringLiteral("experienced a critical error"));
    EXPECT_EQ(r.SearchString2, QStringLiteral("(none)"));
    EXPECT_EQ(r.EMail, 1);
    EXPECT_EQ(r.SyslogPriority, 134);
    EXPECT_EQ(r.WaveFile, QStringLiteral("/a.wav"));
    EXPECT_EQ(r.NTEventLogCategory, 5);
    EXPECT_EQ(r.NTEventLogID, 99);
    EXPECT_EQ(FilterRuleLine(r),
              QStringLiteral(
                  "19,2,0,0,0,7,experienced a critical error,(none),1,0,1,134,/a.wav,1,1,5,99"));
    for (const QString& line : FilterRuleFile::defaultRuleLines())
        EXPECT_EQ(FilterRuleLine(ParseFilterRuleLine(line)), line);
}

TEST(RuleLines, ACommaShiftsTheLaterFields) {
    const FilterRule r = ParseFilterRuleLine(
        QStringLiteral("13,2,0,0,2,0,out of, memory,(none),1,0,0,-1,,0,0,-1,-1"));
    EXPECT_EQ(r.SearchString1, QStringLiteral("out of"));
    EXPECT_EQ(r.SearchString2, QStringLiteral(" memory"));
    EXPECT_EQ(r.LocalPopup, 0) << "\"(none)\" reads as 0";
    EXPECT_EQ(r.RemotePopup, 1);
    EXPECT_EQ(r.NTEventLogCategory, 0);
}

TEST(RuleLines, BadLinesAreRunTimeErrors) {
    for (const char* line : {"0,2,7,0,8,0,(none),(none),1,0,0,-1,,0,0,-1,-1",
                             "101,2,7,0,8,0,(none),(none),1,0,0,-1,,0,0,-1,-1",
                             "5,2,7,0,8,0,(none),(none),1,0,0,-1,,0,0,-1", "garbage",
                             "5,2,99999,0,8,0,(none),(none),1,0,0,-1,,0,0,-1,-1"})
        EXPECT_THROW(ParseFilterRuleLine(QLatin1String(line)), RunTimeError) << line;
}

TEST_F(Rules, ReadingPassesOverBadLinesAndLaterLinesWin) {
    f.writeRules({rule("5,2,7,0,8,0,(none),(none),1"), "", "   ", "bad line",
                  rule("5,1,7,0,8,0,(none),(none),1"), rule("7,0,0,0,0,0,(none),(none),0")});
    ReadFilterRules(*f.engine);
    const auto& rules = f.engine->monitor.FilterRules;
    EXPECT_EQ(rules[4].RuleNumber, 5);
    EXPECT_EQ(rules[4].RealtimeStatus, 1);
    EXPECT_EQ(rules[6].RuleNumber, 7);
    EXPECT_EQ(rules[0].RuleNumber, -1);
    EXPECT_EQ(f.engine->errors.count(), 1);
    EXPECT_TRUE(f.tree.read(QStringLiteral("app/error.txt")).contains("ReadFilterRules"));
}

TEST_F(Rules, PassesFireEveryMatchAndTheLastStateWins) {
    event("Fatal", "TTS", "System Failure", 21, "TTS shut down");
    check({rule("1,2,7,0,8,0,(none),(none),1"), rule("2,1,0,15,0,0,(none),(none),1"),
           rule("3,0,0,0,0,0,(none),(none),0"), rule("4,0,7,0,0,0,Out Of,(none),0")});
    EXPECT_EQ(firedRules(), (std::vector<int>{3, 2, 1})) << "ONLINE, WARNING, FAILURE passes";
    EXPECT_EQ(f.icon(1, 1), led::kFailure);
    EXPECT_EQ(f.engine->Grid1.CellForeColor(1, 2), rtmcolor::kRed);
    EXPECT_EQ(f.engine->Grid1.CellBackColor(1, 9), rtmcolor::kFailureBack);
    EXPECT_EQ(f.engine->Grid1.CellBackColor(1, 1), kDefaultBackColor)
        << "column 1 keeps its colour";
}

TEST_F(Rules, QuirksThatStay) {
    // Rule 32 (Informational) never matches an informational event.
    event("Informational", "Disk", "Class Unknown", 11, "Local database is open");
    std::vector<std::string> defaults;
    for (const QString& line : FilterRuleFile::defaultRuleLines())
        defaults.push_back(line.toStdString());
    check(defaults);
    EXPECT_EQ(firedRules(), std::vector<int>{35}) << "local database is open; not rule 32";
    EXPECT_EQ(f.icon(1, 1), led::kOnline);

    // An event of no known type counts as type 15.
    event("Warning", "Kernel", "Locked", 24, "anything");
    check({rule("9,1,0,15,0,0,(none),(none),1")});
    EXPECT_EQ(firedRules(), std::vector<int>{9});
    // The colours of a WARNING stay when a later event turns the LED green.
    event("Warning", "Kernel", "Locked", 11, "anything");
    check({rule("9,0,0,0,0,0,(none),(none),1")});
    EXPECT_EQ(f.icon(1, 1), led::kOnline);
    EXPECT_EQ(f.engine->Grid1.CellBackColor(1, 4), rtmcolor::kToolTipBack);
}

TEST_F(Rules, SearchStringsAreBlindToCaseAndMeanAnd) {
    event("Critical", "Memory", "Out Of Resources", 24, "Server is OUT OF cache MEMORY");
    check({rule("13,2,0,0,2,0,Out Of,memory,1"), rule("14,2,0,0,0,0,out of,disk,1"),
           rule("15,2,0,0,0,0,(none),(NONE),1")});
    EXPECT_EQ(firedRules(), (std::vector<int>{13, 15}));
    EXPECT_EQ(f.engine->monitor.FilterRules[12].SearchString1, QStringLiteral("out of"))
        << "lower-cased in the table";
    EXPECT_EQ(f.engine->monitor.FilterRules[14].SearchString2, QString()) << "(none) is none";
    // A state row has no message: only rules without search strings meet it.
    WriteStateRow(*f.engine, 1, StateRow::Offline);
    check({rule("13,2,0,0,0,0,out of,(none),1"), rule("20,1,0,0,0,0,(none),(none),1")});
    EXPECT_EQ(firedRules(), std::vector<int>{20});
}

TEST_F(Rules, SavingReplacesTheRuleAtTheTopOfTheSection) {
    const AppPaths& paths = f.tree.paths();
    EXPECT_TRUE(
        SaveFilterRule(paths, QString::fromStdString(rule("5,2,6,0,11,0,(none),(none),1"))));
    EXPECT_TRUE(SaveFilterRule(paths, QString::fromStdString(rule("7,0,0,0,0,0,(none),(none),0"))));
    EXPECT_TRUE(
        SaveFilterRule(paths, QString::fromStdString(rule("5,1,6,0,11,0,Out Of,(none),1"))));
    const QStringList lines = *IniFile::twkIni(paths).readLines();
    const qsizetype section = lines.indexOf(QStringLiteral("[RealtimeMonitor]"));
    ASSERT_GE(section, 0);
    EXPECT_EQ(lines[section + 1], QString::fromStdString(rule("5,1,6,0,11,0,Out Of,(none),1")));
    EXPECT_EQ(lines[section + 2], QString::fromStdString(rule("7,0,0,0,0,0,(none),(none),0")));
    EXPECT_EQ(lines.filter(QRegularExpression(QStringLiteral("^5,"))).size(), 1);
    EXPECT_EQ(lines.size() - section - 1, 2) << "a new file starts with an empty section";
    EXPECT_TRUE(RemoveFilterRule(paths, 5));
    EXPECT_TRUE(IniFile::twkIni(paths)
                    .readLines()
                    ->filter(QRegularExpression(QStringLiteral("^5,")))
                    .isEmpty());
    EXPECT_FALSE(QFileInfo::exists(paths.inApp(QStringLiteral("twk.tmp"))));
}

TEST_F(Rules, NextRuleNumber) {
    MonitorState& m = f.engine->monitor;
    for (FilterRule& r : m.FilterRules)
        r.RuleNumber = -1;
    EXPECT_EQ(NextRuleNumber(m), 1);
    for (int i = 0; i < kFilterRuleCapacity; ++i)
        m.FilterRules[static_cast<std::size_t>(i)].RuleNumber = static_cast<std::int16_t>(i + 1);
    EXPECT_EQ(NextRuleNumber(m), 0);
    m.FilterRules[41].RuleNumber = -1;
    EXPECT_EQ(NextRuleNumber(m), 42);
}
