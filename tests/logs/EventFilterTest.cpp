#include "logs/EventFilterForm.h"

#include "LogText.h"
#include "SysLogGrid.h"
#include "TestSupport.h"
#include "core/Engine.h"
#include "logs/LogPipeline.h"
#include "logs/ViewFilter.h"

#include <gtest/gtest.h>

using namespace twk;
using test::SysRow;
using test::visibleEvents;

namespace {

class EventFilter : public ::testing::Test {
protected:
    test::TempTree tree;
    test::FakeUi ui;
    NoProgress progress;
    Engine engine{tree.paths(), ui, progress};

    // Events 1..6 in file order: severities, sources and dates differ.
    void fillSample() {
        test::fillSysLog(engine, {
                                     {"1-14-2003", "Informational", "Disk", "General Information",
                                      11, " DS-1", "Local database is open"},
                                     {"1-14-2003", "Warning", "Disk", "Hardware Failure", 24,
                                      " DS-2", "Disk error #-601 seen"},
                                     {"1-15-2003", "Critical", "File System", "General Information",
                                      13, " NCP-3", "registered as an NCP"},
                                     {"1-15-2003", "???", "???", "???", 24, "", ""},
                                     {"1-16-2003", "Fatal", "disk", "Media Failure", 20, " X-5",
                                      "Device deactivated"},
                                     {"1-17-2003", "Warning", "Domain", "General Information", 24,
                                      " X-6", "VOLUME SYS almost full"},
                                 });
    }

    FrmFilterSYSLOG openForm() {
        FrmFilterSYSLOG form(engine);
        form.Form_Load();
        form.Form_Activate();
        return form;
    }

