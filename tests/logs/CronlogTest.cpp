#include "logs/Cronlog.h"

#include "LogFixture.h"
#include "logs/FilterCronlog.h"
#include "logs/MarkColors.h"

using namespace twk;
using twk::test::cronSample;
using twk::test::lines;

namespace {

class CronlogLoad : public test::LogFixture {
protected:
    bool loadCron(const QByteArray& bytes) { return load(views::kCronlog, bytes); }
    std::vector<int> icons() const {
        std::vector<int> out;
        for (int r = 1; r <= engine.Grid1.Rows(); ++r)
            out.push_back(engine.Grid1.CellIcon(r, 1));
        return out;
    }
    std::vector<int> visibleRows() const {
        std::vector<int> out;
        for (int r = 1; r <= engine.Grid1.Rows(); ++r)
            if (engine.Grid1.RowVisible(r))
                out.push_back(r);
        return out;
    }
};

} // namespace

TEST_F(CronlogLoad, StatusIconsNumbersTextsPanesAndMenus) {
    ASSERT_TRUE(loadCron(cronSample()));
    EXPECT_EQ(icons(), (std::vector<int>{36, 33, 34, 35, 35, 34, 35, 37}));
    EXPECT_EQ(cell(1, 2), "1");
    EXPECT_EQ(cell(8, 2), "8");
    EXPECT_EQ(cell(4, 3), "Job failed: sys:system\\backup.ncf");
    EXPECT_EQ(cell(7, 3), "    Invalid entry skipped");
    EXPECT_TRUE(engine.Grid1.column(1).iconColumn);
    // The errors are the failed actions.
    EXPECT_EQ(engine.analysis.cronErrors, 3);
    EXPECT_EQ(pane(5), QStringLiteral("3 error messages found..."));
    EXPECT_EQ(pane(1), QStringLiteral("8/8"));
    EXPECT_EQ(engine.Grid1.SelectedRow(), 8);
    EXPECT_EQ(engine.view.CurrentView, views::kCronlog);
    for (const char* name :
         {"mnuFilter", "mnuFind", "mnuGoto", "mnuSave", "mnuReload", "mnuCloseFile"})
        EXPECT_TRUE(menuEnabled(name)) << name;
    EXPECT_TRUE(menuVisible("mnuGoto"));
    EXPECT_FALSE(menuVisible("mnuStatusIcons"));
    EXPECT_FALSE(menuVisible("mnuTrennlinie6"));
    EXPECT_FALSE(menuEnabled("mnuViewAll"));
}

TEST_F(CronlogLoad, MarkersColourTheNumberNotTheText) {
    ASSERT_TRUE(loadCron(cronSample()));
    EXPECT_EQ(colour(6, 2), kMarkRed); // "error" without a status word: status 34, red number
    EXPECT_TRUE(bold(6, 2));
    EXPECT_FALSE(bold(6, 3));
    EXPECT_EQ(colour(6, 3), kMarkBlack);
    EXPECT_TRUE(bold(3, 2)); // the date line, black
    EXPECT_EQ(colour(3, 2), kMarkBlack);
    EXPECT_FALSE(bold(1, 2));
    ASSERT_TRUE(loadCron(lines({"loading cron table", "entry unloaded", "error loading"})));
    EXPECT_EQ(colour(1, 2), kMarkBlue);
    EXPECT_EQ(colour(2, 2), kMarkGreen);
    EXPECT_EQ(colour(3, 2), kMarkRed);
}

TEST(CronStatus, LaterTestsWinAndCaseCounts) {
    EXPECT_EQ(iCronStatus("cron started, log size set to 32 KB"), kCronSizeSet);
    EXPECT_EQ(iCronStatus("invalid entry"), kCronActionDone);
    EXPECT_EQ(iCronStatus("Invalid entry"), kCronActionFailed);
    EXPECT_EQ(iCronStatus("shutdown started"), kCronStarted);
    EXPECT_EQ(iCronStatus("Failed"), kCronActionDone);
    EXPECT_EQ(iCronStatus(""), kCronActionDone);
}

TEST_F(CronlogLoad, EdgeFiles) {
    ASSERT_TRUE(loadCron(QByteArray()));
    EXPECT_EQ(engine.Grid1.Rows(), 1);
    EXPECT_EQ(pane(5), QStringLiteral("0 error messages found..."));
    ASSERT_TRUE(loadCron("Job failed"));
    EXPECT_EQ(icons(), std::vector<int>{35});
    ASSERT_TRUE(loadCron(QByteArray("\x00\xff"
                                    "failed\r\n\x01",
                                    11)));
    EXPECT_EQ(icons(), (std::vector<int>{35, 34}));
}

