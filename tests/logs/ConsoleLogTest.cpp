#include "logs/ConsoleLog.h"

#include "LogFixture.h"
#include "logs/MarkColors.h"

using namespace twk;
using twk::test::consoleSession;
using twk::test::lines;

namespace {

class ConsoleLogLoad : public test::LogFixture {
protected:
    bool loadConsole(const QByteArray& bytes) { return load(views::kConsoleLog, bytes); }
};

} // namespace

TEST_F(ConsoleLogLoad, EveryLineIsARowWithItsNumberAndWordTestsMarkColumnTwo) {
    ASSERT_TRUE(loadConsole(consoleSession("FS1", "11-15-2005")));
    const Grid& g = engine.Grid1;
    ASSERT_EQ(g.Rows(), 10);
    EXPECT_EQ(cell(1, 1), "1");
    EXPECT_EQ(cell(10, 1), "10");
    EXPECT_EQ(cell(4, 2), "Loading module MONITOR.NLM");
    // A leading blank gets three more.
    EXPECT_EQ(cell(2, 2), "        Volume SYS mounted.");
    EXPECT_EQ(cell(5, 2), "     NetWare Console Monitor");
    EXPECT_EQ(g.SelectedRow(), 10);
    EXPECT_TRUE(g.Redraw());

    EXPECT_EQ(colour(1, 2), kMarkBlack); // the date line
    EXPECT_TRUE(bold(1, 2));
    EXPECT_EQ(colour(4, 2), kMarkBlue);
    EXPECT_TRUE(bold(4, 2));
    EXPECT_EQ(colour(8, 2), kMarkGreen); // "unloaded" holds no "loading"
    EXPECT_EQ(colour(9, 2), kMarkRed);   // WARNING
    EXPECT_EQ(colour(10, 2), kMarkRed);  // Error loading: the last colour stays
    EXPECT_TRUE(bold(10, 2));
    // Plain lines and the number column keep the normal font.
    EXPECT_FALSE(bold(2, 2) || bold(3, 2) || bold(4, 1));
}

TEST_F(ConsoleLogLoad, FourListsKeepTheRowsOfTheirEvents) {
    ASSERT_TRUE(
        loadConsole(consoleSession("FS1", "11-15-2005") + consoleSession("FS1", "11-16-2005")));
    EXPECT_EQ(listRows(kNlmLoads), (std::vector<int>{4, 10, 14, 20}));
    EXPECT_EQ(listRows(kNlmUnloads), (std::vector<int>{8, 18}));
    EXPECT_EQ(listRows(kErrorMessages), (std::vector<int>{9, 10, 19, 20}));
    EXPECT_EQ(listRows(kDateEntries), (std::vector<int>{1, 11}));
    // A record's index is its place in its list.
    EXPECT_EQ(engine.analysis.consoleEvents[kNlmLoads][3].index, 3);
    EXPECT_EQ(engine.analysis.consoleCount(kNlmLoads), 4);
}

TEST_F(ConsoleLogLoad, PanesAndMenusOfAConsoleLog) {
    ASSERT_TRUE(loadConsole(consoleSession("FS1", "11-15-2005")));
    MainView& v = engine.view;
    EXPECT_EQ(v.CurrentView, views::kConsoleLog);
    EXPECT_EQ(pane(1), QStringLiteral("10/10"));
    EXPECT_EQ(pane(4), QStringLiteral("0.3 KB"));
    for (const char* name : {"mnuFind", "mnuGoto", "mnuSave", "mnuReload", "mnuCloseFile"})
        EXPECT_TRUE(menuEnabled(name)) << name;
    for (const char* name : {"mnuFilter", "mnuViewAll", "mnuViewFilter"})
        EXPECT_FALSE(menuEnabled(name)) << name;
    for (const char* name : {"mnuGoto", "mnuStatusIcons", "mnuEventIcons", "mnuTrennlinie6"})
        EXPECT_FALSE(menuVisible(name)) << name;
    EXPECT_TRUE(menuVisible("mnuAnalyzer"));
    EXPECT_EQ(v.menu(QStringLiteral("mnuViewAll")).icon, QStringLiteral("POINT"));
    EXPECT_EQ(v.menu(QStringLiteral("mnuViewFilter")).icon, QStringLiteral("NOPOINT"));
    EXPECT_TRUE(v.closeEnabled);
}

