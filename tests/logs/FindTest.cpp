#include "logs/FindForm.h"

#include "LogFixture.h"
#include "SysLogGrid.h"
#include "logs/EventFilterForm.h"

using namespace twk;

namespace {

class Find : public test::LogFixture {
protected:
    FrmFind form{engine};
    std::vector<int> opened; // rows the event properties were opened on
    int closedProperties = 0;
    int fronts = 0;

    void SetUp() override {
        form.hooks.openEventProperties = [this](int row) {
            opened.push_back(row);
        };
        form.hooks.closeEventProperties = [this] {
            ++closedProperties;
        };
        form.hooks.bringToFront = [this] {
            ++fronts;
        };
    }

    // Events 1..5; "disk" in events 1, 3 and 4 (rows 5, 3 and 2).
    void fillSample() {
        test::fillSysLog(engine, {{"1-1-2003", "Informational", "Disk", "x", 24, " A", "DISK full"},
                                  {"1-1-2003", "Informational", "Disk", "x", 24, " B", "all well"},
                                  {"1-2-2003", "Warning", "Disk", "x", 24, " C", "Disk slow"},
                                  {"1-2-2003", "Warning", "Disk", "x", 24, " D", "a disk"},
                                  {"1-3-2003", "Fatal", "Disk", "x", 24, " E", "halt"}});
    }

    void search(const QString& text) {
        form.mnuFind_Click();
        form.txtString.text = text;
        form.txtString_Change();
        form.cmdFind_Click();
    }