    // Panes, menus and rows as they stood: a refused filter must leave them so.
    struct Snapshot {
        QString pane1, pane1Icon, pane1Tip;
        bool viewAll, viewFilter;
        std::vector<int> visible;
        int selected;
        bool operator==(const Snapshot&) const = default;
    };
    Snapshot snapshot() const {
        const MainView& v = engine.view;
        return {v.pane(EntryPos).text,          v.pane(EntryPos).icon,
                v.pane(EntryPos).toolTip,       v.menuEnabled("mnuViewAll"),
                v.menuEnabled("mnuViewFilter"), visibleEvents(engine),
                engine.Grid1.SelectedRow()};
    }
};

TEST_F(EventFilter, FormLoadFillsListsAndCalendarsFromThePanes) {
    fillSample();
    FrmFilterSYSLOG form = openForm();
    ASSERT_EQ(form.cbEventType.items.size(), 25); // "(all)", 18 names, 6 names after the gap
    EXPECT_EQ(form.cbEventType.items[0], "(all)");
    EXPECT_EQ(form.cbEventType.items[1], "established communication with server...");
    EXPECT_EQ(form.cbEventType.items[18], "icon not available");
    EXPECT_EQ(form.cbEventType.items[19], "Bindery open request");
    EXPECT_EQ(form.cbEventType.items[24], "router configuration error");
    EXPECT_EQ(form.cbSource.items.size(), 21);
    EXPECT_EQ(form.cbSource.items[20], "Domain");
    EXPECT_EQ(form.cbCategory.items.size(), 23);
    EXPECT_EQ(form.cbCategory.items[22], "Protect Violation");
    EXPECT_EQ(form.cbStartDate.items, QStringList({"first entry", "selected date..."}));
    EXPECT_EQ(form.cbEndDate.items, QStringList({"last entry", "selected date..."}));
    EXPECT_FALSE(form.calStartDate.visible);
    EXPECT_FALSE(form.calEndDate.visible);
    EXPECT_EQ(form.calStartDate.Value, QDate(2003, 1, 14));
    EXPECT_EQ(form.calEndDate.Value, QDate(2003, 1, 17));
    EXPECT_EQ(form.calStartDate.Text(), "14 Jan 2003");
    EXPECT_EQ(form.txbErrorNr.text, "enter search string...");
    EXPECT_EQ(form.chkUnkown.caption, "unkown");
    EXPECT_EQ(form.chkAborted1.caption, "Aborted (NOS not affected)");
    EXPECT_EQ(form.picEvent, "ALL");
}

TEST_F(EventFilter, PlaceholderPanesLeaveTheCalendarsUnset) {
    fillSample();
    engine.view.pane(FirstEntry).text = "first entry";
    engine.view.pane(LastEntry).text = "";
    FrmFilterSYSLOG form = openForm();
    EXPECT_FALSE(form.calStartDate.Value.isValid());
    EXPECT_FALSE(form.calEndDate.Value.isValid());
}

TEST_F(EventFilter, SmallReactionsOfTheControls) {
    fillSample();
    FrmFilterSYSLOG form = openForm();
    form.cbEventType.ListIndex = 7; // "new NCP Service Address registered"
    form.cbEventType_Click();
    EXPECT_EQ(form.picEvent, "NCP-NEW");
    form.cbEventType.ListIndex = 18;
    form.cbEventType_Click();
    EXPECT_EQ(form.picEvent, "QUESTION");
    form.Form_Activate(); // coming to the front draws the "all" icon again
    EXPECT_EQ(form.picEvent, "ALL");

    form.cbSource.ListIndex = 0;
    form.cbSource_Click();
    EXPECT_NE(form.focus, "cmdFilter");
    form.cbCategory.ListIndex = 3;
    form.cbCategory_Click();
    EXPECT_EQ(form.focus, "cmdFilter");

    form.txbErrMsg_GotFocus();
    EXPECT_EQ(form.txbErrMsg.text, "");
    form.txbErrMsg.text = "abc";
    form.txbErrMsg_GotFocus();
    EXPECT_EQ(form.txbErrMsg.text, "abc");

    form.cmdDeselectAll_Click();
    for (int i = 0; i < 8; ++i)
        EXPECT_FALSE(form.severityBox(i)->checked);
    form.cmdSelectAll_Click();
    for (int i = 0; i < 8; ++i)
        EXPECT_TRUE(form.severityBox(i)->checked);
}

TEST_F(EventFilter, TheDateListsShowAndHideTheCalendars) {
    fillSample();
    FrmFilterSYSLOG form(engine);
    form.Form_Load();
    form.cbStartDate.ListIndex = 1;
    form.cbStartDate_Click(); // not yet visible: the list's click does nothing
    EXPECT_FALSE(form.calStartDate.visible);
    form.Form_Activate();
    form.cbStartDate_Click();
    EXPECT_TRUE(form.calStartDate.visible);
    EXPECT_EQ(form.focus, "cmdFilter");
    form.calStartDate.Value = QDate(2003, 1, 16);
    form.cbStartDate.ListIndex = 0;
    form.cbStartDate_Click();
    EXPECT_FALSE(form.calStartDate.visible);
    EXPECT_EQ(form.calStartDate.Value, QDate(2003, 1, 14));
    form.cbEndDate.ListIndex = 1;
    form.cbEndDate_Click();
    EXPECT_TRUE(form.calEndDate.visible);
    EXPECT_EQ(form.activeCriteriaCount(), 1);
}

TEST_F(EventFilter, WithoutCriteriaItAsksForOneAndChangesNothing) {
    fillSample();
    const Snapshot before = snapshot();
    FrmFilterSYSLOG form = openForm();
    EXPECT_FALSE(form.cmdFilter_Click());
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "Please set a filter option     \r\nto continue.");
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Information);
    EXPECT_EQ(ui.messages[0].title, " Tarnwick");
    EXPECT_FALSE(form.closed);
    EXPECT_EQ(snapshot(), before);
}

