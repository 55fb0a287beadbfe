// The monitor on a network folder: the start pass, the state rows, the poll cycle on a
// virtual clock, and the ways it ends.

#include "MonitorFixture.h"
#include "core/MainKeys.h"
#include "core/Mainfrm.h"
#include "core/PictureClicks.h"
#include "demo/DemoNetwork.h"
#include "logs/GridViews.h"
#include "monitor/MonitorRows.h"
#include "monitor/ServerFiles.h"

#include <gtest/gtest.h>

using namespace twk;
using test::englishEntry;
using test::germanEntry;

namespace {

const char* kRuleTail = ",0,0,-1,,0,0,-1,-1";

class Monitor : public ::testing::Test {
protected:
    void SetUp() override {
        f.describe({{"FS1", "address = 10.1.1.11"},
                    {"FS2", "address = 10.1.1.12"},
                    {"NT1", "address = 10.1.1.31"},
                    {"LX1", "address = 10.1.1.21"}});
        f.tree.write(QStringLiteral("network/directory.txt"),
                     f.tree.read(QStringLiteral("network/directory.txt")) +
                         "[scenario NT1]\nreachable = no\n");
        f.writeLog(QStringLiteral("FS1"), englishEntry(0, 0, 0, "Old.") +
                                              englishEntry(4, 7, 6, "TTS shut down", "2:30:45 pm"));
        f.writeLog(QStringLiteral("FS2"), germanEntry(2, 3, 5, "Datentr\x84ger voll."));
        f.writeLog(QStringLiteral("NT1"), englishEntry(0, 0, 0, "Unreachable anyway."));
        f.addServer(QStringLiteral("FS1"), QStringLiteral("10.1.1.11"));
        f.addServer(QStringLiteral("- OLD"), QStringLiteral("10.1.1.99"));
        f.addServer(QStringLiteral("FS2"), QStringLiteral("10.1.1.12"));
        f.addServer(QStringLiteral("NT1"), QStringLiteral("10.1.1.31"));
        f.addServer(QStringLiteral("LX1"), QStringLiteral("10.1.1.21"));
        f.addServer(QStringLiteral("GHOST"), QStringLiteral("1.2.3.4"));
        f.writeRules({std::string("1,2,7,0,8,0,(none),(none),1") + kRuleTail,
                      std::string("2,0,0,0,0,0,(none),(none),0") + kRuleTail});
    }
    void start() {
        mnuRTM_Click(*f.engine);
        ASSERT_TRUE(MonitorRunning(*f.engine));
        f.alerts.matches.clear();
    }
    std::vector<int> firedRows() const {
        std::vector<int> rows;
        for (const auto& [rule, row] : f.alerts.matches)
            rows.push_back(row);
        return rows;
    }

    test::MonitorFixture f;
};

} // namespace

