#include "logs/GotoForm.h"

#include "LogFixture.h"
#include "SysLogGrid.h"
#include "logs/GridViews.h"

using namespace twk;
using test::box;

namespace {

class Goto : public test::LogFixture {
protected:
    FrmGoto form{engine};

    // Events 1..6 over three days; row 1 holds event 6 (descending).
    void fillSample() {
        test::fillSysLog(engine, {{"1-14-2003"},
                                  {"1-14-2003"},
                                  {"1-15-2003"},
                                  {"1-15-2003"},
                                  {"1-16-2003"},
                                  {"1-17-2003"}});
    }
    int eventOfSelectedRow() const {
        return std::stoi(std::string(engine.Grid1.CellText(engine.Grid1.SelectedRow(), 7)));
    }
    void gotoNumber(const QString& text) {
        form.txtEvent_GotFocus();
        form.txtEvent.text = text;
        form.cmdGoto_Click();
    }
    void gotoDate(const QString& text) {
        form.txtDate_GotFocus();
        form.txtDate.text = text;
        form.cmdGoto_Click();
    }
};

TEST_F(Goto, PreparesBothModesInTheSysLogView) {
    fillSample();
    ASSERT_TRUE(form.mnuGoto_Click());
    EXPECT_EQ(form.lbDateRange.text, "1-14-2003 - 1-17-2003");
    EXPECT_EQ(form.lbEventRange.text, "1 - 6");
    EXPECT_TRUE(form.txtDate.enabled);
    EXPECT_FALSE(form.txtDate.greyBackground);
    EXPECT_EQ(form.caption, " Goto Date...");
    EXPECT_EQ(form.picture, "picDateIco");
    EXPECT_EQ(form.focus, "txtDate");

    form.txtDate.text = "1-15";
    form.txtEvent_GotFocus();
    EXPECT_EQ(form.caption, " Goto Event Number...");
    EXPECT_EQ(form.fraEventCaption, " Event # ");
    EXPECT_EQ(form.picture, "picNrIco");
    EXPECT_EQ(form.txtDate.text, "");

    FrmGoto byPane(engine);
    ASSERT_TRUE(byPane.mnuGoto_Click(GotoOpening::EventNumber));
    EXPECT_EQ(byPane.caption, " Goto Event Number...");
    EXPECT_EQ(byPane.focus, "txtEvent");
    byPane.cmdCancel_Click();
    EXPECT_TRUE(byPane.closed);
    EXPECT_EQ(engine.Grid1.SelectedRow(), 1);
}

TEST_F(Goto, CronlogTakesNumbersOnlyEvenOfHiddenRowsAndOtherViewsNothing) {
    test::fillLineView(engine, views::kCronlog, {"a", "b", "c"});
    engine.Grid1.setRowVisible(2, false);
    engine.view.pane(LastEntry).text = "first";
    engine.view.pane(FirstEntry).text = "last";
    ASSERT_TRUE(form.mnuGoto_Click());
    EXPECT_FALSE(form.txtDate.enabled);
    EXPECT_TRUE(form.txtDate.greyBackground);
    EXPECT_EQ(form.lbDateRange.text, "first - last");
    EXPECT_EQ(form.focus, "txtEvent");
    form.txtDate_GotFocus(); // a disabled field takes no focus
    EXPECT_EQ(form.focus, "txtEvent");
    gotoNumber("2");
    EXPECT_EQ(engine.Grid1.SelectedRow(), 2);
    EXPECT_EQ(engine.view.pane(EntryPos).text, "2/3");
    EXPECT_TRUE(form.closed);

    FrmGoto other(engine);
    test::fillLineView(engine, views::kConsoleLog, {"a"});
    EXPECT_FALSE(other.mnuGoto_Click());
    other.txtEvent_GotFocus();
    EXPECT_EQ(other.caption, " Goto Row Number...");
    EXPECT_EQ(other.fraEventCaption, " Row # ");
}

TEST_F(Goto, NumberInDescendingAndAscendingOrder) {
    fillSample();
    ASSERT_TRUE(form.mnuGoto_Click());
    gotoNumber("2");
    EXPECT_EQ(eventOfSelectedRow(), 2);
    EXPECT_EQ(engine.Grid1.SelectedRow(), 5);
    EXPECT_EQ(engine.view.pane(EntryPos).text, "2/6");
    EXPECT_TRUE(form.closed);
    EXPECT_EQ(form.txtEvent.text, "");

    Grid1_ColumnClick(engine, 7); // descending
    Grid1_ColumnClick(engine, 7); // ascending: row n holds event n
    FrmGoto again(engine);
    ASSERT_TRUE(again.mnuGoto_Click(GotoOpening::EventNumber));
    again.txtEvent.text = "5";
    again.cmdGoto_Click();
    EXPECT_EQ(engine.Grid1.SelectedRow(), 5);
    EXPECT_EQ(eventOfSelectedRow(), 5);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Goto, NumbersOutsideTheRangeAreInvalid) {
    fillSample();
    ASSERT_TRUE(form.mnuGoto_Click());
    for (const char* bad : {"0", "-1", "7", "abc"}) {
        gotoNumber(bad);
        EXPECT_FALSE(form.closed) << bad;
        EXPECT_EQ(form.focus, "txtEvent") << bad;
    }
    EXPECT_EQ(ui.messages, std::vector(4, box("Invalid Value!", MsgIcon::Exclamation)));
}

TEST_F(Goto, AHiddenEventIsNotTheTargetAndTheTotalStaysTheTotal) {
    fillSample();
    engine.Grid1.setRowVisible(4, false); // event 3
    engine.view.pane(EntryPos).icon = "imgFilter";
    engine.view.pane(EntryPos).text = "5/6";
    ASSERT_TRUE(form.mnuGoto_Click());
    EXPECT_EQ(form.lbEventRange.text, "1 - 6");
    gotoNumber("3");
    EXPECT_EQ(ui.messages, std::vector{box("Event 3 is not visible,\r\nthe view is currently "
                                           "filtered.     ",
                                           MsgIcon::Information)});
    EXPECT_EQ(form.txtEvent.text, "");
    EXPECT_FALSE(form.closed);
    gotoNumber("6");
    EXPECT_EQ(engine.Grid1.SelectedRow(), 1);
    EXPECT_EQ(engine.view.pane(EntryPos).text, "5/6"); // filtered: the panel keeps its count
    EXPECT_TRUE(form.closed);
}

TEST_F(Goto, DateGoesToTheFirstVisibleRowOfThatDateOrSaysWhyNot) {
    fillSample();
    ASSERT_TRUE(form.mnuGoto_Click());
    gotoDate("1-15");
    gotoDate("1-15-2004");
    gotoDate("01-15-2003"); // compared as text: no such text in the log
    EXPECT_EQ(ui.messages,
              (std::vector{box("Invalid Value!", MsgIcon::Exclamation),
                           box("Date \"1-15-2004\" was not found!     ", MsgIcon::Exclamation),
                           box("Date \"01-15-2003\" was not found!     ", MsgIcon::Exclamation)}));
    EXPECT_EQ(form.focus, "txtDate");
    EXPECT_FALSE(form.closed);

    engine.Grid1.setRowVisible(3, false); // event 4, the first 1-15-2003 in row order
    gotoDate("1-15-2003");
    EXPECT_EQ(engine.Grid1.SelectedRow(), 4);
    EXPECT_EQ(engine.view.pane(EntryPos).text, "3/6");
    EXPECT_TRUE(form.closed);
    EXPECT_EQ(form.txtDate.text, "");
}

class EntryJumps : public Goto {};

TEST_F(EntryJumps, SysLogFindsTheEndsWhateverTheOrder) {
    fillSample();
    Grid1_ColumnClick(engine, 10); // sorted by message: all equal, order kept
    Grid1_ColumnClick(engine, 4);
    JumpToEntry(engine, EntryEnd::First);
    EXPECT_EQ(eventOfSelectedRow(), 1);
    EXPECT_EQ(engine.view.pane(EntryPos).text, "1/6");
    EXPECT_EQ(engine.view.pane(Tips).text, "message");
    JumpToEntry(engine, EntryEnd::Last);
    EXPECT_EQ(eventOfSelectedRow(), 6);
    EXPECT_EQ(engine.view.pane(EntryPos).text, "6/6");
}

TEST_F(EntryJumps, AHiddenEndGivesAMessageAndKeepsTheSelection) {
    fillSample();
    engine.Grid1.setRowVisible(6, false); // event 1
    engine.Grid1.setSelectedRow(3);
    JumpToEntry(engine, EntryEnd::First);
    EXPECT_EQ(ui.messages, std::vector{box("The first event is not visible,     \r\nthe view is "
                                           "currently filtered.",
                                           MsgIcon::Information)});
    EXPECT_EQ(engine.Grid1.SelectedRow(), 3);
}

TEST_F(EntryJumps, LineViewsGoToTheOppositeRow) {
    test::fillLineView(engine, views::kConsoleLog, {"a", "b", "c"});
    JumpToEntry(engine, EntryEnd::First);
    EXPECT_EQ(engine.Grid1.SelectedRow(), 3);
    EXPECT_EQ(engine.view.pane(EntryPos).text, "3/3");
    JumpToEntry(engine, EntryEnd::Last);
    EXPECT_EQ(engine.Grid1.SelectedRow(), 1);
    EXPECT_EQ(engine.view.pane(EntryPos).text, "1/3");

    test::fillLineView(engine, views::kCronlog, {"a", "b", "c"});
    engine.Grid1.setRowVisible(3, false);
    JumpToEntry(engine, EntryEnd::First);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text,
              "The last event is not visible,     \r\nthe view is currently filtered.");
}

