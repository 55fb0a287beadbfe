#include "core/Mainfrm.h"

#include "MainWindowSupport.h"
#include "core/Startup.h"

#include <gtest/gtest.h>

using namespace twk;
using test::MainWindowFixture;

namespace {

// A started window with SYS$LOG.ERR of FS1 loaded.
class Cascade : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(f.start(), StartupOutcome::Running); }

    void chooseServer(const QString& server) {
        ASSERT_TRUE(MainWindowFixture::choose(v().cbServer, server));
        cbServer_Click(*f.engine);
        f.settle();
    }
    void chooseLog(const QString& item) {
        ASSERT_TRUE(MainWindowFixture::choose(v().cbLogFile, item)) << item.toStdString();
        cbLogFile_Click(*f.engine);
    }
    MainView& v() { return f.engine->view; }
    Grid& grid() { return f.engine->Grid1; }

    void expectNothingOpen() {
        EXPECT_EQ(grid().Rows(), 0);
        EXPECT_EQ(v().pane(EntryPos).text, QStringLiteral("x/y"));
        EXPECT_EQ(v().pane(LastEntry).text, QStringLiteral("last entry"));
        EXPECT_EQ(v().pane(FirstEntry).text, QStringLiteral("first entry"));
        EXPECT_EQ(v().pane(FileSize).text, QStringLiteral("file size"));
        EXPECT_EQ(v().pane(Tips).text, QString());
        EXPECT_EQ(v().pane(Tips).icon, QStringLiteral("imgNoFlag"));
        EXPECT_EQ(v().pane(EntryPos).icon, QStringLiteral("imgFile"));
        for (const char* menu : {"mnuFilter", "mnuFind", "mnuGoto", "mnuSave", "mnuReload",
                                 "mnuCloseFile", "mnuViewAll", "mnuViewFilter"})
            EXPECT_FALSE(v().menuEnabled(QString::fromLatin1(menu))) << menu;
        for (const char* menu :
             {"mnuStatusIcons", "mnuEventIcons", "mnuTrennlinie6", "mnuAnalyzer"})
            EXPECT_FALSE(v().menuVisible(QString::fromLatin1(menu))) << menu;
        EXPECT_FALSE(v().closeEnabled);
        EXPECT_EQ(v().closeCaption, QStringLiteral("close logfile"));
        EXPECT_EQ(v().cbLogFile.ListIndex, 0);
        EXPECT_TRUE(v().openLogPath.isEmpty());
    }

    MainWindowFixture f;
};

} // namespace

TEST_F(Cascade, LoadingSysLogErrOpensTheViewAndItsMenus) {
    ASSERT_TRUE(MainWindowFixture::choose(v().cbVolume, QStringLiteral("DATA")));
    chooseLog(QStringLiteral("SYS$LOG.ERR"));
    EXPECT_TRUE(f.ui.messages.empty());
    EXPECT_EQ(v().CurrentView, QStringLiteral("SYS$LOG.ERR"));
    EXPECT_EQ(grid().Rows(), 40);
    EXPECT_EQ(v().pane(EntryPos).text, QStringLiteral("40/40"));
    EXPECT_EQ(v().pane(Tips).text,
              QStringLiteral("double click here to view the error message..."));
    EXPECT_EQ(v().cbVolume.text(), QStringLiteral("SYS")) << "the volume follows the log";
    EXPECT_EQ(v().picVolumeToolTip, QStringLiteral(" doubleclick to open volume FS1: SYS"));
    EXPECT_EQ(v().picLogfileToolTip,
              QStringLiteral(" doubleclick to open the SYS$LOG.ERR file with notepad.exe "));
    EXPECT_EQ(v().picCloseLogfileToolTip,
              QStringLiteral(" doubleclick to close the SYS$LOG.ERR file "));
    for (const char* menu :
         {"mnuFilter", "mnuFind", "mnuGoto", "mnuSave", "mnuReload", "mnuCloseFile"})
        EXPECT_TRUE(v().menuEnabled(QString::fromLatin1(menu))) << menu;
    for (const char* menu : {"mnuStatusIcons", "mnuEventIcons", "mnuTrennlinie6"})
        EXPECT_TRUE(v().menuVisible(QString::fromLatin1(menu))) << menu;
    EXPECT_FALSE(v().menuEnabled(QStringLiteral("mnuViewAll")));
    EXPECT_FALSE(v().menuEnabled(QStringLiteral("mnuViewFilter")));
    EXPECT_FALSE(v().menuVisible(QStringLiteral("mnuAnalyzer")));
    EXPECT_TRUE(v().closeEnabled);
    EXPECT_EQ(v().openLogPath, f.logPath);
    EXPECT_FALSE(v().busyPointer);
    EXPECT_FALSE(v().backgroundImage);
}

