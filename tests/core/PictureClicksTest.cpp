#include "core/PictureClicks.h"

#include "MainWindowSupport.h"
#include "core/Mainfrm.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace twk;
using test::MainWindowFixture;

namespace {

class Pictures : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(f.start(), StartupOutcome::Running); }
    MainWindowFixture f;
};

} // namespace

TEST_F(Pictures, VolumeOpensItsFolderAndAFailedStartGoesToTheErrorFile) {
    picVolume_DblClick(*f.engine);
    ASSERT_EQ(f.desktop.opened.size(), 1u);
    EXPECT_EQ(QDir::cleanPath(f.desktop.opened[0]),
              QDir::cleanPath(f.tree.path(QStringLiteral("network/servers/FS1/SYS"))));
    EXPECT_EQ(f.engine->errors.count(), 0);
    f.desktop.works = false;
    picVolume_DblClick(*f.engine);
    EXPECT_EQ(f.engine->errors.count(), 1);
}

TEST_F(Pictures, LogfileOpensTheServersFileButNotASavedOne) {
    picLogfile_DblClick(*f.engine);
    EXPECT_TRUE(f.desktop.opened.empty()) << "nothing is open";
    ASSERT_TRUE(MainWindowFixture::choose(f.engine->view.cbLogFile, QStringLiteral("SYS$LOG.ERR")));
    cbLogFile_Click(*f.engine);
    picLogfile_DblClick(*f.engine);
    ASSERT_EQ(f.desktop.opened.size(), 1u);
    EXPECT_EQ(f.desktop.opened[0], f.logPath);

    const QString saved =
        f.tree.write(QStringLiteral("saved.twk"), "LOGFILE: SYS$LOG.ERR\r\nrest\r\n");
    EXPECT_TRUE(isSavedLogfile(saved));
    EXPECT_FALSE(isSavedLogfile(f.logPath));
    EXPECT_FALSE(isSavedLogfile(f.tree.path(QStringLiteral("missing"))));
    f.engine->view.openLogPath = saved;
    picLogfile_DblClick(*f.engine);
    EXPECT_EQ(f.desktop.opened.size(), 1u);
}

TEST_F(Pictures, ServerOpensTheRemoteConsoleWhenThereIsOne) {
    picServer_DblClick(*f.engine);
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.ui.messages[0].text, mainText::kNotAvailable);
    QStringList servers;
    f.engine->hooks.remoteConsole = [&](const QString& s) {
        servers << s;
    };
    picServer_DblClick(*f.engine);
    EXPECT_EQ(servers, QStringList{QStringLiteral("FS1")});
}

TEST_F(Pictures, CloseLeavesTheMonitorFirst) {
    std::vector<std::string> order;
    f.engine->hooks.stopMonitor = [&] {
        order.push_back("monitor");
    };
    f.engine->view.CurrentView = views::kRealtimeMonitor;
    f.engine->Grid1.setRows(2);
    f.ui.answers = {MsgResult::No};
    picCloseLogfile_DblClick(*f.engine);
    EXPECT_TRUE(order.empty()) << "No keeps the monitor";
    EXPECT_EQ(f.engine->Grid1.Rows(), 2);
    picCloseLogfile_DblClick(*f.engine);
    EXPECT_EQ(f.ui.messages.back().text, QStringLiteral("Exit Realtime Event Monitor?     "));
    EXPECT_EQ(order, std::vector<std::string>{"monitor"});
    EXPECT_EQ(f.engine->Grid1.Rows(), 0);
}