TEST_F(Monitor, TheStartPassShowsEveryServer) {
    start();
    const Engine& e = *f.engine;
    EXPECT_EQ(e.view.CurrentView, views::kRealtimeMonitor);
    EXPECT_EQ(e.view.caption, QStringLiteral(" ..:: Realtime Event Monitor ::.."));
    ASSERT_EQ(e.Grid1.Rows(), 5) << "the disabled server has no row";
    EXPECT_EQ(e.monitor.MonitorServerCount, 5);

    const int fs1 = f.rowOf("FS1");
    EXPECT_EQ(f.cell(fs1, 3), "2003-01-15 14:30:45");
    EXPECT_EQ(f.cell(fs1, 4), "Fatal");
    EXPECT_EQ(f.cell(fs1, 5), "TTS");
    EXPECT_EQ(f.cell(fs1, 9), "TTS shut down");
    EXPECT_EQ(f.icon(fs1, 7), 21);
    EXPECT_EQ(f.icon(fs1, 1), led::kFailure) << "rule 1 fired last";

    const int fs2 = f.rowOf("FS2");
    EXPECT_EQ(e.monitor.MonitorServers[1].Language, QStringLiteral("Deutsch"));
    EXPECT_EQ(f.cell(fs2, 4), "Recovered");
    EXPECT_EQ(f.cell(fs2, 9), "Datenträger voll.");
    EXPECT_EQ(f.icon(fs2, 1), led::kOnline);

    const int nt1 = f.rowOf("NT1");
    EXPECT_EQ(f.icon(nt1, 1), led::kOnline) << "rule 2 meets the state row too";
    EXPECT_EQ(f.cell(nt1, 4), "OFFLINE");
    EXPECT_EQ(f.cell(nt1, 3), "2024-05-06");
    EXPECT_EQ(e.Grid1.CellForeColor(nt1, 2), rtmcolor::kRed);
    EXPECT_EQ(e.Grid1.CellBackColor(nt1, 2), rtmcolor::kFailureBack);
    EXPECT_EQ(f.cell(f.rowOf("LX1"), 4), "ACCESS DENIED");
    EXPECT_EQ(f.cell(f.rowOf("GHOST"), 4), "UNKNOWN") << "an address below 10 is no address";

    EXPECT_EQ(f.alerts.calls, (std::vector<std::string>{"starting", "started"}));
    EXPECT_EQ(e.view.pane(Tips).text,
              QStringLiteral(" last monitoring timestamp: 10:00:00 h   2024-05-06"));
    EXPECT_TRUE(e.monitor.LongTimer1.Enabled);
    EXPECT_EQ(e.monitor.LongTimer1.intervalMs(), 60000);
    EXPECT_EQ(e.view.menus().at(QStringLiteral("mnuRTM")).caption,
              QStringLiteral("stop monitoring      "));
    EXPECT_EQ(e.view.menus().at(QStringLiteral("mnuRTM")).icon, QStringLiteral("RTMONITORON"));
    EXPECT_FALSE(e.view.menuEnabled(QStringLiteral("mnuHealthCheck")));
    EXPECT_FALSE(e.view.cbLogFile.enabled);
    EXPECT_EQ(e.view.cbTree.items, QStringList{QStringLiteral("tree")});
}

TEST_F(Monitor, APollCycleReadsOnlyChangedLogs) {
    start();
    const int fs1 = f.rowOf("FS1");
    f.engine->Grid1.setCellText(fs1, 9, "untouched");
    f.tick();
    EXPECT_EQ(f.cell(fs1, 9), "untouched") << "an unchanged size costs nothing more";
    EXPECT_TRUE(f.alerts.matches.empty());
    EXPECT_EQ(f.alerts.calls.back(), "cycle");

    f.clock.advance(5000);
    f.appendLog(QStringLiteral("FS1"), englishEntry(0, 9, 2, "Remote console connection granted"));
    f.tick();
    EXPECT_EQ(f.cell(fs1, 9), "Remote console connection granted");
    EXPECT_EQ(f.icon(fs1, 7), 15);
    EXPECT_EQ(f.icon(fs1, 1), led::kOnline);
    EXPECT_EQ(f.engine->Grid1.CellForeColor(fs1, 2), rtmcolor::kRed) << "FAILURE colours stay";
    EXPECT_EQ(firedRows(), std::vector<int>{fs1});
    EXPECT_EQ(f.engine->view.pane(Tips).text,
              QStringLiteral(" last monitoring timestamp: 10:02:00 h   2024-05-06"));

    // A log that shrinks counts as a change too.
    f.writeLog(QStringLiteral("FS1"), englishEntry(1, 1, 1, "Rotated."));
    f.tick();
    EXPECT_EQ(f.cell(fs1, 9), "Rotated.");
    EXPECT_FALSE(f.engine->MonitorBusy);
    EXPECT_EQ(f.engine->monitor.cycles, 3);
}

TEST_F(Monitor, AGermanServerThatReturnsIsReadInEnglish) {
    start();
    const int fs2 = f.rowOf("FS2");
    const QString log = QStringLiteral("network/servers/FS2/SYS/SYSTEM/SYS$LOG.ERR");
    const QByteArray german = f.tree.read(log);
    QFile::remove(f.tree.path(log));
    f.tick();
    EXPECT_EQ(f.cell(fs2, 4), "ACCESS DENIED") << "the server answers the echo";
    EXPECT_EQ(f.engine->monitor.MonitorServers[1].Language, QStringLiteral("Englisch"));
    f.engine->Grid1.setCellText(fs2, 9, "marker");
    f.tick();
    EXPECT_EQ(f.cell(fs2, 9), "marker") << "the state row is written once";

    f.tree.write(log, german);
    f.tick();
    EXPECT_EQ(f.cell(fs2, 4), "last event not found!");
    EXPECT_EQ(f.icon(fs2, 1), led::kOnline) << "the LED stays; rule 2 meets any row";
    EXPECT_EQ(f.icon(fs2, 7), 24);
}