TEST_F(Cascade, AMissingLogGivesTheAccessBoxAndLeavesNothingOpen) {
    chooseServer(QStringLiteral("FS2"));
    chooseLog(QStringLiteral("SYS$LOG.ERR"));
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(
        f.ui.messages[0].text,
        QStringLiteral("Access to logfile...\r\\\\FS2\\SYS\\SYSTEM\\SYS$LOG.ERR    \rimpossible!"));
    EXPECT_EQ(f.ui.messages[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(f.ui.messages[0].title, QStringLiteral(" Tarnwick"));
    EXPECT_EQ(v().cbLogFile.text(), QStringLiteral("select logfile..."));
    expectNothingOpen();
}

TEST_F(Cascade, AServerChangeClosesTheOpenLog) {
    chooseLog(QStringLiteral("SYS$LOG.ERR"));
    ASSERT_EQ(grid().Rows(), 40);
    chooseServer(QStringLiteral("FS2"));
    expectNothingOpen();
    EXPECT_EQ(v().cbServer.text(), QStringLiteral("FS2"));
    EXPECT_EQ(v().picServerToolTip,
              QStringLiteral(" doubleclick to open a remote console to server FS2 "));
    EXPECT_EQ(v().cbVolume.items, QStringList{QStringLiteral("SYS")});
    EXPECT_TRUE(v().cbLogFile.enabled);
}

TEST_F(Cascade, LogsThatCannotBeShownSaySoAndLeaveNothingOpen) {
    chooseLog(QStringLiteral("CONFIG.TXT"));
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.ui.messages[0].text, mainText::kNotAvailable);
    EXPECT_EQ(f.ui.messages[0].icon, MsgIcon::Information);
    EXPECT_EQ(v().cbLogFile.ListIndex, 0);

    // A Linux server offers its own logs, which are not shown yet either.
    chooseServer(QStringLiteral("LX1"));
    EXPECT_EQ(v().cbLogFile.items,
              (QStringList{QStringLiteral("select logfile..."), QStringLiteral("boot.msg"),
                           QStringLiteral("messages")}));
    EXPECT_TRUE(v().menuEnabled(QStringLiteral("mnuRC")));
    chooseLog(QStringLiteral("boot.msg"));
    ASSERT_EQ(f.ui.messages.size(), 2u);
    EXPECT_EQ(f.ui.messages[1].text, mainText::kNotAvailable);
    expectNothingOpen();
}

TEST_F(Cascade, NotFoundItemsDoNothing) {
    chooseLog(QStringLiteral("SYS$LOG.ERR"));
    v().cbServer.items << QStringLiteral("server not found");
    ASSERT_TRUE(MainWindowFixture::choose(v().cbServer, QStringLiteral("server not found")));
    cbServer_Click(*f.engine);
    EXPECT_EQ(grid().Rows(), 40) << "the log stays open";
    EXPECT_EQ(v().CurrentView, QStringLiteral("SYS$LOG.ERR"));

    v().cbTree.items << QStringLiteral("tree not found");
    ASSERT_TRUE(MainWindowFixture::choose(v().cbTree, QStringLiteral("tree not found")));
    cbTree_Click(*f.engine);
    EXPECT_EQ(grid().Rows(), 40);
    EXPECT_EQ(v().cbServer.items.size(), 4) << "the server list stays";
    EXPECT_EQ(v().simpleText, QStringLiteral(" network scan in progress - please wait..."));
    EXPECT_TRUE(f.ui.messages.empty());
}

TEST_F(Cascade, ATreeChoiceEmptiesTheListsAndSearchesAgain) {
    chooseLog(QStringLiteral("SYS$LOG.ERR"));
    cbTree_Click(*f.engine);
    EXPECT_EQ(grid().Rows(), 0);
    EXPECT_FALSE(v().cbLogFile.enabled);
    f.settle();
    EXPECT_EQ(v().cbServer.items.size(), 3);
    f.settle();
    EXPECT_EQ(v().cbVolume.text(), QStringLiteral("SYS"))
        << "the new server list goes on to volumes";
    EXPECT_EQ(v().caption, QStringLiteral(" Tarnwick"));
}

TEST_F(Cascade, CloseFileBringsEverythingBackToRest) {
    chooseLog(QStringLiteral("SYS$LOG.ERR"));
    f.engine->StartContext = QStringLiteral("nds:\\\\acme_tree\\acme");
    f.engine->DebugMode = true;
    v().pane(EntryPos).toolTip = QStringLiteral("something else");
    v().menu(QStringLiteral("mnuRTM")).icon = QStringLiteral("RTMONITORON");
    v().menu(QStringLiteral("mnuCloseFile")).caption = QStringLiteral("&stop");
    v().cbAbendLog.items << QStringLiteral("abend 1");
    v().cbAbendLog.visible = true;
    CloseFile(*f.engine);
    expectNothingOpen();
    EXPECT_EQ(
        v().caption,
        QStringLiteral(" Tarnwick   StartContext: [NDS:\\\\ACME_TREE\\ACME]   [DEBUG MODE=ON]"));
    EXPECT_EQ(v().pane(EntryPos).toolTip, QStringLiteral(" selected event / total events "));
    EXPECT_EQ(v().pane(LastEntry).toolTip, QStringLiteral(" last entry "));
    EXPECT_EQ(v().pane(FirstEntry).toolTip, QStringLiteral(" first entry "));
    EXPECT_EQ(v().menu(QStringLiteral("mnuRTM")).icon, QStringLiteral("RTMONITOROFF"));
    EXPECT_EQ(v().menu(QStringLiteral("mnuCloseFile")).caption, QStringLiteral("&close logfile"));
    EXPECT_EQ(v().menu(QStringLiteral("mnuViewAll")).icon, QStringLiteral("POINT"));
    EXPECT_EQ(v().menu(QStringLiteral("mnuViewFilter")).icon, QStringLiteral("NOPOINT"));
    EXPECT_FALSE(v().cbAbendLog.visible);
    EXPECT_TRUE(v().cbAbendLog.items.isEmpty());
    EXPECT_TRUE(v().cbLogFile.enabled);
    EXPECT_TRUE(v().cbLogFile.visible);
    EXPECT_TRUE(v().menuEnabled(QStringLiteral("mnuRC")));
    EXPECT_TRUE(v().menuEnabled(QStringLiteral("mnuLogin")));
    EXPECT_FALSE(v().menuEnabled(QStringLiteral("mnuConfigReport")));
    EXPECT_EQ(v().picLogfileToolTip, QStringLiteral(" please select a logfile to analyse... "));
    EXPECT_EQ(v().picCloseLogfileToolTip, QStringLiteral(" ...there is no logfile to close! "));
}

TEST_F(Cascade, ChoosingSelectLogfileClosesTheView) {
    chooseLog(QStringLiteral("SYS$LOG.ERR"));
    chooseLog(QStringLiteral("select logfile..."));
    expectNothingOpen();
    EXPECT_EQ(v().caption, QStringLiteral(" Tarnwick"));
}

TEST_F(Cascade, ReloadingTheSameKindKeepsTheColumns) {
    chooseLog(QStringLiteral("SYS$LOG.ERR"));
    grid().column(4).width = 321; // a width set in the window, not stored
    chooseLog(QStringLiteral("SYS$LOG.ERR"));
    EXPECT_EQ(grid().Rows(), 40);
    EXPECT_EQ(grid().column(4).width, 321) << "CreateNewTable is skipped for the same view";
}

TEST_F(Cascade, HeaderClicksSortAndMarkTheColumns) {
    chooseLog(QStringLiteral("SYS$LOG.ERR"));
    Grid1_HeaderClick(*f.engine, 4);
    EXPECT_EQ(grid().column(4).headerIcon, 49) << "the first click sorts descending";
    Grid1_HeaderClick(*f.engine, 4);
    EXPECT_EQ(grid().column(4).headerIcon, 48);
    Grid1_HeaderClick(*f.engine, 5);
    EXPECT_EQ(grid().column(5).headerIcon, 49);
    EXPECT_EQ(grid().column(4).headerIcon, 50);
    EXPECT_EQ(grid().column(6).headerIcon, -1) << "a column without a mark gets none";
    Grid1_HeaderClick(*f.engine, 3);
    EXPECT_EQ(grid().column(3).headerIcon, -1) << "the time column does not sort";
    EXPECT_EQ(grid().column(5).headerIcon, 49);
    Grid1_HeaderClick(*f.engine, 2);
    EXPECT_EQ(grid().column(7).headerIcon, 49) << "the date sorts by the event number";
    EXPECT_EQ(QString::fromUtf8(grid().CellText(1, 7)), QStringLiteral("40"));
}

TEST_F(Cascade, HandlersWaitForTheEndOfTheStart) {
    f.engine->StartupDone = false;
    chooseLog(QStringLiteral("SYS$LOG.ERR"));
    EXPECT_EQ(grid().Rows(), 0);
    EXPECT_TRUE(v().CurrentView.isEmpty());
}

TEST(MainLogUnc, PathsOfTheLogsOfAServer) {
    for (const auto& [log, unc] : {std::pair{"SYS$LOG.ERR", "\\\\FS1\\SYS\\SYSTEM\\SYS$LOG.ERR"},
                                   {"ABEND.LOG", "\\\\FS1\\SYS\\SYSTEM\\ABEND.LOG"},
                                   {"CRONLOG", "\\\\FS1\\SYS\\ETC\\CRONLOG"},
                                   {"CONFIG.TXT", ""}})
        EXPECT_EQ(logFileUnc(QStringLiteral("FS1"), QString::fromLatin1(log)),
                  QString::fromLatin1(unc))
            << log;
}
