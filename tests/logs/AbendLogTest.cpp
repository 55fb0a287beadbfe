#include "logs/AbendLog.h"

#include "LogFixture.h"
#include "core/Mainfrm.h"
#include "logs/MarkColors.h"

#include <utility>

using namespace twk;
using twk::test::abendReport;
using twk::test::lines;

namespace {

class AbendLogLoad : public test::LogFixture {
protected:
    bool loadAbends(const QByteArray& bytes) { return load(views::kAbendLog, bytes); }
    bool loadTwoReports() {
        return loadAbends(abendReport("FS1", "Wednesday, January 15, 2003   2:30:45.123 pm", 1) +
                          abendReport("FS1", "Thursday, June 5, 2003   9:01:02.000 am", 2));
    }
};

} // namespace

TEST_F(AbendLogLoad, LinesStandAsTheyAreInColumnTwoAndSectionsAreMarked) {
    ASSERT_TRUE(loadTwoReports());
    ASSERT_EQ(engine.Grid1.Rows(), 28);
    EXPECT_EQ(cell(2, 2), "Server FS1 halted Wednesday, January 15, 2003   2:30:45.123 pm");
    EXPECT_EQ(cell(6, 2), "   CS = 0008 DS = 0010 ES = 0010 FS = 0010 GS = 0010 SS = 0010");
    EXPECT_EQ(cell(2, 1), "");
    // halted, Abend 1 on P00 ... Error code, Registers, Running process, Additional
    // Information, .NLM in the text, Loaded Modules
    for (const auto& [row, colour] : {std::pair{2, kMarkRed},
                                      {3, kMarkRed},
                                      {5, kMarkBlue},
                                      {7, kMarkGreen},
                                      {9, kMarkGreen},
                                      {10, kMarkBlack},
                                      {11, kMarkBlue}}) {
        EXPECT_EQ(this->colour(row, 2), colour) << row;
        EXPECT_TRUE(bold(row, 2)) << row;
    }
    EXPECT_TRUE(bold(13, 2)); // .CDM
    EXPECT_FALSE(bold(1, 2)); // the line of stars
    EXPECT_FALSE(bold(6, 2));
}

TEST_F(AbendLogLoad, AbendListPanesSelectionAndTheAbendOfARow) {
    ASSERT_TRUE(loadTwoReports());
    const MainView& v = engine.view;
    EXPECT_EQ(v.CurrentView, views::kAbendLog);
    EXPECT_EQ(v.cbAbendLog.items, (QStringList{QStringLiteral("Jan. 15, 2003   2:30:45.123 pm"),
                                               QStringLiteral("June 5, 2003   9:01:02.000 am")}));
    EXPECT_EQ(v.cbAbendLog.ListIndex, 1);
    EXPECT_TRUE(v.cbAbendLog.visible);
    EXPECT_EQ(engine.analysis.abendTitles[1],
              QStringLiteral(" January 15, 2003   2:30:45.123 pm "));
    EXPECT_EQ(engine.analysis.abendRows[1], 2);
    EXPECT_EQ(engine.analysis.abendRows[2], 16);
    EXPECT_EQ(panes({1, 2, 3, 5}),
              (QStringList{"2/2", "Jan. 15, 2003", "Jun. 5, 2003", "2 ABEND's found!"}));
    // The report of the last abend: its first lines selected, its own line on top.
    const GridFocus& focus = engine.analysis.gridFocus;
    EXPECT_EQ(focus.firstRow, 17);
    EXPECT_EQ(focus.lastRow, 20);
    EXPECT_EQ(focus.topRow, 16);
    EXPECT_EQ(engine.Grid1.SelectedRow(), 17);
    // Rows before the first report belong to the first abend.
    for (const auto& [row, abend] : {std::pair{1, 1}, {2, 1}, {15, 1}, {16, 2}, {28, 2}})
        EXPECT_EQ(AbendOfRow(engine, row), abend) << row;
}