TEST_F(EventFilter, AnUncheckedSeverityHidesItsRowsAndEntersTheFilteredState) {
    fillSample();
    FrmFilterSYSLOG form = openForm();
    form.chkWarning.checked = false;
    EXPECT_TRUE(form.cmdFilter_Click());
    EXPECT_TRUE(form.closed);
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(visibleEvents(engine), (std::vector<int>{5, 4, 3, 1}));
    const MainView& v = engine.view;
    EXPECT_EQ(v.pane(EntryPos).text, "4/6");
    EXPECT_EQ(v.pane(EntryPos).icon, "imgFilter");
    EXPECT_EQ(v.pane(EntryPos).toolTip, " visible rows / total rows ");
    EXPECT_TRUE(v.menuEnabled("mnuViewAll"));
    EXPECT_TRUE(v.menuEnabled("mnuViewFilter"));
    EXPECT_EQ(v.menus().at("mnuViewAll").icon, "NOPOINT");
    EXPECT_EQ(v.menus().at("mnuViewFilter").icon, "POINT");
    EXPECT_EQ(engine.Grid1.SelectedRow(), 2); // row 1 (event 6) is hidden
    EXPECT_TRUE(engine.Grid1.Redraw());
    EXPECT_FALSE(v.busyPointer);
    EXPECT_FALSE(v.ProgressBar1.visible);
    EXPECT_EQ(v.ProgressBar1.Value, 0);
}