TEST_F(Monitor, BinaryLogsGiveNoEvent) {
    start();
    const int fs1 = f.rowOf("FS1");
    f.writeLog(QStringLiteral("FS1"),
               std::string("\0\r\n\xFF\x01Severity\0", 10) + std::string(3000, '\0'));
    f.tick();
    EXPECT_EQ(f.cell(fs1, 4), "last event not found!");
}

TEST_F(Monitor, NoInTheQuestionStartsAfresh) {
    start();
    f.alerts.calls.clear();
    f.ui.answers = {MsgResult::No};
    mnuRTM_Click(*f.engine);
    EXPECT_EQ(f.ui.messages.back().text, QStringLiteral("Exit Realtime Event Monitor?     "));
    EXPECT_EQ(f.alerts.calls, (std::vector<std::string>{"stopped", "starting", "started"}));
    EXPECT_TRUE(MonitorRunning(*f.engine));
    EXPECT_EQ(f.alerts.matches.size(), 6u) << "the first pass alerts again";
    EXPECT_EQ(f.clock.activeTimers(), 1);

    f.ui.answers = {MsgResult::Yes};
    mnuRTM_Click(*f.engine);
    EXPECT_FALSE(MonitorRunning(*f.engine));
    EXPECT_EQ(f.clock.activeTimers(), 0);
    EXPECT_EQ(f.engine->Grid1.Rows(), 0);
    EXPECT_TRUE(f.engine->view.CurrentView.isEmpty());
    EXPECT_EQ(f.engine->view.menus().at(QStringLiteral("mnuRTM")).icon,
              QStringLiteral("RTMONITOROFF"));
    EXPECT_TRUE(f.engine->view.menuEnabled(QStringLiteral("mnuHealthCheck")));
    EXPECT_EQ(f.alerts.calls.back(), "stopped");
}

TEST_F(Monitor, EveryCloseAsksAndStops) {
    start();
    f.ui.answers = {MsgResult::No};
    picCloseLogfile_DblClick(*f.engine);
    EXPECT_TRUE(MonitorRunning(*f.engine));
    picCloseLogfile_DblClick(*f.engine);
    EXPECT_FALSE(MonitorRunning(*f.engine));
    EXPECT_EQ(f.clock.activeTimers(), 0);

    // F9: the rule list, then the monitor again.
    start();
    Form_KeyDown(*f.engine, MainKey::F9, {});
    EXPECT_TRUE(MonitorRunning(*f.engine));
    EXPECT_EQ(f.clock.activeTimers(), 1);

    // Another view that takes the grid ends the monitor at its next tick.
    CreateNewTable(*f.engine, views::kFilterRules);
    f.tick();
    EXPECT_FALSE(MonitorRunning(*f.engine));
    EXPECT_EQ(f.clock.activeTimers(), 0);
}

TEST_F(Monitor, WithoutServersTheOptionsOpen) {
    f.engine->registry.Reg_DeleteKey(Hive::CurrentUser, monitorServersKey());
    mnuRTM_Click(*f.engine);
    EXPECT_FALSE(MonitorRunning(*f.engine));
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.ui.messages[0].text,
              QStringLiteral(" Please add a server to monitor using the\r\n"
                             " Realtime Event Monitor Options dialog.      "));
    EXPECT_EQ(f.optionsShown, 1);
}

