#include "DirectoryTestSupport.h"
#include "directory/ServerConsoleTexts.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace twk;

namespace {

const QByteArray kNetwork = R"([tree T]
logged-in = yes
[server FS1]
tree = T
context = ACME
version = Novell NetWare 5.70.03
volumes = SYS
replica = [Root] | Master | On | x
[server FS2]
tree = T
context = ACME
version = Novell NetWare 5.00.09
volumes = SYS
replica = [Root] | Read/Write | On | x
[scenario FS1]
dsrepair-start-ms = 10
dsrepair-run-ms = 120
trace-interval-ms = 20
config-run-ms = 40
[scenario FS2]
ds-version = 10510.12
time-in-sync = no
console-rights = no
[server CUT]
tree = T
[scenario CUT]
disconnected = yes
)";

class ConsoleTest : public ::testing::Test {
protected:
    void SetUp() override {
        net.describe(kNetwork);
        net.file(QStringLiteral("servers/FS1/SYS/SYSTEM/STUFFKEY.NLM"));
        net.file(QStringLiteral("servers/FS1/SYS/SYSTEM/twkhc12.sk"));
        net.file(QStringLiteral("servers/FS1/SYS/SYSTEM/CONFIG.NLM"));
    }
    ServerConsolePort& console() { return net.engine.network->console(); }
    bool locked(const QString& file) {
        return net.engine.network->volumes()
                   .GetEntry(QStringLiteral("FS1"), QStringLiteral("SYS"),
                             QStringLiteral("SYSTEM\\") + file)
                   .error == neterr::kFileInUse;
    }
    QByteArray read(const QString& file) {
        QFile f(net.tree.path(QStringLiteral("network/servers/FS1/SYS/SYSTEM/") + file));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    test::NetworkEngine net;
};

} // namespace

TEST_F(ConsoleTest, StuffkeyRunsDsRepairWhichHoldsItsLogWhileItWorks) {
    const auto load = console().LoadNLM(QStringLiteral("fs1"), QStringLiteral("stuffkey"),
                                        QStringLiteral("sys:system\\twkhc12.sk"));
    ASSERT_FALSE(load.failed());
    EXPECT_TRUE(load.value);
    EXPECT_FALSE(locked(QStringLiteral("DSREPAIR.LOG"))) << "DSREPAIR starts a moment later";
    ASSERT_TRUE(test::runEventsUntil([&] { return locked(QStringLiteral("DSREPAIR.LOG")); }));
    ASSERT_TRUE(test::runEventsUntil([&] { return !locked(QStringLiteral("DSREPAIR.LOG")); }));
    const QString log = QString::fromUtf8(read(QStringLiteral("DSREPAIR.LOG")));
    EXPECT_TRUE(log.contains(QStringLiteral("Server name")));
    EXPECT_TRUE(log.contains(QStringLiteral(".FS1.ACME")));
    EXPECT_TRUE(log.contains(QStringLiteral("10552.79")));
    EXPECT_TRUE(log.contains(QStringLiteral("10510.12"))) << "the other server's version";
    EXPECT_TRUE(log.contains(QStringLiteral(" No "))) << "FS2's clock is out of sync";
    EXPECT_TRUE(log.contains(QStringLiteral("\r\n")));
}

TEST_F(ConsoleTest, UnloadingDsRepairReleasesTheLog) {
    EXPECT_FALSE(console().UnloadNLM(QStringLiteral("FS1"), QStringLiteral("dsrepair")).value)
        << "not loaded";
    console().LoadNLM(QStringLiteral("FS1"), QStringLiteral("stuffkey"),
                      QStringLiteral("sys:system\\twkhc12.sk"));
    ASSERT_TRUE(test::runEventsUntil([&] { return locked(QStringLiteral("DSREPAIR.LOG")); }));
    EXPECT_TRUE(console().UnloadNLM(QStringLiteral("FS1"), QStringLiteral("DSREPAIR.NLM")).value);
    EXPECT_FALSE(locked(QStringLiteral("DSREPAIR.LOG")));
    test::runEventsFor(200);
    EXPECT_TRUE(read(QStringLiteral("DSREPAIR.LOG")).isEmpty()) << "a stopped run writes no report";
}