TEST_F(CronlogLoad, FilterWithoutAChoiceSaysSo) {
    ASSERT_TRUE(loadCron(cronSample()));
    FilterCronlogModel filter(engine);
    filter.cmdFilter_Click();
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text,
              QStringLiteral("Your selection doesn't filter any events,\r\n"
                             "please modify one or more filter options.     "));
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Information);
    EXPECT_EQ(ui.messages[0].title, QStringLiteral(" Tarnwick"));
    EXPECT_FALSE(filter.closed);

    filter.cmdDeselectAll_Click();
    filter.txtbAction = QStringLiteral("crontab");
    filter.cmdFilter_Click();
    ASSERT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(ui.messages[1].text, QStringLiteral("Select at least one status icon     \r\n"
                                                  "to create a valid filter option!"));
    EXPECT_FALSE(filter.closed);
    EXPECT_EQ(engine.Grid1.visibleRowCount(), 8);
    EXPECT_EQ(pane(1), QStringLiteral("8/8"));
    EXPECT_EQ(engine.view.pane(1).icon, QStringLiteral("imgFile"));
}

TEST_F(CronlogLoad, FilterHidesUncheckedStatuses) {
    ASSERT_TRUE(loadCron(cronSample()));
    FilterCronlogModel filter(engine);
    EXPECT_EQ(filter.txtbAction, QStringLiteral(" enter search string..."));
    filter.chkActionFailed.checked = false;
    filter.chkCronStopped.checked = false;
    EXPECT_EQ(filter.passCount(), 2);
    filter.cmdFilter_Click();
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_TRUE(filter.closed);
    EXPECT_EQ(visibleRows(), (std::vector<int>{1, 2, 3, 6}));
    MainView& v = engine.view;
    EXPECT_FALSE(v.ProgressBar1.visible);
    EXPECT_EQ(v.ProgressBar1.Max, 16); // two passes over eight rows
    EXPECT_FALSE(v.busyPointer);
    EXPECT_EQ(v.pane(1).icon, QStringLiteral("imgFilter"));
    EXPECT_EQ(pane(1), QStringLiteral("4/8"));
    EXPECT_EQ(v.pane(1).toolTip, QStringLiteral(" visible rows / total rows "));
    EXPECT_EQ(engine.Grid1.SelectedRow(), 1);
    EXPECT_TRUE(menuEnabled("mnuViewAll"));
    EXPECT_TRUE(menuEnabled("mnuViewFilter"));
    EXPECT_EQ(v.menu(QStringLiteral("mnuViewAll")).icon, QStringLiteral("NOPOINT"));
    EXPECT_EQ(v.menu(QStringLiteral("mnuViewFilter")).icon, QStringLiteral("POINT"));
    EXPECT_TRUE(engine.Grid1.Redraw());
}

TEST_F(CronlogLoad, ASecondRunNarrowsTheFirstWithACaseBlindText) {
    ASSERT_TRUE(loadCron(cronSample()));
    FilterCronlogModel first(engine);
    first.chkCronStarted.checked = false;
    first.cmdFilter_Click();
    EXPECT_EQ(visibleRows(), (std::vector<int>{2, 3, 4, 5, 6, 7, 8}));

    FilterCronlogModel second(engine);
    second.txtbAction_GotFocus();
    EXPECT_EQ(second.txtbAction, QString());
    second.txtbAction = QStringLiteral("CRONTAB");
    EXPECT_EQ(second.passCount(), 1);
    second.cmdFilter_Click();
    EXPECT_EQ(visibleRows(), (std::vector<int>{5, 6}));
    EXPECT_EQ(pane(1), QStringLiteral("2/8"));
    EXPECT_EQ(engine.Grid1.SelectedRow(), 5);
}

TEST_F(CronlogLoad, AnEmptySearchTextIsAPassThatHidesNothing) {
    ASSERT_TRUE(loadCron(cronSample()));
    FilterCronlogModel filter(engine);
    filter.txtbAction_GotFocus();
    filter.cmdFilter_Click();
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(engine.Grid1.visibleRowCount(), 8);
    EXPECT_EQ(engine.view.pane(1).icon, QStringLiteral("imgFilter"));
}

TEST_F(CronlogLoad, SelectAllChecksEveryBox) {
    ASSERT_TRUE(loadCron(cronSample()));
    FilterCronlogModel filter(engine);
    filter.cmdDeselectAll_Click();
    EXPECT_EQ(filter.passCount(), 5);
    filter.cmdSelectAll_Click();
    EXPECT_EQ(filter.passCount(), 0);
    filter.chkSetCronlogSize.checked = false;
    filter.cmdFilter_Click();
    EXPECT_EQ(visibleRows(), (std::vector<int>{1, 3, 4, 5, 6, 7, 8}));
    filter.cmdCancel_Click();
    EXPECT_TRUE(filter.closed);
}