TEST_F(AbendLogLoad, MenusAndListsWhileAnAbendLogIsShown) {
    ASSERT_TRUE(loadTwoReports());
    for (const char* name : {"mnuFilter", "mnuGoto", "mnuViewAll"})
        EXPECT_FALSE(menuEnabled(name)) << name;
    for (const char* name : {"mnuFind", "mnuSave", "mnuReload", "mnuCloseFile"})
        EXPECT_TRUE(menuEnabled(name)) << name;
    EXPECT_FALSE(menuVisible("mnuStatusIcons"));
    EXPECT_FALSE(menuVisible("mnuAnalyzer"));
    MainView& v = engine.view;
    EXPECT_FALSE(v.cbTree.enabled || v.cbServer.enabled || v.cbVolume.enabled);
    // Another log frees them again.
    ASSERT_TRUE(load(views::kCronlog, lines({"Cron service started."})));
    EXPECT_TRUE(v.cbTree.enabled && v.cbServer.enabled && v.cbVolume.enabled);
}

TEST_F(AbendLogLoad, ClosingGivesTheListsBackAsTheyWere) {
    engine.view.cbTree.enabled = false; // a single start context keeps the tree fixed
    ASSERT_TRUE(loadTwoReports());
    EXPECT_FALSE(engine.view.cbServer.enabled);
    CloseFile(engine);
    EXPECT_FALSE(engine.view.cbTree.enabled);
    EXPECT_TRUE(engine.view.cbServer.enabled);
    EXPECT_TRUE(engine.view.cbVolume.enabled);
}

TEST_F(AbendLogLoad, ChoosingAnAbendJumpsToItsReport) {
    ASSERT_TRUE(loadTwoReports());
    const unsigned serial = engine.analysis.gridFocus.serial;
    cbAbendLog_Click(engine, 0);
    EXPECT_EQ(engine.view.cbAbendLog.ListIndex, 0);
    EXPECT_EQ(engine.analysis.gridFocus.firstRow, 3);
    EXPECT_EQ(engine.analysis.gridFocus.lastRow, 6);
    EXPECT_EQ(engine.analysis.gridFocus.topRow, 2);
    EXPECT_GT(engine.analysis.gridFocus.serial, serial);
    EXPECT_EQ(pane(1), QStringLiteral("1/2"));

    cbAbendLog_Click(engine, 5); // no such entry
    EXPECT_EQ(pane(1), QStringLiteral("1/2"));
    engine.view.CurrentView = views::kCronlog;
    cbAbendLog_Click(engine, 1); // only in the ABEND.LOG view
    EXPECT_EQ(pane(1), QStringLiteral("1/2"));
}

TEST_F(AbendLogLoad, AReportAtTheEndKeepsTheSelectionInsideTheGrid) {
    ASSERT_TRUE(
        loadAbends(lines({"first line", "Server FS2 halted Friday, May 2, 2003   1:00:00.000 am",
                          "Abend 1 on P00"})));
    EXPECT_EQ(engine.analysis.gridFocus.firstRow, 3);
    EXPECT_EQ(engine.analysis.gridFocus.lastRow, 3);
    EXPECT_EQ(engine.analysis.gridFocus.topRow, 2);
    EXPECT_EQ(pane(2), QStringLiteral("May 2, 2003"));
}

TEST_F(AbendLogLoad, LogsWithoutAbendsEmptyFilesAndJunk) {
    ASSERT_TRUE(loadAbends(lines({"nothing happened", "   abend of nothing"})));
    EXPECT_TRUE(engine.view.cbAbendLog.items.isEmpty());
    EXPECT_EQ(panes({1, 2, 3, 5}), (QStringList{"0/0", "", "", "0 ABEND's found!"}));
    EXPECT_EQ(engine.Grid1.SelectedRow(), 2);
    EXPECT_FALSE(bold(2, 2)); // "abend" behind blanks is not the start of the line

    ASSERT_TRUE(loadAbends(QByteArray()));
    EXPECT_EQ(engine.Grid1.Rows(), 1);
    EXPECT_EQ(pane(1), QStringLiteral("0/0"));
    ASSERT_TRUE(loadAbends(QByteArray("\xff\x00halted,\x01\x02,12\r\n\r", 17)));
    EXPECT_EQ(engine.view.cbAbendLog.items.size(), 1);
}

TEST_F(AbendLogLoad, MoreThanTenThousandAbendsAreReportedOnce) {
    QByteArray many;
    for (int i = 0; i < kMaxAbends + 2; ++i)
        many += "Server halted, day\r\n";
    ASSERT_TRUE(loadAbends(many + "last line\r\n"));
    EXPECT_EQ(engine.analysis.abendCount, kMaxAbends);
    EXPECT_EQ(engine.errors.count(), 1);
    EXPECT_EQ(cell(kMaxAbends + 3, 2), "last line"); // the rest of the log is still shown
    EXPECT_EQ(pane(5), QStringLiteral("10000 ABEND's found!"));
}