TEST_F(ConsoleTest, WithoutRightsTheConsoleRefuses) {
    net.file(QStringLiteral("servers/FS2/SYS/SYSTEM/STUFFKEY.NLM"));
    const auto load = console().LoadNLM(QStringLiteral("FS2"), QStringLiteral("stuffkey"),
                                        QStringLiteral("sys:system\\twkhc12.sk"));
    EXPECT_FALSE(load.failed());
    EXPECT_FALSE(load.value);
    EXPECT_FALSE(
        console().ExecuteNCF(QStringLiteral("FS2"), QStringLiteral("twkdstrace3.ncf")).value);
}

TEST_F(ConsoleTest, AMissingModuleIsNotLoaded) {
    QFile::remove(net.tree.path(QStringLiteral("network/servers/FS1/SYS/SYSTEM/CONFIG.NLM")));
    EXPECT_FALSE(console()
                     .LoadNLM(QStringLiteral("FS1"), QStringLiteral("config"),
                              QStringLiteral("/o=config-twk1.txt /all /f"))
                     .value);
    EXPECT_TRUE(
        console().LoadNLM(QStringLiteral("FS1"), QStringLiteral("monitor"), QString()).value);
    EXPECT_TRUE(console().UnloadNLM(QStringLiteral("FS1"), QStringLiteral("MONITOR")).value);
}

TEST_F(ConsoleTest, ALostConnectionFailsEveryCallWithTheAutomationError) {
    EXPECT_EQ(console().ServerName(QStringLiteral("CUT")).error, neterr::kObjectDisconnected);
    EXPECT_EQ(console().LoadNLM(QStringLiteral("CUT"), QStringLiteral("x"), {}).error,
              neterr::kObjectDisconnected);
    EXPECT_EQ(net.engine.network->volumes()
                  .GetEntry(QStringLiteral("CUT"), QStringLiteral("SYS"), QStringLiteral("X"))
                  .error,
              neterr::kObjectDisconnected);
    EXPECT_EQ(console().ServerName(QStringLiteral("NOBODY")).error, neterr::kServerUnknown);
    EXPECT_EQ(console().ServerName(QStringLiteral("fs1")).value, QStringLiteral("FS1"));
}

TEST_F(ConsoleTest, DsTraceWritesItsFileUntilTtfIsOff) {
    net.file(QStringLiteral("servers/FS1/SYS/SYSTEM/twkdstrace3.ncf"),
             "SET DSTRACE=ON\r\nSET TTF=ON\r\n");
    net.file(QStringLiteral("servers/FS1/SYS/SYSTEM/twkdstrace0.ncf"), "SET TTF=OFF\r\n");
    EXPECT_EQ(console().GetParameter(QStringLiteral("FS1"), QStringLiteral("TTF")).value,
              QStringLiteral("0"));
    EXPECT_TRUE(
        console().ExecuteNCF(QStringLiteral("FS1"), QStringLiteral("twkdstrace3.ncf")).value);
    EXPECT_EQ(console().GetParameter(QStringLiteral("FS1"), QStringLiteral("ttf")).value,
              QStringLiteral("1"));
    EXPECT_TRUE(locked(QStringLiteral("DSTRACE.DBG")));
    ASSERT_TRUE(
        test::runEventsUntil([&] { return read(QStringLiteral("DSTRACE.DBG")).size() > 300; }));
    EXPECT_TRUE(console()
                    .SetParameter(QStringLiteral("FS1"), QStringLiteral("TTF"), QStringLiteral("0"))
                    .value);
    EXPECT_EQ(console().GetParameter(QStringLiteral("FS1"), QStringLiteral("TTF")).value,
              QStringLiteral("0"));
    EXPECT_FALSE(locked(QStringLiteral("DSTRACE.DBG")));
    const QByteArray trace = read(QStringLiteral("DSTRACE.DBG"));
    test::runEventsFor(100);
    EXPECT_EQ(read(QStringLiteral("DSTRACE.DBG")), trace) << "nothing more after TTF=0";
    const QString text = QString::fromUtf8(trace);
    EXPECT_TRUE(text.contains(
        QStringLiteral("SYNC: Send updates to <.FS2.ACME.T.> for .[Root]. succeeded")));
    EXPECT_TRUE(text.contains(QStringLiteral("Sync - Partition .[Root]. All processed = YES.")));
    EXPECT_TRUE(
        console().ExecuteNCF(QStringLiteral("FS1"), QStringLiteral("twkdstrace0.ncf")).value);
}

