#include "DirectoryTestSupport.h"
#include "directory/ServerConsoleTexts.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace twk;

namespace {

const QByteArray kNetwork =
    "[tree T]\nlogged-in = yes\n"
    "[server FS1]\ntree = T\ncontext = ACME\nversion = Novell NetWare 5.70.03\nvolumes = SYS\n"
    "replica = [Root] | Master | On | x\n"
    "[server FS2]\ntree = T\ncontext = ACME\nversion = Novell NetWare 5.00.09\nvolumes = SYS\n"
    "replica = [Root] | Read/Write | On | x\n"
    "[scenario FS1]\ndsrepair-start-ms = 10\ndsrepair-run-ms = 120\ntrace-interval-ms = 20\n"
    "config-run-ms = 40\n"
    "[scenario FS2]\nds-version = 10510.12\ntime-in-sync = no\nconsole-rights = no\n"
    "[server CUT]\ntree = T\n[scenario CUT]\ndisconnected = yes\n";

class ConsoleTest : public ::testing::Test {
protected:
    void SetUp() override {
        net.engine.clock = &clock;
        net.describe(kNetwork);
        net.file("servers/FS1/SYS/SYSTEM/STUFFKEY.NLM");
        net.file("servers/FS1/SYS/SYSTEM/twkhc12.sk");
        net.file("servers/FS1/SYS/SYSTEM/CONFIG.NLM");
    }
    ServerConsolePort& console() { return net.engine.network->console(); }
    bool locked(const QString& file) {
        return net.engine.network->volumes().GetEntry("FS1", "SYS", "SYSTEM\\" + file).error ==
               neterr::kFileInUse;
    }
    QByteArray read(const QString& file) {
        QFile f(net.tree.path("network/servers/FS1/SYS/SYSTEM/" + file));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    /// Moves the virtual clock on until `done` holds (at most a virtual hour).
    bool until(const std::function<bool()>& done) {
        while (!done() && clock.elapsedMs() < 3600000)
            if (!clock.fireNext())
                break;
        return done();
    }
    VirtualClock clock;
    test::NetworkEngine net;
};

} // namespace

TEST_F(ConsoleTest, StuffkeyRunsDsRepairWhichHoldsItsLogWhileItWorks) {
    const auto load = console().LoadNLM("fs1", "stuffkey", "sys:system\\twkhc12.sk");
    ASSERT_FALSE(load.failed());
    EXPECT_TRUE(load.value);
    EXPECT_FALSE(locked("DSREPAIR.LOG")) << "DSREPAIR starts a moment later";
    ASSERT_TRUE(until([&] { return locked("DSREPAIR.LOG"); }));
    ASSERT_TRUE(until([&] { return !locked("DSREPAIR.LOG"); }));
    const QString log = QString::fromUtf8(read("DSREPAIR.LOG"));
    EXPECT_TRUE(log.contains("Server name"));
    EXPECT_TRUE(log.contains(".FS1.ACME"));
    EXPECT_TRUE(log.contains("10552.79"));
    EXPECT_TRUE(log.contains("10510.12")) << "the other server's version";
    EXPECT_TRUE(log.contains(" No ")) << "FS2's clock is out of sync";
    EXPECT_TRUE(log.contains("\r\n"));
}

TEST_F(ConsoleTest, UnloadingDsRepairReleasesTheLog) {
    EXPECT_FALSE(console().UnloadNLM("FS1", "dsrepair").value) << "not loaded";
    console().LoadNLM("FS1", "stuffkey", "sys:system\\twkhc12.sk");
    ASSERT_TRUE(until([&] { return locked("DSREPAIR.LOG"); }));
    EXPECT_TRUE(console().UnloadNLM("FS1", "DSREPAIR.NLM").value);
    EXPECT_FALSE(locked("DSREPAIR.LOG"));
    clock.advance(200);
    EXPECT_TRUE(read("DSREPAIR.LOG").isEmpty()) << "a stopped run writes no report";
}

TEST_F(ConsoleTest, RefusalsOfRightsMissingModulesAndLostConnections) {
    net.file("servers/FS2/SYS/SYSTEM/STUFFKEY.NLM");
    const auto load = console().LoadNLM("FS2", "stuffkey", "sys:system\\twkhc12.sk");
    EXPECT_FALSE(load.failed()) << "without rights the console refuses";
    EXPECT_FALSE(load.value);
    EXPECT_FALSE(console().ExecuteNCF("FS2", "twkdstrace3.ncf").value);

    QFile::remove(net.tree.path("network/servers/FS1/SYS/SYSTEM/CONFIG.NLM"));
    EXPECT_FALSE(console().LoadNLM("FS1", "config", "/o=config-twk1.txt /all /f").value);
    EXPECT_TRUE(console().LoadNLM("FS1", "monitor", QString()).value);
    EXPECT_TRUE(console().UnloadNLM("FS1", "MONITOR").value);

    EXPECT_EQ(console().ServerName("CUT").error, neterr::kObjectDisconnected);
    EXPECT_EQ(console().LoadNLM("CUT", "x", {}).error, neterr::kObjectDisconnected);
    EXPECT_EQ(net.engine.network->volumes().GetEntry("CUT", "SYS", "X").error,
              neterr::kObjectDisconnected);
    EXPECT_EQ(console().ServerName("NOBODY").error, neterr::kServerUnknown);
    EXPECT_EQ(console().ServerName("fs1").value, "FS1");
}

TEST_F(ConsoleTest, DsTraceWritesItsFileUntilTtfIsOff) {
    net.file("servers/FS1/SYS/SYSTEM/twkdstrace3.ncf", "SET DSTRACE=ON\r\nSET TTF=ON\r\n");
    net.file("servers/FS1/SYS/SYSTEM/twkdstrace0.ncf", "SET TTF=OFF\r\n");
    EXPECT_EQ(console().GetParameter("FS1", "TTF").value, "0");
    EXPECT_TRUE(console().ExecuteNCF("FS1", "twkdstrace3.ncf").value);
    EXPECT_EQ(console().GetParameter("FS1", "ttf").value, "1");
    EXPECT_TRUE(locked("DSTRACE.DBG"));
    ASSERT_TRUE(until([&] { return read("DSTRACE.DBG").size() > 300; }));
    EXPECT_TRUE(console().SetParameter("FS1", "TTF", "0").value);
    EXPECT_EQ(console().GetParameter("FS1", "TTF").value, "0");
    EXPECT_FALSE(locked("DSTRACE.DBG"));
    const QByteArray trace = read("DSTRACE.DBG");
    clock.advance(100);
    EXPECT_EQ(read("DSTRACE.DBG"), trace) << "nothing more after TTF=0";
    const QString text = QString::fromUtf8(trace);
    EXPECT_TRUE(text.contains("SYNC: Send updates to <.FS2.ACME.T.> for .[Root]. succeeded"));
    EXPECT_TRUE(text.contains("Sync - Partition .[Root]. All processed = YES."));
    EXPECT_TRUE(console().ExecuteNCF("FS1", "twkdstrace0.ncf").value);
}

TEST_F(ConsoleTest, AStuckTtfStaysOn) {
    net.describe(kNetwork + "[scenario FS2]\nttf-stuck = yes\nconsole-rights = yes\n");
    EXPECT_TRUE(console().SetParameter("FS2", "TTF", "1").value);
    console().SetParameter("FS2", "TTF", "0");
    EXPECT_EQ(console().GetParameter("FS2", "TTF").value, "1");
    EXPECT_EQ(console().GetParameter("FS2", "NOSUCH").error, neterr::kNoSuchEntry);
}

TEST_F(ConsoleTest, ConfigNlmWritesItsReportUnderTheGivenName) {
    EXPECT_TRUE(console().LoadNLM("FS1", "config", "/o=config-twk4.txt /all /f").value);
    EXPECT_TRUE(locked("config-twk4.txt"));
    ASSERT_TRUE(until([&] { return !locked("config-twk4.txt"); }));
    const QString report = QString::fromUtf8(read("config-twk4.txt"));
    EXPECT_TRUE(report.contains("Server name: FS1"));
}

TEST(ServerConsoleTexts, ScriptsAndDates) {
    EXPECT_EQ(dsRepairRunOfScript("sys:system\\twkhc12.sk"), DsRepairRun::VersionsAndTime);
    EXPECT_EQ(dsRepairRunOfScript("SYS:SYSTEM\\TWKHC4.SK"), DsRepairRun::ReplicaSync);
    EXPECT_EQ(dsRepairRunOfScript("twkhc5.sk"), DsRepairRun::ExternalReferences);
    EXPECT_EQ(dsRepairRunOfScript("other.sk"), DsRepairRun::Unknown);
    const QDateTime when(QDate(2004, 6, 22), QTime(14, 40, 50));
    EXPECT_EQ(dsRepairBannerDate(when, "US"), "Tuesday, June 22, 2004  2:40:50 pm");
    EXPECT_EQ(dsRepairBannerDate(when, "DE"), "Dienstag, 22. Juni 2004  14:40:50");
    EXPECT_EQ(dsRepairStamp(when, "US"), "06-22-2004 14:40:50");
    EXPECT_EQ(dsRepairStamp(when, "DE"), "22.06.2004 14:40:50");
}

TEST(ServerConsoleTexts, ExternalReferencesUseLineFeedsAndCountObituaries) {
    NetworkDescription d =
        parseNetworkDescription("[tree T]\n[server S]\ntree = T\n[scenario S]\nobituaries = 3\n");
    const QByteArray text = dsRepairLogText(DsRepairRun::ExternalReferences, d, d.servers[0],
                                            QDateTime::currentDateTime());
    EXPECT_FALSE(text.contains("\r\n"));
    EXPECT_TRUE(text.contains("Found: 3 total obituaries"));
    EXPECT_FALSE(text.toLower().contains("error")) << "a clean check must not mention errors";
}

TEST_F(ConsoleTest, TheScriptsMenuChoiceDecidesTheReport) {
    net.file("servers/FS1/SYS/SYSTEM/mine.sk",
             "TEXT \"LOAD DSREPAIR\"\r\nSELECT \"Check external references\"\r\n");
    console().LoadNLM("FS1", "stuffkey", "sys:system\\mine.sk");
    ASSERT_TRUE(until([&] { return read("DSREPAIR.LOG").contains("total obituaries"); }));
}

TEST_F(ConsoleTest, ADroppedConnectionComesBackWithAFileAccessAndAServerCanVanish) {
    net.describe(kNetwork + "[scenario FS1]\nconnection-drops = 1\nvanish-after-ms = 5000\n");
    EXPECT_EQ(console().GetParameter("FS1", "TTF").error, neterr::kConnectionDropped);
    EXPECT_EQ(console().GetParameter("FS1", "TTF").error, neterr::kConnectionDropped);
    net.engine.network->files().accessError("\\\\FS1\\SYS\\SYSTEM\\SYS$LOG.ERR");
    EXPECT_EQ(console().GetParameter("FS1", "TTF").value, "0");
    clock.advance(5000);
    EXPECT_EQ(console().GetParameter("FS1", "TTF").error, neterr::kServerUnknown);
    EXPECT_EQ(net.engine.network->files().accessError("\\\\FS1\\SYS\\SYSTEM\\SYS$LOG.ERR"),
              errnum::PathNotFound);
}