TEST_F(Monitor, MoreThanAHundredServers) {
    {
        const Registry::Batch oneWrite(f.engine->registry);
        f.engine->registry.Reg_DeleteKey(Hive::CurrentUser, monitorServersKey());
        for (int i = 0; i < 150; ++i)
            f.addServer(QStringLiteral("S%1").arg(i, 3, 10, QLatin1Char('0')));
    }
    start();
    EXPECT_EQ(f.engine->Grid1.Rows(), 100);
    EXPECT_EQ(f.engine->monitor.MonitorServerCount, 100);
    int capacity = 0;
    for (const auto& m : f.ui.messages)
        capacity += m.text.startsWith(QStringLiteral("Tarnwick currently does not support to\r\n"
                                                     "monitor more than 100 Servers!"));
    EXPECT_EQ(capacity, 2) << "when the rows are counted and when the table is filled";
    EXPECT_EQ(f.cell(100, 2), "S099");
}

TEST_F(Monitor, NamesNeverLeaveTheNetworkFolder) {
    for (const char* name : {"", ".", "..", "a/b", "a\\b", "FS1/..", " "})
        EXPECT_TRUE(serverLogUnc(QLatin1String(name)).isEmpty()) << name;
    f.tree.write(QStringLiteral("network/SYS/SYSTEM/SYS$LOG.ERR"),
                 QByteArray::fromStdString(englishEntry(4, 1, 1, "outside")));
    f.engine->registry.Reg_DeleteKey(Hive::CurrentUser, monitorServersKey());
    f.addServer(QStringLiteral(".."));
    f.addServer(QStringLiteral("servers\\..\\.."));
    start();
    for (int row = 1; row <= 2; ++row)
        EXPECT_EQ(f.cell(row, 4), "UNKNOWN");
}

TEST_F(Monitor, TheAutomaticSort) {
    f.setMisc("SortColumn", 2);
    f.setMisc("SortOrder", 1);
    start();
    EXPECT_EQ(f.cell(1, 2), "NT1");
    EXPECT_EQ(f.cell(5, 2), "FS1");
    EXPECT_EQ(f.engine->Grid1.column(2).headerIcon, 49);
    f.engine->hooks.MonitorColumnClick(4);
    EXPECT_EQ(f.engine->Grid1.column(4).headerIcon, 48) << "the direction toggles";
    EXPECT_EQ(f.engine->Grid1.column(2).headerIcon, 50);
    EXPECT_EQ(f.cell(1, 4), "ACCESS DENIED");
    // A new event still reaches its server's row after sorting.
    f.appendLog(QStringLiteral("FS1"), englishEntry(0, 0, 0, "After the sort."));
    f.tick();
    EXPECT_EQ(f.cell(f.rowOf("FS1"), 9), "After the sort.");
}

TEST_F(Monitor, TheDemoNetworkWatchesItself) {
    test::MonitorFixture demo;
    ASSERT_TRUE(demo::createDemoNetwork(demo.tree.paths().networkFolder).ok);
    mnuRTM_Click(*demo.engine);
    ASSERT_TRUE(MonitorRunning(*demo.engine));
    const auto servers =
        demo.engine->registry.Reg_GetAllKeys(Hive::CurrentUser, monitorServersKey());
    ASSERT_EQ(servers.size(), 4);
    EXPECT_EQ(servers[1].name, QStringLiteral("FS2"));
    EXPECT_EQ(servers[1].text, QString()) << "FS2 speaks IPX only";
    EXPECT_EQ(demo.cell(demo.rowOf("NT1"), 4), "OFFLINE");
    EXPECT_EQ(demo.cell(demo.rowOf("LX1"), 4), "ACCESS DENIED");
    EXPECT_EQ(demo.engine->monitor.MonitorServers[1].Language, QStringLiteral("Deutsch"));
    EXPECT_NE(demo.cell(demo.rowOf("FS2"), 9), "");
}

TEST(Echo, TheSystemEchoAnswersOnLoopback) {
    const EchoReply reply = systemEcho().Echo(QStringLiteral("127.0.0.1"), 32, 1000, {});
    if (reply.status == echostatus::kNoSocket)
        GTEST_SKIP() << "this system allows no ICMP socket";
    EXPECT_TRUE(reply.replied);
    EXPECT_TRUE(reply.sameData);
    EXPECT_TRUE(systemEcho().Echo(QStringLiteral("localhost"), 32, 1000, {}).replied);
}
