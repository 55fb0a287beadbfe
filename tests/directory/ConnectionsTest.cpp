#include "directory/Connections.h"
#include "DirectoryTestSupport.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace twk;

namespace {

ConnRefInfo ref(const QString& server, int state, int transport, const QByteArray& address,
                const QString& tree = QStringLiteral("ACME_TREE")) {
    ConnRefInfo info;
    info.serverName = server;
    info.authenticationState = state;
    info.transportType = transport;
    info.address = address;
    info.treeName = tree;
    return info;
}

const QByteArray kIp = QByteArray::fromHex("0A0A010B");
const QByteArray kIpx = QByteArray::fromHex("0A0B0C0D00A0C91234560451");

} // namespace

TEST(ConnectionTexts, AuthenticationProtocolAndAddress) {
    EXPECT_EQ(authenticationText(0), QStringLiteral("Not Authenticated"));
    EXPECT_EQ(authenticationText(1), QStringLiteral("Bindery"));
    EXPECT_EQ(authenticationText(2), QStringLiteral("Directory Services"));
    EXPECT_EQ(authenticationText(3), QStringLiteral(" ??? (perplexed)"));
    EXPECT_EQ(authenticationText(-1), QStringLiteral(" ??? (perplexed)"));
    EXPECT_EQ(protocolText(kTransportIpx), QStringLiteral("IPX"));
    EXPECT_EQ(protocolText(kTransportIp), QStringLiteral("IP"));
    EXPECT_EQ(protocolText(2), QStringLiteral("???"));

    EXPECT_EQ(addressText(ref({}, 0, kTransportIp, kIp)), QStringLiteral("10.10.1.11"));
    EXPECT_EQ(addressText(ref({}, 0, kTransportIpx, kIpx)),
              QStringLiteral("0A0B0C0D:00A0C9123456:0451"));
    EXPECT_EQ(
        addressText(ref({}, 0, kTransportIpx, QByteArray::fromHex("000000010000000000010001"))),
        QStringLiteral("00000001:000000000001:0001"))
        << "every byte as two digits";
    EXPECT_EQ(addressText(ref({}, 0, kTransportIp, QByteArray("\x01\x02", 2))),
              QStringLiteral("???"));
    EXPECT_EQ(addressText(ref({}, 0, 7, kIp)), QStringLiteral("???"));
}

TEST(GetConnections, FillsRowsFromTheClient) {
    test::FakeNetworkEngine f;
    f.net->connectedTrees = {QStringLiteral("ACME_TREE")};
    f.net->whoAmI = QStringLiteral("ADMIN.ACME");
    f.net->refs = {ref(QStringLiteral("FS1"), 2, kTransportIp, kIp),
                   ref(QStringLiteral("FS2"), 1, kTransportIpx, kIpx),
                   ref(QStringLiteral("FS3"), 3, 0, {}),
                   ref(QStringLiteral("FS4"), 0, kTransportIp, kIp)};
    f.engine.directory.connections[5].Server = QStringLiteral("OLD ROW");
    GetConnections(f.engine);
    const auto& t = f.engine.directory.connections;
    ASSERT_EQ(t.size(), 300u);
    EXPECT_EQ(t[0].Server, QStringLiteral("FS1"));
    EXPECT_EQ(t[0].User, QStringLiteral("ADMIN.ACME"));
    EXPECT_EQ(t[0].ConnectionHandle, 101);
    EXPECT_EQ(t[0].Authentication, QStringLiteral("Directory Services"));
    EXPECT_EQ(t[0].Tree, QStringLiteral("ACME_TREE"));
    EXPECT_EQ(t[0].Protocol, QStringLiteral("IP"));
    EXPECT_EQ(t[0].Address, QStringLiteral("10.10.1.11"));
    EXPECT_EQ(t[1].User, QStringLiteral("SUPERVISOR")) << "a bindery user by its object name";
    EXPECT_EQ(t[1].Address, QStringLiteral("0A0B0C0D:00A0C9123456:0451"));
    EXPECT_EQ(t[2].Authentication, QStringLiteral(" ??? (perplexed)"));
    EXPECT_EQ(t[2].Server, QStringLiteral("FS3")) << "an unknown state is kept";
    EXPECT_EQ(t[2].Protocol, QStringLiteral("???"));
    EXPECT_EQ(t[3].Authentication, QStringLiteral("Not Authenticated"));
    EXPECT_TRUE(t[3].User.isEmpty());
    EXPECT_TRUE(t[4].Server.isEmpty());
    EXPECT_EQ(t[4].ConnectionHandle, -1);
    EXPECT_TRUE(t[5].Server.isEmpty()) << "the table is cleared first";
    EXPECT_EQ(f.net->closed, 4);
    EXPECT_TRUE(f.ui.messages.empty());
}

