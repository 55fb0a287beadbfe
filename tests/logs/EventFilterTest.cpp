#include "logs/EventFilterForm.h"

#include "LogFixture.h"
#include "SysLogGrid.h"
#include "logs/ViewFilter.h"

#include <functional>

using namespace twk;
using test::box;
using test::visibleEvents;

namespace {

class EventFilter : public test::LogFixture {
protected:
    // Events 1..6 in file order: severities, sources and dates differ.
    void fillSample() {
        test::fillSysLog(engine, {{"1-14-2003", "Informational", "Disk", "General Information", 11,
                                   " DS-1", "Local database is open"},
                                  {"1-14-2003", "Warning", "Disk", "Hardware Failure", 24, " DS-2",
                                   "Disk error #-601 seen"},
                                  {"1-15-2003", "Critical", "File System", "General Information",
                                   13, " NCP-3", "registered as an NCP"},
                                  {"1-15-2003", "???", "???", "???", 24, "", ""},
                                  {"1-16-2003", "Fatal", "disk", "Media Failure", 20, " X-5",
                                   "Device deactivated"},
                                  {"1-17-2003", "Warning", "Domain", "General Information", 24,
                                   " X-6", "VOLUME SYS almost full"}});
    }
    FrmFilterSYSLOG openForm() {
        FrmFilterSYSLOG form(engine);
        form.Form_Load();
        form.Form_Activate();
        return form;
    }
    // "selected date..." in a date list, then a day on its calendar.
    static void startAt(FrmFilterSYSLOG& form, const QDate& day) {
        form.cbStartDate.ListIndex = 1;
        form.cbStartDate_Click();
        form.calStartDate.Value = day;
    }
    static void endAt(FrmFilterSYSLOG& form, const QDate& day) {
        form.cbEndDate.ListIndex = 1;
        form.cbEndDate_Click();
        form.calEndDate.Value = day;
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
    void expectMenusFiltered(bool filtered) {
        const MainView& v = engine.view;
        EXPECT_EQ(v.menuEnabled("mnuViewAll"), filtered);
        EXPECT_EQ(v.menuEnabled("mnuViewFilter"), filtered);
        EXPECT_EQ(v.menus().at("mnuViewAll").icon, filtered ? "NOPOINT" : "POINT");
        EXPECT_EQ(v.menus().at("mnuViewFilter").icon, filtered ? "POINT" : "NOPOINT");
        EXPECT_FALSE(v.ProgressBar1.visible);
        EXPECT_TRUE(engine.Grid1.Redraw());
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

    // Placeholder panes leave the calendars unset.
    engine.view.pane(FirstEntry).text = "first entry";
    engine.view.pane(LastEntry).text = "";
    FrmFilterSYSLOG placeholders = openForm();
    EXPECT_FALSE(placeholders.calStartDate.Value.isValid());
    EXPECT_FALSE(placeholders.calEndDate.Value.isValid());
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

TEST_F(EventFilter, WithoutCriteriaItAsksForOneAndCancelChangesNothing) {
    fillSample();
    const Snapshot before = snapshot();
    FrmFilterSYSLOG form = openForm();
    EXPECT_FALSE(form.cmdFilter_Click());
    EXPECT_EQ(ui.messages, std::vector{box("Please set a filter option     \r\nto continue.",
                                           MsgIcon::Information)});
    EXPECT_FALSE(form.closed);
    EXPECT_EQ(snapshot(), before);

    form.chkWarning.checked = false;
    form.cmdCancel_Click();
    EXPECT_TRUE(form.closed);
    EXPECT_FALSE(form.cmdFilter_Click()); // a closed dialog runs nothing
    EXPECT_EQ(snapshot(), before);
}

TEST_F(EventFilter, AnUncheckedSeverityHidesItsRowsAndViewAllShowsThemAgain) {
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
    EXPECT_EQ(engine.Grid1.SelectedRow(), 2); // row 1 (event 6) is hidden
    expectMenusFiltered(true);
    EXPECT_FALSE(v.busyPointer);
    EXPECT_EQ(v.ProgressBar1.Value, 0);

    ShowAllRows(engine);
    EXPECT_EQ(visibleEvents(engine).size(), 6u);
    EXPECT_EQ(v.pane(EntryPos).text, "6/6");
    EXPECT_EQ(v.pane(EntryPos).icon, "imgFile");
    EXPECT_EQ(v.pane(EntryPos).toolTip, " selected event / total events ");
    EXPECT_EQ(v.pane(Tips).text, "VOLUME SYS almost full");
    EXPECT_EQ(engine.Grid1.SelectedRow(), 1);
    expectMenusFiltered(false);
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

TEST_F(EventFilter, EachCriterionKeepsTheRowsThatFitIt) {
    const struct {
        const char* criterion;
        std::function<void(FrmFilterSYSLOG&)> set;
        std::vector<int> visible;
    } cases[] = {
        {"the unknown status has its own box; no aborted rows",
         [](FrmFilterSYSLOG& f) { f.chkUnkown.checked = f.chkAborted1.checked = false; },
         {6, 5, 3, 2, 1}},
        // Event 5's source is "disk" in small letters: not the selected text.
        {"source compares exactly",
         [](FrmFilterSYSLOG& f) { f.cbSource.ListIndex = f.cbSource.items.indexOf("Disk"); },
         {2, 1}},
        {"category",
         [](FrmFilterSYSLOG& f) {
             f.cbCategory.ListIndex = f.cbCategory.items.indexOf("General Information");
         },
         {6, 3, 1}},
        // Event 2 gets a text of another event type: its icon still counts.
        {"event type compares the icon, not the text",
         [this](FrmFilterSYSLOG& f) {
             engine.Grid1.setCellText(5, 10, "registered as an NCP");
             f.cbEventType.ListIndex = f.cbEventType.items.indexOf("icon not available");
         },
         {6, 4, 2}},
        {"message text, case-blind",
         [](FrmFilterSYSLOG& f) { f.txbErrMsg.text = "volume sys"; },
         {6}},
        // The prompt goes, nothing is typed: only the row with an empty error number goes.
        {"an emptied field counts",
         [](FrmFilterSYSLOG& f) {
             f.txbErrorNr_GotFocus();
             EXPECT_EQ(f.activeCriteriaCount(), 1);
         },
         {6, 5, 3, 2, 1}},
        {"error number", [](FrmFilterSYSLOG& f) { f.txbErrorNr.text = "x-"; }, {6, 5}},
        {"a date range includes both ends",
         [](FrmFilterSYSLOG& f) {
             startAt(f, QDate(2003, 1, 15));
             endAt(f, QDate(2003, 1, 16));
         },
         {5, 4, 3}},
        {"one calendar takes the log's other end",
         [](FrmFilterSYSLOG& f) { endAt(f, QDate(2003, 1, 14)); },
         {2, 1}},
    };
    for (const auto& c : cases) {
        fillSample();
        FrmFilterSYSLOG form = openForm();
        c.set(form);
        ASSERT_TRUE(form.cmdFilter_Click()) << c.criterion;
        EXPECT_EQ(visibleEvents(engine), c.visible) << c.criterion;
    }
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
    startAt(form, QDate(2003, 1, 13));
    EXPECT_FALSE(form.cmdFilter_Click());
    EXPECT_FALSE(form.closed);
    EXPECT_EQ(snapshot(), before); // nothing changed: not even the Warning pass ran
    form.calStartDate.Value = QDate(2003, 1, 14);
    endAt(form, QDate(2003, 1, 18));
    EXPECT_FALSE(form.cmdFilter_Click());
    const char* range = "The valid date range is from     \r\n1-14-2003 to 1-17-2003.";
    EXPECT_EQ(ui.messages,
              (std::vector{box(QString("Invalid start date!\r\n") + range, MsgIcon::Exclamation),
                           box(QString("Invalid end date!\r\n") + range, MsgIcon::Exclamation)}));
    EXPECT_EQ(snapshot(), before);
}

TEST_F(EventFilter, StartAfterEndIsInvalidDateLogicEvenWithoutPanes) {
    fillSample();
    engine.view.pane(FirstEntry).text = "";
    const Snapshot before = snapshot();
    FrmFilterSYSLOG form = openForm();
    startAt(form, QDate(2003, 1, 16));
    endAt(form, QDate(2003, 1, 15));
    EXPECT_FALSE(form.cmdFilter_Click());
    EXPECT_EQ(ui.messages,
              std::vector{box("Invalid date logic!\r\n16 Jan 2003 to 15 Jan 2003.     ",
                              MsgIcon::Exclamation)});
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
    startAt(form, QDate(2002, 12, 31));
    endAt(form, QDate(2003, 1, 2));
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
    const char* code = "Schweregrad = 0  Geometrischer Ort = 3  Klasse = 5";
    ASSERT_TRUE(
        load(views::kSysLogErr,
             test::lines({"SYS$LOG.ERR  FS2", ""}) +
                 test::englishEntry("31.12.2002   11:59:58 pm:    A-1",
                                    "Schweregrad = 1  Geometrischer Ort = 3  Klasse = 5",
                                    {"Laufwerk voll"}) +
                 test::englishEntry("01.01.2003   0:00:01 am:    A-2", code, {"Neues Jahr"}) +
                 test::englishEntry("02.01.2003   0:00:01 am:    A-3", code, {"Zweiter Tag"})));
    ASSERT_EQ(engine.Grid1.Rows(), 3);
    EXPECT_EQ(engine.view.pane(FirstEntry).text, "31.12.2002");
    FrmFilterSYSLOG form = openForm();
    EXPECT_EQ(form.calStartDate.Value, QDate(2002, 12, 31));
    EXPECT_EQ(form.calEndDate.Value, QDate(2003, 1, 2));
    endAt(form, QDate(2003, 1, 1));
    ASSERT_TRUE(form.cmdFilter_Click());
    EXPECT_EQ(visibleEvents(engine), (std::vector<int>{2, 1}));
}

} // namespace