TEST_F(EventFilter, DeselectAllHidesEveryRowAndSelectsNone) {
    fillSample();
    FrmFilterSYSLOG form = openForm();
    form.cmdDeselectAll_Click();
    EXPECT_TRUE(form.cmdFilter_Click());
    EXPECT_TRUE(visibleEvents(engine).empty());
    EXPECT_EQ(engine.view.pane(EntryPos).text, "0/6");
    EXPECT_EQ(engine.Grid1.SelectedRow(), 0);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(EventFilter, UnknownStatusHasItsOwnBox) {
    fillSample();
    FrmFilterSYSLOG form = openForm();
    form.chkUnkown.checked = false;
    form.chkAborted1.checked = false; // no such rows: hides nothing
    EXPECT_TRUE(form.cmdFilter_Click());
    EXPECT_EQ(visibleEvents(engine), (std::vector<int>{6, 5, 3, 2, 1}));
}

TEST_F(EventFilter, ASecondFilterNarrowsTheFirst) {
    fillSample();
    {
        FrmFilterSYSLOG form = openForm();
        form.chkWarning.checked = false;
        ASSERT_TRUE(form.cmdFilter_Click());
    }
    FrmFilterSYSLOG second = openForm(); // a fresh dialog: every box checked again
    second.chkCritical.checked = false;
    ASSERT_TRUE(second.cmdFilter_Click());
    EXPECT_EQ(visibleEvents(engine), (std::vector<int>{5, 4, 1}));
    EXPECT_EQ(engine.view.pane(EntryPos).text, "3/6");
    EXPECT_EQ(engine.view.pane(EntryPos).icon, "imgFilter");
}

TEST_F(EventFilter, SourceAndCategoryCompareExactly) {
    fillSample();
    FrmFilterSYSLOG form = openForm();
    form.cbSource.ListIndex = form.cbSource.items.indexOf("Disk");
    ASSERT_TRUE(form.cmdFilter_Click());
    // Event 5's source is "disk" in small letters: not the selected text.
    EXPECT_EQ(visibleEvents(engine), (std::vector<int>{2, 1}));

    FrmFilterSYSLOG again = openForm();
    again.cbCategory.ListIndex = again.cbCategory.items.indexOf("General Information");
    ASSERT_TRUE(again.cmdFilter_Click());
    EXPECT_EQ(visibleEvents(engine), (std::vector<int>{1}));
}

TEST_F(EventFilter, EventTypeComparesTheIconNotTheText) {
    fillSample();
    engine.Grid1.setCellText(4, 10, "registered as an NCP"); // event 3's text on event 3 only
    FrmFilterSYSLOG form = openForm();
    form.cbEventType.ListIndex = form.cbEventType.items.indexOf("icon not available");
    ASSERT_TRUE(form.cmdFilter_Click());
    EXPECT_EQ(visibleEvents(engine), (std::vector<int>{6, 4, 2}));
}

TEST_F(EventFilter, TextSearchesAreCaseBlindAndAnEmptiedFieldCounts) {
    fillSample();
    FrmFilterSYSLOG form = openForm();
    form.txbErrMsg.text = "volume sys";
    ASSERT_TRUE(form.cmdFilter_Click());
    EXPECT_EQ(visibleEvents(engine), (std::vector<int>{6}));

    fillSample();
    FrmFilterSYSLOG emptied = openForm();
    emptied.txbErrorNr_GotFocus(); // the prompt goes, nothing is typed
    EXPECT_EQ(emptied.activeCriteriaCount(), 1);
    ASSERT_TRUE(emptied.cmdFilter_Click());
    // Only the row whose error number cell is empty goes.
    EXPECT_EQ(visibleEvents(engine), (std::vector<int>{6, 5, 3, 2, 1}));
}

TEST_F(EventFilter, ErrorNumberSearch) {
    fillSample();
    FrmFilterSYSLOG form = openForm();
    form.txbErrorNr.text = "x-";
    ASSERT_TRUE(form.cmdFilter_Click());
    EXPECT_EQ(visibleEvents(engine), (std::vector<int>{6, 5}));
}

TEST_F(EventFilter, DateRangeIncludesBothEnds) {
    fillSample();
    FrmFilterSYSLOG form = openForm();
    form.cbStartDate.ListIndex = 1;
    form.cbStartDate_Click();
    form.calStartDate.Value = QDate(2003, 1, 15);
    form.cbEndDate.ListIndex = 1;
    form.cbEndDate_Click();
    form.calEndDate.Value = QDate(2003, 1, 16);
    ASSERT_TRUE(form.cmdFilter_Click());
    EXPECT_EQ(visibleEvents(engine), (std::vector<int>{5, 4, 3}));
}

TEST_F(EventFilter, OneCalendarTakesTheLogsOtherEnd) {
    fillSample();
    FrmFilterSYSLOG form = openForm();
    form.cbEndDate.ListIndex = 1;
    form.cbEndDate_Click();
    form.calEndDate.Value = QDate(2003, 1, 14);
    ASSERT_TRUE(form.cmdFilter_Click());
    EXPECT_EQ(visibleEvents(engine), (std::vector<int>{2, 1}));
}

TEST_F(EventFilter, TheLogsOwnEndsPassTheRangeChecksAndOneDayOutsideFails) {
    fillSample();
    {
        FrmFilterSYSLOG form = openForm();
        form.cbStartDate.ListIndex = 1;
        form.cbStartDate_Click();
        form.cbEndDate.ListIndex = 1;
        form.cbEndDate_Click(); // the calendars hold the first and the last date
        EXPECT_TRUE(form.cmdFilter_Click());
        EXPECT_EQ(visibleEvents(engine).size(), 6u);
        EXPECT_TRUE(ui.messages.empty());
    }
    ShowAllRows(engine);
    const Snapshot before = snapshot();
    FrmFilterSYSLOG form = openForm();
    form.chkWarning.checked = false;
    form.cbStartDate.ListIndex = 1;
    form.cbStartDate_Click();
    form.calStartDate.Value = QDate(2003, 1, 13);
    EXPECT_FALSE(form.cmdFilter_Click());
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "Invalid start date!\r\nThe valid date range is from     \r\n"
                                   "1-14-2003 to 1-17-2003.");
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(ui.messages[0].title, " Tarnwick");
    EXPECT_FALSE(form.closed);
    EXPECT_EQ(snapshot(), before); // nothing changed: not even the Warning pass ran

    form.calStartDate.Value = QDate(2003, 1, 14);
    form.cbEndDate.ListIndex = 1;
    form.cbEndDate_Click();
    form.calEndDate.Value = QDate(2003, 1, 18);
    EXPECT_FALSE(form.cmdFilter_Click());
    ASSERT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(ui.messages[1].text, "Invalid end date!\r\nThe valid date range is from     \r\n"
                                   "1-14-2003 to 1-17-2003.");
    EXPECT_EQ(snapshot(), before);
}