TEST(GetConnections, ConnectionsBeyondThreeHundredAreIgnored) {
    test::FakeNetworkEngine f;
    for (int i = 0; i < 305; ++i)
        f.net->refs.push_back(ref(QStringLiteral("S%1").arg(i + 1), 2, kTransportIp, kIp));
    GetConnections(f.engine);
    const auto& t = f.engine.directory.connections;
    ASSERT_EQ(t.size(), 300u);
    EXPECT_EQ(t[299].Server, QStringLiteral("S300"));
    for (const auto& row : t)
        EXPECT_NE(row.Server, QStringLiteral("S301"));
}

TEST(GetConnections, FailuresOfTheDirectoryContextAreShownAndTheScanGoesOn) {
    test::FakeNetworkEngine f;
    f.net->contextCode = -322;
    f.net->refs = {ref(QStringLiteral("FS1"), 1, kTransportIp, kIp)};
    GetConnections(f.engine);
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.ui.messages[0].text, QStringLiteral("NWDSCreateContextHandle failed, E=-322"));
    EXPECT_EQ(f.ui.messages[0].icon, MsgIcon::Critical);
    EXPECT_EQ(f.engine.directory.connections[0].Server, QStringLiteral("FS1"));

    test::FakeNetworkEngine g;
    g.net->scanTreesCode = 35065;
    GetConnections(g.engine);
    ASSERT_EQ(g.ui.messages.size(), 1u);
    EXPECT_EQ(g.ui.messages[0].text, QStringLiteral("NWDSScanConnsForTrees failed, E=35065"));
}

TEST(GetConnections, DebugModeWritesEveryFilledRow) {
    test::FakeNetworkEngine f;
    f.engine.DebugMode = true;
    f.net->refs = {ref(QStringLiteral("FS1"), 0, kTransportIp, kIp)};
    GetConnections(f.engine);
    QFile file(f.engine.trace.path());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()),
              QStringLiteral("Server: FS1\r\nUser: \r\nConnectionHandle: 101\r\n"
                             "Authentication: Not Authenticated\r\nTree: ACME_TREE\r\n"
                             "Protocol: IP\r\nAddress: 10.10.1.11\r\n"));
}

TEST(NwDLLCallsInit, AFailureShowsItsCode) {
    test::FakeNetworkEngine f;
    EXPECT_TRUE(NwDLLCallsInit(f.engine));
    EXPECT_TRUE(f.ui.messages.empty());
    f.net->initCode = 34817;
    EXPECT_FALSE(NwDLLCallsInit(f.engine));
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.ui.messages[0].text, QStringLiteral("NWCallsInit() FAILED!     \rretCode: 34817"));
    EXPECT_EQ(f.ui.messages[0].icon, MsgIcon::Critical);
    EXPECT_EQ(f.ui.messages[0].title, QStringLiteral(" Tarnwick"));
}

TEST(GetServerConnectionHandle, FindsTheRowBlindToCase) {
    test::FakeNetworkEngine f;
    f.engine.directory.connections[7].Server = QStringLiteral("fs1");
    f.engine.directory.connections[7].ConnectionHandle = 42;
    f.engine.view.cbServer.items = {QStringLiteral(" Fs1  ")};
    f.engine.view.cbServer.ListIndex = 0;
    EXPECT_TRUE(GetServerConnectionHandle(f.engine));
    EXPECT_EQ(f.engine.directory.ServerConnectionHandle, 42);
    EXPECT_EQ(f.engine.directory.ServerConnectionServer, QStringLiteral("FS1"));
    EXPECT_EQ(f.net->touches, 0);
}

TEST(GetServerConnectionHandle, ThreeTouchesAndThreeWaitsOfFourteenSecondsThenFailure) {
    test::FakeNetworkEngine f;
    f.engine.DebugMode = true;
    f.engine.view.cbServer.items = {QStringLiteral("FS1")};
    f.engine.view.cbServer.ListIndex = 0;
    std::vector<std::int64_t> touchedAt;
    f.net->onTouch = [&](const QString& server) {
        EXPECT_EQ(server, QStringLiteral("FS1"));
        touchedAt.push_back(f.fast.now);
    };
    EXPECT_FALSE(GetServerConnectionHandle(f.engine));
    EXPECT_EQ(f.net->touches, 3);
    ASSERT_EQ(touchedAt.size(), 3u);
    EXPECT_GE(touchedAt[1] - touchedAt[0], 14000);
    EXPECT_GE(touchedAt[2] - touchedAt[1], 14000);
    EXPECT_LT(touchedAt[1] - touchedAt[0], 14000 + 3 * f.fast.stepMs) << "whole seconds, not more";
    EXPECT_EQ(f.ui.shownWaitForms,
              std::vector<QString>(3, QStringLiteral("Authenticate Server Connection...")));
    EXPECT_EQ(f.ui.hidden, 3);
    EXPECT_EQ(f.engine.directory.ServerConnectionHandle, -1);
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.ui.messages[0].text, QStringLiteral("Server Connection     \rFAILED!"));
    EXPECT_EQ(f.ui.messages[0].title, QStringLiteral(" Authenticate Server Connection"));
    EXPECT_EQ(f.ui.messages[0].icon, MsgIcon::Critical);
    QFile trace(f.engine.trace.path());
    ASSERT_TRUE(trace.open(QIODevice::ReadOnly));
    const QString lines = QString::fromUtf8(trace.readAll());
    EXPECT_TRUE(lines.contains(QStringLiteral("GetServerConnectionHandle Retry1\r\n")));
    EXPECT_TRUE(lines.contains(QStringLiteral("GetServerConnectionHandle Retry3\r\n")));
    EXPECT_TRUE(lines.endsWith(
        QStringLiteral("FAILED 3 Authentication Requests - GetServerConnectionHandle=FALSE\r\n")));
}