TEST_F(EntryJumps, AbendLogGoesToTheLastOrFirstAbend) {
    test::fillLineView(engine, views::kAbendLog, {"a", "halted 1", "b", "c", "d", "halted 2", "e"});
    engine.analysis.resetAbends();
    engine.analysis.abendRows = {0, 2, 6};
    engine.view.cbAbendLog.items = {" one ", " two "};
    JumpToEntry(engine, EntryEnd::First);
    EXPECT_EQ(engine.view.cbAbendLog.ListIndex, 1);
    EXPECT_EQ(engine.view.pane(EntryPos).text, "2/2");
    EXPECT_EQ(engine.Grid1.SelectedRow(), 7);
    EXPECT_EQ(engine.analysis.gridFocus.topRow, 6);
    EXPECT_EQ(engine.analysis.gridFocus.lastRow, 7);
    JumpToEntry(engine, EntryEnd::Last);
    EXPECT_EQ(engine.view.cbAbendLog.ListIndex, 0);
    EXPECT_EQ(engine.Grid1.SelectedRow(), 3);
    EXPECT_EQ(engine.analysis.gridFocus.firstRow, 3);
    EXPECT_EQ(engine.analysis.gridFocus.lastRow, 6);
}

TEST_F(EntryJumps, NothingWithoutALog) {
    JumpToEntry(engine, EntryEnd::First);
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(engine.Grid1.SelectedRow(), 0);
}

} // namespace