TEST_F(ConsoleLogLoad, OddLinesLineFeedsAndLastLinesWithoutLineEnd) {
    // The date test drops the line feed before the error test looks at the line.
    ASSERT_TRUE(loadConsole(lines({"disk err\nor on volume VOL1"})));
    EXPECT_EQ(cell(1, 2), "disk err\nor on volume VOL1");
    EXPECT_EQ(colour(1, 2), kMarkRed);

    ASSERT_TRUE(loadConsole("Loading module CLIB.NLM\r\nModule CLIB.NLM unloaded."));
    ASSERT_EQ(engine.Grid1.Rows(), 2);
    EXPECT_EQ(cell(2, 2), "Module CLIB.NLM unloaded.");
    EXPECT_EQ(colour(2, 2), kMarkGreen);
}

TEST_F(ConsoleLogLoad, EmptyAndTinyFilesGiveOneRow) {
    ASSERT_TRUE(loadConsole(QByteArray()));
    EXPECT_EQ(engine.Grid1.Rows(), 1);
    EXPECT_EQ(cell(1, 2), "");
    EXPECT_EQ(pane(1), QStringLiteral("1/1"));
    EXPECT_EQ(engine.view.CurrentView, views::kConsoleLog);

    // Files of 10 bytes or less are not counted: only the first line is shown.
    ASSERT_TRUE(loadConsole("ab\r\ncd\r\n"));
    EXPECT_EQ(engine.Grid1.Rows(), 1);
    EXPECT_EQ(cell(1, 2), "ab");
}

TEST_F(ConsoleLogLoad, BinaryJunkServerCodePageAndHugeLinesAreReadSafely) {
    QByteArray junk("\x00\x01\xff\x81 error\r\n\x84\x94\x81\xe1 loading\r\n", 26);
    ASSERT_TRUE(loadConsole(junk + QByteArray(300, '\0')));
    ASSERT_EQ(engine.Grid1.Rows(), 3);
    EXPECT_EQ(cell(2, 2), "äöüß loading");
    EXPECT_EQ(colour(2, 2), kMarkBlue);
    EXPECT_EQ(colour(1, 2), kMarkRed);
    EXPECT_EQ(cell(3, 2).size(), 300u);

    ASSERT_TRUE(loadConsole(QByteArray(3 * 1024 * 1024, 'x') + " error\r\nnext\r\n"));
    ASSERT_EQ(engine.Grid1.Rows(), 2);
    EXPECT_EQ(cell(1, 2).size(), 3u * 1024 * 1024 + 6);
    EXPECT_EQ(colour(1, 2), kMarkRed);
    EXPECT_EQ(cell(2, 2), "next");
}

TEST_F(ConsoleLogLoad, LongLogsShowRunningProgressShortOnesFlash) {
    QByteArray many;
    for (int i = 0; i < 601; ++i)
        many += "Loading module X.NLM\r\n";
    ASSERT_TRUE(loadConsole(many));
    EXPECT_EQ(listRows(kNlmLoads).size(), 601u);
    EXPECT_EQ(progress.captions.back(), QStringLiteral("   Pass 2/2"));
    EXPECT_TRUE(progress.flashes.empty());
    EXPECT_EQ(progress.hidden, 1);

    ASSERT_TRUE(loadConsole(lines({"one line only"})));
    EXPECT_EQ(progress.flashes, std::vector<int>{1024});
}

TEST_F(ConsoleLogLoad, AMissingFileGivesTheAccessBox) {
    EXPECT_FALSE(LoadLogFile(engine, views::kConsoleLog, tree.path("nowhere/CONSOLE.LOG")));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_TRUE(ui.messages[0].text.startsWith(QStringLiteral("Access to logfile...\r")));
    EXPECT_EQ(ui.messages[0].title, QStringLiteral(" Tarnwick"));
}

TEST(ConsoleRowIcon, TestsRunInOrderAndTheLastColourWins) {
    const ConsoleLineMarks both = ConsoleRowIcon("Error loading module X.NLM");
    EXPECT_TRUE(both.kinds[kNlmLoads]);
    EXPECT_TRUE(both.kinds[kErrorMessages]);
    EXPECT_EQ(both.colourKind, kErrorMessages);

    const ConsoleLineMarks dateAndLoad = ConsoleRowIcon("12-05-2003 LOADING x");
    EXPECT_TRUE(dateAndLoad.kinds[kNlmLoads]);
    EXPECT_TRUE(dateAndLoad.kinds[kDateEntries]);
    EXPECT_EQ(dateAndLoad.colourKind, kDateEntries);

    EXPECT_FALSE(ConsoleRowIcon("FS1:load monitor").any());
    EXPECT_EQ(ConsoleRowIcon("Module unloaded").colourKind, kNlmUnloads);
}