TEST(GetServerConnectionHandle, ATouchThatCannotStartFailsAtOnce) {
    test::FakeNetworkEngine f;
    f.engine.DebugMode = true;
    f.engine.view.cbServer.items = {QStringLiteral("FS1")};
    f.engine.view.cbServer.ListIndex = 0;
    f.net->touchStarts = false;
    EXPECT_FALSE(GetServerConnectionHandle(f.engine));
    EXPECT_EQ(f.net->touches, 1);
    EXPECT_TRUE(f.ui.shownWaitForms.empty());
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.ui.messages[0].text, QStringLiteral("Server Connection     \rFAILED!"));
    QFile trace(f.engine.trace.path());
    ASSERT_TRUE(trace.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(trace.readAll()),
              QStringLiteral("Shell Process FAILED - GetServerConnectionHandle=FALSE\r\n"));
}

TEST(GetServerConnectionHandle, OnTheNetworkFolderATouchLogsTheUserIn) {
    test::NetworkEngine net;
    net.describe("[tree T]\nlogged-in = yes\nuser = ADMIN.ACME\n"
                 "[server FS2]\ntree = T\nversion = NetWare\naddress = 10.0.0.2\n"
                 "[server LOCKED]\ntree = T\nlogin = no\n");
    net.engine.view.cbServer.items = {QStringLiteral("fs2"), QStringLiteral("LOCKED")};
    net.engine.view.cbServer.ListIndex = 0;
    GetConnections(net.engine);
    EXPECT_TRUE(net.engine.directory.connections[0].Server.isEmpty());
    EXPECT_TRUE(GetServerConnectionHandle(net.engine));
    EXPECT_EQ(net.ui.shownWaitForms.size(), 1u) << "found after the first touch and wait";
    EXPECT_EQ(net.engine.directory.connections[0].Server, QStringLiteral("FS2"));
    EXPECT_EQ(net.engine.directory.connections[0].Authentication,
              QStringLiteral("Directory Services"));
    EXPECT_EQ(net.engine.directory.connections[0].User, QStringLiteral("ADMIN.ACME"));
    EXPECT_EQ(net.engine.directory.ServerConnectionHandle,
              net.engine.directory.connections[0].ConnectionHandle);

    net.engine.view.cbServer.ListIndex = 1;
    EXPECT_FALSE(GetServerConnectionHandle(net.engine)) << "a server that refuses logins";
    EXPECT_EQ(net.ui.shownWaitForms.size(), 4u);
}

TEST(GetServerConnectionHandle, AMissingNetworkFolderCannotBeTouched) {
    test::NetworkEngine net;
    useNetworkFolder(net.engine, net.tree.path(QStringLiteral("no-such-folder")));
    net.engine.view.cbServer.items = {QStringLiteral("FS1")};
    net.engine.view.cbServer.ListIndex = 0;
    EXPECT_FALSE(GetServerConnectionHandle(net.engine));
    EXPECT_TRUE(net.ui.shownWaitForms.empty());
}

TEST(ShowWaitForm, WaitsWholeSecondsByTheClockWithTheEventLoopRunning) {
    test::FakeNetworkEngine f;
    f.fast.stepMs = 100;
    const int yieldsBefore = f.ui.yields;
    const std::int64_t start = f.fast.now;
    ShowWaitForm(f.engine, QStringLiteral("wait..."), 2);
    EXPECT_GE(f.fast.now - start, 2000);
    EXPECT_LE(f.fast.now - start, 2300);
    EXPECT_GE(f.ui.yields - yieldsBefore, 19);
    EXPECT_EQ(f.ui.shownWaitForms, std::vector<QString>{QStringLiteral("wait...")});
    EXPECT_EQ(f.ui.hidden, 1);
    EXPECT_TRUE(f.engine.directory.waitFormMessage.isEmpty());
}