    // Every hit of a search, driven to its end with "next".
    std::vector<int> allHits(const QString& text) {
        std::vector<int> rows;
        search(text);
        while (form.state() == FrmFind::State::WaitingAtHit) {
            rows.push_back(form.hitRow());
            form.cmdNext_Click();
        }
        return rows;
    }
};

TEST_F(Find, OpensWithItsPrompt) {
    EXPECT_EQ(form.helpPage(), "");
    fillSample();
    EXPECT_EQ(form.helpPage(), "_syslog.err/_findstring/findstring.htm");
    form.mnuFind_Click();
    EXPECT_EQ(form.lbRecord(), " please enter the string... ");
    EXPECT_FALSE(form.cmdFind.enabled);
    EXPECT_FALSE(form.cmdNext.enabled);
    form.txtString.text = "d";
    form.txtString_Change();
    EXPECT_TRUE(form.cmdFind.enabled);
}

TEST_F(Find, WalksUpFromTheBottomAndWaitsAtEachHit) {
    fillSample();
    search("  disk ");
    ASSERT_EQ(form.state(), FrmFind::State::WaitingAtHit);
    EXPECT_EQ(form.hitRow(), 5);
    EXPECT_EQ(engine.Grid1.SelectedRow(), 5);
    EXPECT_EQ(engine.view.pane(EntryPos).text, "1/5");
    EXPECT_EQ(form.lbRecord(), " Event 1/5"); // the first row tested was a hit
    EXPECT_TRUE(form.cmdNext.enabled);
    EXPECT_TRUE(form.cmdNext.isDefault);
    EXPECT_FALSE(form.cmdFind.enabled);
    EXPECT_FALSE(form.txtString.enabled);
    EXPECT_TRUE(form.txtString.greyBackground);
    EXPECT_EQ(closedProperties, 1);
    EXPECT_EQ(opened, std::vector<int>{5});
    EXPECT_EQ(fronts, 1);

    form.cmdNext_Click();
    ASSERT_EQ(form.hitRow(), 3);
    EXPECT_EQ(form.lbRecord(), " Event 3/5"); // after row 4: Rows - row + 2
    EXPECT_EQ(engine.view.pane(EntryPos).text, "3/5");
    form.cmdNext_Click();
    ASSERT_EQ(form.hitRow(), 2);
    form.cmdNext_Click();
    EXPECT_EQ(form.state(), FrmFind::State::Idle);
    EXPECT_EQ(form.lbRecord(), " search completed... ");
    EXPECT_TRUE(form.cmdFind.enabled);
    EXPECT_FALSE(form.cmdNext.enabled);
    EXPECT_TRUE(form.txtString.enabled);
    EXPECT_FALSE(form.txtString.greyBackground);
    EXPECT_EQ(form.hits(), 3);
    EXPECT_EQ(opened, (std::vector<int>{5, 3, 2}));

    // No hit ends quietly.
    search("nowhere");
    EXPECT_EQ(form.state(), FrmFind::State::Idle);
    EXPECT_EQ(form.lbRecord(), " search completed... ");
    EXPECT_EQ(form.hits(), 0);
    EXPECT_EQ(opened.size(), 3u);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Find, SkipsHiddenRowsOfAFilteredSysLogView) {
    fillSample();
    FrmFilterSYSLOG filter(engine);
    filter.Form_Load();
    filter.Form_Activate();
    filter.chkWarning.checked = false;
    ASSERT_TRUE(filter.cmdFilter_Click());
    ASSERT_EQ(engine.view.pane(EntryPos).text, "3/5");
    EXPECT_EQ(allHits("disk"), std::vector<int>{5});
    EXPECT_EQ(engine.view.pane(EntryPos).text, "3/5"); // the filtered panel stays
}

TEST_F(Find, CronlogSearchesHiddenRowsToo) {
    test::fillLineView(engine, views::kCronlog,
                       {"started", "backup failed", "done", "failed again"});
    engine.Grid1.setRowVisible(2, false);
    engine.view.pane(EntryPos).icon = "imgFilter";
    search("FAILED");
    ASSERT_EQ(form.hitRow(), 4);
    form.cmdNext_Click();
    ASSERT_EQ(form.hitRow(), 2);
    EXPECT_EQ(engine.Grid1.SelectedRow(), 2); // selected though hidden
    EXPECT_EQ(engine.view.pane(EntryPos).text, "2/4");
    EXPECT_EQ(form.lbRecord(), " Row 2/4"); // after row 3: row - 1
    EXPECT_TRUE(opened.empty());            // properties belong to SYS$LOG.ERR
    form.cmdNext_Click();
    EXPECT_EQ(form.state(), FrmFind::State::Idle);
}

TEST_F(Find, ConsoleLogTellsTheRowInPaneOne) {
    test::fillLineView(engine, views::kConsoleLog, {"Loading module X", "ok", "ok"});
    EXPECT_EQ(allHits("module"), std::vector<int>{1});
    EXPECT_EQ(engine.view.pane(EntryPos).text, "1/3");
}

TEST_F(Find, AbendLogNamesTheAbendOfTheHit) {
    test::fillLineView(
        engine, views::kAbendLog,
        {"intro", "Server halted Monday", "text", "Server halted Friday", "more text"});
    engine.analysis.resetAbends();
    engine.analysis.abendRows = {0, 2, 4};
    engine.view.cbAbendLog.items = {" Monday ", " Friday "};
    engine.view.cbAbendLog.ListIndex = 1;
    form.hooks.abendShortDate = [](int index) {
        return index == 0 ? QString("Mon") : QString("Fri");
    };
    search("text");
    ASSERT_EQ(form.hitRow(), 5);
    EXPECT_EQ(form.lbRecord(), " ABEND 2/2 (Fri)");
    EXPECT_EQ(engine.view.pane(EntryPos).text, "2/2");
    form.cmdNext_Click();
    ASSERT_EQ(form.hitRow(), 3);
    EXPECT_EQ(form.lbRecord(), " ABEND 1/2 (Mon)");
    EXPECT_EQ(engine.view.cbAbendLog.ListIndex, 0);
}

TEST_F(Find, StartIsIgnoredWhileASearchWaitsAndClosingEndsTheSearch) {
    fillSample();
    search("disk");
    form.cmdFind_Click();
    ASSERT_EQ(form.hitRow(), 5);
    EXPECT_EQ(form.hits(), 1);
    form.Form_Unload();
    EXPECT_TRUE(form.closed);
    EXPECT_EQ(closedProperties, 2);
    EXPECT_EQ(engine.Grid1.SelectedRow(), 1);
    form.cmdNext_Click();
    EXPECT_EQ(form.state(), FrmFind::State::Idle);
    EXPECT_EQ(opened, std::vector<int>{5});
}

TEST_F(Find, AnotherLogLoadedDuringAWaitEndsTheWalkSafely) {
    fillSample();
    search("disk");
    ASSERT_EQ(form.hitRow(), 5);
    test::fillLineView(engine, views::kConsoleLog, {"disk"});
    form.cmdNext_Click();
    EXPECT_EQ(form.state(), FrmFind::State::Idle);
    EXPECT_EQ(form.lbRecord(), " search completed... ");
    EXPECT_EQ(form.hits(), 1);
}

} // namespace