TEST_F(EventFilter, StartAfterEndIsInvalidDateLogicEvenWithoutPanes) {
    fillSample();
    engine.view.pane(FirstEntry).text = "";
    const Snapshot before = snapshot();
    FrmFilterSYSLOG form = openForm();
    form.cbStartDate.ListIndex = 1;
    form.cbStartDate_Click();
    form.calStartDate.Value = QDate(2003, 1, 16);
    form.cbEndDate.ListIndex = 1;
    form.cbEndDate_Click();
    form.calEndDate.Value = QDate(2003, 1, 15);
    EXPECT_FALSE(form.cmdFilter_Click());
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "Invalid date logic!\r\n16 Jan 2003 to 15 Jan 2003.     ");
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(snapshot(), before);

    // Without pane 3 the range is not checked: a start long before the log is taken.
    form.calStartDate.Value = QDate(1999, 1, 1);
    EXPECT_TRUE(form.cmdFilter_Click());
    EXPECT_EQ(visibleEvents(engine), (std::vector<int>{4, 3, 2, 1}));
}

TEST_F(EventFilter, DatesAcrossTheYearInEveryWrittenForm) {
    test::fillSysLog(
        engine,
        {{"12-30-2002"}, {"12-31-02"}, {"1.1.2003"}, {"01/02/03"}, {"2003-01-03"}, {"garbage"}});
    FrmFilterSYSLOG form = openForm();
    form.cbStartDate.ListIndex = 1;
    form.cbStartDate_Click();
    form.calStartDate.Value = QDate(2002, 12, 31);
    form.cbEndDate.ListIndex = 1;
    form.cbEndDate_Click();
    form.calEndDate.Value = QDate(2003, 1, 2);
    // Pane 2 holds no date ("garbage"): the range checks are skipped.
    ASSERT_TRUE(form.cmdFilter_Click());
    EXPECT_EQ(visibleEvents(engine), (std::vector<int>{4, 3, 2}));
}

TEST_F(EventFilter, ProgressRunsOverRowsTimesPasses) {
    fillSample();
    std::vector<std::pair<long long, long long>> seen; // value, maximum while shown
    engine.view.onChanged = [&] {
        const PaneProgressBar& bar = engine.view.ProgressBar1;
        if (bar.visible)
            seen.emplace_back(bar.Value, bar.Max);
    };
    FrmFilterSYSLOG form = openForm();
    form.chkWarning.checked = false;
    form.chkFatal.checked = false;
    form.txbErrMsg.text = "e";
    ASSERT_TRUE(form.cmdFilter_Click());
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ(seen.front().second, 18);
    EXPECT_EQ(seen.back().first, 18);
    for (std::size_t i = 1; i < seen.size(); ++i)
        EXPECT_LE(seen[i - 1].first, seen[i].first);
    EXPECT_FALSE(engine.view.ProgressBar1.visible);
}

TEST_F(EventFilter, CancelClosesWithoutEffect) {
    fillSample();
    const Snapshot before = snapshot();
    FrmFilterSYSLOG form = openForm();
    form.chkWarning.checked = false;
    form.cmdCancel_Click();
    EXPECT_TRUE(form.closed);
    EXPECT_FALSE(form.cmdFilter_Click()); // a closed dialog runs nothing
    EXPECT_EQ(snapshot(), before);
}

