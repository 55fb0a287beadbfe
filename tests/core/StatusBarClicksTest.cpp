#include "core/StatusBarClicks.h"

#include "MainWindowSupport.h"
#include "core/Mainfrm.h"

#include <gtest/gtest.h>

using namespace twk;
using test::MainWindowFixture;

namespace {

class StatusBarClicks : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(f.start(), StartupOutcome::Running);
        ASSERT_TRUE(MainWindowFixture::choose(v().cbLogFile, QStringLiteral("SYS$LOG.ERR")));
        cbLogFile_Click(*f.engine);
        ASSERT_EQ(grid().Rows(), 40);
    }
    MainView& v() { return f.engine->view; }
    Grid& grid() { return f.engine->Grid1; }
    QString eventOfSelected() {
        return QString::fromUtf8(grid().CellText(grid().SelectedRow(), 7));
    }
    MainWindowFixture f;
};

} // namespace

TEST_F(StatusBarClicks, FirstAndLastEntryFindTheirEventsAfterASort) {
    Grid1_HeaderClick(*f.engine, 10); // by message
    StatusBar1_PanelDblClick(*f.engine, FirstEntry);
    EXPECT_EQ(eventOfSelected(), QStringLiteral("1"));
    EXPECT_EQ(v().pane(EntryPos).text, QStringLiteral("1/40"));
    EXPECT_EQ(v().pane(Tips).text, QString::fromUtf8(grid().CellText(grid().SelectedRow(), 10)));
    StatusBar1_PanelDblClick(*f.engine, LastEntry);
    EXPECT_EQ(eventOfSelected(), QStringLiteral("40"));
    EXPECT_TRUE(f.ui.messages.empty());
}

TEST_F(StatusBarClicks, AHiddenTargetGivesItsBoxAndKeepsTheSelection) {
    for (int row = 1; row <= grid().Rows(); ++row) {
        const QString event = QString::fromUtf8(grid().CellText(row, 7));
        if (event == QStringLiteral("1") || event == QStringLiteral("40"))
            grid().setRowVisible(row, false);
    }
    grid().setSelectedRow(5);
    StatusBar1_PanelDblClick(*f.engine, FirstEntry);
    StatusBar1_PanelDblClick(*f.engine, LastEntry);
    ASSERT_EQ(f.ui.messages.size(), 2u);
    EXPECT_EQ(
        f.ui.messages[0].text,
        QStringLiteral("The first event is not visible,     \r\nthe view is currently filtered."));
    EXPECT_EQ(
        f.ui.messages[1].text,
        QStringLiteral("The last event is not visible,     \r\nthe view is currently filtered."));
    EXPECT_EQ(f.ui.messages[0].icon, MsgIcon::Information);
    EXPECT_EQ(grid().SelectedRow(), 5);
}

TEST_F(StatusBarClicks, TheTipsPaneShowsTheWholeMessageUntilAClick) {
    grid().setSelectedRow(3);
    StatusBar1_PanelDblClick(*f.engine, Tips);
    EXPECT_TRUE(v().simpleMode);
    EXPECT_EQ(v().simpleText, QString::fromUtf8(grid().CellText(3, 10)));
    EXPECT_FALSE(v().simpleText.isEmpty());
    StatusBar1_Click(*f.engine);
    EXPECT_FALSE(v().simpleMode);
}

TEST_F(StatusBarClicks, EntryPosAndDateOpenTheGoToDialog) {
    std::vector<GotoRequest> requests;
    f.engine->hooks.showGoto = [&](const GotoRequest& r) {
        requests.push_back(r);
    };
    StatusBar1_PanelDblClick(*f.engine, EntryPos);
    StatusBar1_PanelDblClick(*f.engine, SystemDate);
    StatusBar1_PanelDblClick(*f.engine, FileSize);
    StatusBar1_PanelDblClick(*f.engine, SystemTime);
    ASSERT_EQ(requests.size(), 2u);
    EXPECT_EQ(requests[0].caption, QStringLiteral(" Goto Event Number..."));
    EXPECT_EQ(requests[0].range, QStringLiteral("1 - 40"));
    EXPECT_EQ(requests[0].entries,
              v().pane(FirstEntry).text + QStringLiteral(" - ") + v().pane(LastEntry).text);
    EXPECT_EQ(requests[1].caption, QStringLiteral(" Goto Date..."));
}

TEST_F(StatusBarClicks, NothingHappensWithNothingOpenAndTheMonitorKeepsSimpleMode) {
    CloseFile(*f.engine);
    StatusBar1_PanelDblClick(*f.engine, FirstEntry);
    StatusBar1_PanelDblClick(*f.engine, Tips);
    StatusBar1_PanelDblClick(*f.engine, 99);
    EXPECT_FALSE(v().simpleMode);

    v().simpleMode = true;
    v().CurrentView = views::kRealtimeMonitor;
    StatusBar1_Click(*f.engine);
    EXPECT_TRUE(v().simpleMode);
    StatusBar1_PanelDblClick(*f.engine, FirstEntry);
    EXPECT_TRUE(f.ui.messages.empty());
}