TEST_F(ConsoleTest, AStuckTtfStaysOn) {
    net.describe(kNetwork + "[scenario FS2]\nttf-stuck = yes\nconsole-rights = yes\n");
    EXPECT_TRUE(console()
                    .SetParameter(QStringLiteral("FS2"), QStringLiteral("TTF"), QStringLiteral("1"))
                    .value);
    console().SetParameter(QStringLiteral("FS2"), QStringLiteral("TTF"), QStringLiteral("0"));
    EXPECT_EQ(console().GetParameter(QStringLiteral("FS2"), QStringLiteral("TTF")).value,
              QStringLiteral("1"));
    EXPECT_EQ(console().GetParameter(QStringLiteral("FS2"), QStringLiteral("NOSUCH")).error,
              neterr::kNoSuchEntry);
}

TEST_F(ConsoleTest, ConfigNlmWritesItsReportUnderTheGivenName) {
    EXPECT_TRUE(console()
                    .LoadNLM(QStringLiteral("FS1"), QStringLiteral("config"),
                             QStringLiteral("/o=config-twk4.txt /all /f"))
                    .value);
    EXPECT_TRUE(locked(QStringLiteral("config-twk4.txt")));
    ASSERT_TRUE(test::runEventsUntil([&] { return !locked(QStringLiteral("config-twk4.txt")); }));
    const QString report = QString::fromUtf8(read(QStringLiteral("config-twk4.txt")));
    EXPECT_TRUE(report.contains(QStringLiteral("Server name: FS1")));
}

TEST(ServerConsoleTexts, ScriptsAndDates) {
    EXPECT_EQ(dsRepairRunOfScript(QStringLiteral("sys:system\\twkhc12.sk")),
              DsRepairRun::VersionsAndTime);
    EXPECT_EQ(dsRepairRunOfScript(QStringLiteral("SYS:SYSTEM\\TWKHC4.SK")),
              DsRepairRun::ReplicaSync);
    EXPECT_EQ(dsRepairRunOfScript(QStringLiteral("twkhc5.sk")), DsRepairRun::ExternalReferences);
    EXPECT_EQ(dsRepairRunOfScript(QStringLiteral("other.sk")), DsRepairRun::Unknown);
    const QDateTime when(QDate(2004, 6, 22), QTime(14, 40, 50));
    EXPECT_EQ(dsRepairBannerDate(when, QStringLiteral("US")),
              QStringLiteral("Tuesday, June 22, 2004  2:40:50 pm"));
    EXPECT_EQ(dsRepairBannerDate(when, QStringLiteral("DE")),
              QStringLiteral("Dienstag, 22. Juni 2004  14:40:50"));
    EXPECT_EQ(dsRepairStamp(when, QStringLiteral("US")), QStringLiteral("06-22-2004 14:40:50"));
    EXPECT_EQ(dsRepairStamp(when, QStringLiteral("DE")), QStringLiteral("22.06.2004 14:40:50"));
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