TEST(AbendLine, TitleIsTheTextBehindTheFirstComma) {
    EXPECT_EQ(ScanAbendLine("Server FS1 halted Tuesday, March 4, 2003   11:02:03.001 am").title,
              QStringLiteral(" March 4, 2003   11:02:03.001 am "));
    EXPECT_EQ(ScanAbendLine("Server FS1 Halted").title, QStringLiteral("Server FS1 Halted"));
    EXPECT_FALSE(ScanAbendLine("Server FS1 HALTED, x").halted);
    // A short numeric ending behind the title's comma goes; a blank is not numeric.
    EXPECT_EQ(ScanAbendLine("Server halted Tuesday, Jan 7,03").title, QStringLiteral(" Jan 7 "));
    EXPECT_EQ(ScanAbendLine("Server halted Tuesday, Jan 7, 03").title,
              QStringLiteral(" Jan 7, 03 "));
    for (const auto& [title, cleaned] : {std::pair{"abc,12", "abc "},
                                         {"abc,1234", "abc "},
                                         {"abc,12345", "abc,12345"},
                                         {"abc,1x", "abc,1x"},
                                         {"abc,1", "abc,1"},
                                         {"abc", "abc"}})
        EXPECT_EQ(CleanAbendTitle(QString::fromLatin1(title)), QString::fromLatin1(cleaned))
            << title;
}

TEST(AbendLine, LastFittingMarkerGivesTheColour) {
    const AbendLineScan nlmError = ScanAbendLine("Error in CLIB.NLM");
    EXPECT_TRUE(nlmError.marked);
    EXPECT_EQ(nlmError.colour, kMarkRed);
    EXPECT_EQ(ScanAbendLine("Registers and instruction").colour, kMarkGreen);
    EXPECT_EQ(ScanAbendLine("ABEND: Page fault").colour, kMarkRed);
    EXPECT_EQ(ScanAbendLine("  NSS.NSS loaded").colour, kMarkBlack);
    EXPECT_TRUE(ScanAbendLine("  e1000.lan").marked);
    EXPECT_FALSE(ScanAbendLine("  abend").marked);
    EXPECT_FALSE(ScanAbendLine("plain text").marked);
}

TEST(AbendMonths, ListAndDateTablesDiffer) {
    // Exact in case; every occurrence; June and July only shortened for dates.
    for (const auto& [text, shortened] :
         {std::pair{" January 5, 2003 ", "Jan. 5, 2003"},
          {"5. Januar 2003", "5. Jan. 2003"},
          {"June July Juni Juli Mai May", "June July Juni Juli Mai May"},
          {"März March Oktober October Dezember December", "März Mar. Okt. Oct. Dez. Dec."},
          {"February Februar April August September November", "Feb. Feb. Apr. Aug. Sep. Nov."},
          {"january April April", "january Apr. Apr."}})
        EXPECT_EQ(ShortMonthsForList(QString::fromUtf8(text)), QString::fromUtf8(shortened))
            << text;
    EXPECT_EQ(ShortMonthsForDate(QStringLiteral("June July Juni Juli")),
              QStringLiteral("Jun. Jul. Jun. Jul."));
}

TEST_F(AbendLogLoad, ExtractShortDateCutsTheTime) {
    MainView& v = engine.view;
    v.cbAbendLog.items = {QStringLiteral("15. Juni 2003 14:30:45"),
                          QStringLiteral(" July 4, 2003   1:02:03 PM "), QStringLiteral("nodate")};
    v.cbAbendLog.visible = true;
    EXPECT_EQ(ExtractShortDate(engine, 0), QStringLiteral("15. Jun. 2003"));
    EXPECT_EQ(ExtractShortDate(engine, 1), QStringLiteral("Jul. 4, 2003"));
    EXPECT_EQ(ExtractShortDate(engine, 2), QStringLiteral("nodate"));
    EXPECT_EQ(ExtractShortDate(engine, 3), QString());
    EXPECT_EQ(ExtractShortDate(engine, -1), QString());
    // A hidden list keeps its month names.
    v.cbAbendLog.visible = false;
    EXPECT_EQ(ExtractShortDate(engine, 0), QStringLiteral("15. Juni 2003"));
}