TEST_F(EventFilter, ViewAllShowsEveryRowAgain) {
    fillSample();
    FrmFilterSYSLOG form = openForm();
    form.chkInformational.checked = false;
    form.chkWarning.checked = false;
    ASSERT_TRUE(form.cmdFilter_Click());
    ShowAllRows(engine);
    const MainView& v = engine.view;
    EXPECT_EQ(visibleEvents(engine).size(), 6u);
    EXPECT_EQ(v.pane(EntryPos).text, "6/6");
    EXPECT_EQ(v.pane(EntryPos).icon, "imgFile");
    EXPECT_EQ(v.pane(EntryPos).toolTip, " selected event / total events ");
    EXPECT_EQ(v.pane(Tips).text, "VOLUME SYS almost full");
    EXPECT_EQ(engine.Grid1.SelectedRow(), 1);
    EXPECT_FALSE(v.menuEnabled("mnuViewAll"));
    EXPECT_FALSE(v.menuEnabled("mnuViewFilter"));
    EXPECT_EQ(v.menus().at("mnuViewAll").icon, "POINT");
    EXPECT_EQ(v.menus().at("mnuViewFilter").icon, "NOPOINT");
    EXPECT_FALSE(v.ProgressBar1.visible);
    EXPECT_TRUE(engine.Grid1.Redraw());
}

TEST_F(EventFilter, ViewAllInTheCronLogCountsFromRowOne) {
    test::fillLineView(engine, views::kCronlog, {"a", "b", "c"});
    engine.Grid1.setRowVisible(2, false);
    engine.view.pane(EntryPos).icon = "imgFilter";
    ShowAllRows(engine);
    EXPECT_EQ(engine.view.pane(EntryPos).text, "1/3");
    EXPECT_TRUE(engine.Grid1.RowVisible(2));
}

TEST_F(EventFilter, TheMenuOpensTheFilterOfTheLogShown) {
    EXPECT_EQ(mnuFilter_Click(engine), FilterDialog::None);
    fillSample();
    EXPECT_EQ(mnuFilter_Click(engine), FilterDialog::SysLog);
    test::fillLineView(engine, views::kCronlog, {"a"});
    EXPECT_EQ(mnuFilter_Click(engine), FilterDialog::Cronlog);
    test::fillLineView(engine, views::kConsoleLog, {"a"});
    EXPECT_EQ(mnuFilter_Click(engine), FilterDialog::None);
}

TEST_F(EventFilter, FiltersWhatTheReaderWroteFromAGermanLog) {
    const QByteArray german =
        test::lines({"SYS$LOG.ERR  FS2"}) + "\r\n" +
        test::englishEntry("31.12.2002   11:59:58 pm:    A-1",
                           "Schweregrad = 1  Geometrischer Ort = 3  Klasse = 5",
                           {"Laufwerk voll"}) +
        test::englishEntry("01.01.2003   0:00:01 am:    A-2",
                           "Schweregrad = 0  Geometrischer Ort = 3  Klasse = 5", {"Neues Jahr"}) +
        test::englishEntry("02.01.2003   0:00:01 am:    A-3",
                           "Schweregrad = 0  Geometrischer Ort = 3  Klasse = 5", {"Zweiter Tag"});
    ASSERT_TRUE(LoadLogFile(engine, views::kSysLogErr, tree.write("SYS$LOG.ERR", german)));
    ASSERT_EQ(engine.Grid1.Rows(), 3);
    EXPECT_EQ(engine.view.pane(FirstEntry).text, "31.12.2002");
    FrmFilterSYSLOG form = openForm();
    EXPECT_EQ(form.calStartDate.Value, QDate(2002, 12, 31));
    EXPECT_EQ(form.calEndDate.Value, QDate(2003, 1, 2));
    form.cbEndDate.ListIndex = 1;
    form.cbEndDate_Click();
    form.calEndDate.Value = QDate(2003, 1, 1);
    ASSERT_TRUE(form.cmdFilter_Click());
    EXPECT_EQ(visibleEvents(engine), (std::vector<int>{2, 1}));
}

} // namespace
