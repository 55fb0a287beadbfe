#include "directory/Connections.h"
#include "DirectoryTestSupport.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace twk;

namespace {

ConnRefInfo ref(const QString& server, int state, int transport, const QByteArray& address) {
    return ConnRefInfo{state, 0, server, "ACME_TREE", 0, transport, address};
}

const QByteArray kIp = QByteArray::fromHex("0A0A010B");
const QByteArray kIpx = QByteArray::fromHex("0A0B0C0D00A0C91234560451");

/// An engine on a fake network whose server list shows one chosen server.
class Connections : public ::testing::Test, public test::FakeNetworkEngine {
protected:
    void chooseServer(const QString& server) {
        engine.view.cbServer.items = {server};
        engine.view.cbServer.ListIndex = 0;
    }
    QString traceText() {
        QFile file(engine.trace.path());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QString::fromUtf8(file.readAll());
    }
    const std::vector<ConnectionInfo>& table() { return engine.directory.connections; }
};

} // namespace

TEST(ConnectionTexts, AuthenticationProtocolAndAddress) {
    const char* states[] = {"Not Authenticated", "Bindery", "Directory Services",
                            " ??? (perplexed)"};
    for (int state = -1; state <= 3; ++state)
        EXPECT_EQ(authenticationText(state), states[state < 0 ? 3 : state]) << state;
    EXPECT_EQ(protocolText(kTransportIpx), "IPX");
    EXPECT_EQ(protocolText(kTransportIp), "IP");
    EXPECT_EQ(protocolText(2), "???");

    EXPECT_EQ(addressText(ref({}, 0, kTransportIp, kIp)), "10.10.1.11");
    EXPECT_EQ(addressText(ref({}, 0, kTransportIpx, kIpx)), "0A0B0C0D:00A0C9123456:0451");
    EXPECT_EQ(
        addressText(ref({}, 0, kTransportIpx, QByteArray::fromHex("000000010000000000010001"))),
        "00000001:000000000001:0001")
        << "every byte as two digits";
    EXPECT_EQ(addressText(ref({}, 0, kTransportIp, QByteArray("\x01\x02", 2))), "???");
    EXPECT_EQ(addressText(ref({}, 0, 7, kIp)), "???");
}

TEST_F(Connections, GetConnectionsFillsRowsFromTheClient) {
    net->connectedTrees = {"ACME_TREE"};
    net->refs = {ref("FS1", 2, kTransportIp, kIp), ref("FS2", 1, kTransportIpx, kIpx),
                 ref("FS3", 3, 0, {}), ref("FS4", 0, kTransportIp, kIp)};
    engine.directory.connections[5].Server = "OLD ROW";
    GetConnections(engine);
    const auto& t = table();
    ASSERT_EQ(t.size(), 300u);
    EXPECT_EQ(t[0].Server, "FS1");
    EXPECT_EQ(t[0].User, "ADMIN.ACME");
    EXPECT_EQ(t[0].ConnectionHandle, 101);
    EXPECT_EQ(t[0].Authentication, "Directory Services");
    EXPECT_EQ(t[0].Tree, "ACME_TREE");
    EXPECT_EQ(t[0].Protocol, "IP");
    EXPECT_EQ(t[0].Address, "10.10.1.11");
    EXPECT_EQ(t[1].User, "SUPERVISOR") << "a bindery user by its object name";
    EXPECT_EQ(t[1].Address, "0A0B0C0D:00A0C9123456:0451");
    EXPECT_EQ(t[2].Authentication, " ??? (perplexed)");
    EXPECT_EQ(t[2].Server, "FS3") << "an unknown state is kept";
    EXPECT_EQ(t[2].Protocol, "???");
    EXPECT_EQ(t[3].Authentication, "Not Authenticated");
    EXPECT_TRUE(t[3].User.isEmpty());
    EXPECT_TRUE(t[4].Server.isEmpty());
    EXPECT_EQ(t[4].ConnectionHandle, -1);
    EXPECT_TRUE(t[5].Server.isEmpty()) << "the table is cleared first";
    EXPECT_EQ(net->closed, 4);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Connections, ConnectionsBeyondThreeHundredAreIgnored) {
    for (int i = 0; i < 305; ++i)
        net->refs.push_back(ref(QStringLiteral("S%1").arg(i + 1), 2, kTransportIp, kIp));
    GetConnections(engine);
    ASSERT_EQ(table().size(), 300u);
    EXPECT_EQ(table()[299].Server, "S300");
    for (const auto& row : table())
        EXPECT_NE(row.Server, "S301");
}

TEST_F(Connections, FailuresOfTheDirectoryContextAreShownAndTheScanGoesOn) {
    net->contextCode = -322;
    net->refs = {ref("FS1", 1, kTransportIp, kIp)};
    GetConnections(engine);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "NWDSCreateContextHandle failed, E=-322");
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Critical);
    EXPECT_EQ(table()[0].Server, "FS1");

    net->contextCode = 0;
    net->scanTreesCode = 35065;
    GetConnections(engine);
    ASSERT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(ui.messages[1].text, "NWDSScanConnsForTrees failed, E=35065");
}

TEST_F(Connections, DebugModeWritesEveryFilledRow) {
    engine.DebugMode = true;
    net->refs = {ref("FS1", 0, kTransportIp, kIp)};
    GetConnections(engine);
    EXPECT_EQ(traceText(), "Server: FS1\r\nUser: \r\nConnectionHandle: 101\r\n"
                           "Authentication: Not Authenticated\r\nTree: ACME_TREE\r\n"
                           "Protocol: IP\r\nAddress: 10.10.1.11\r\n");
}

TEST_F(Connections, CallsInitFailureShowsItsCode) {
    EXPECT_TRUE(NwDLLCallsInit(engine));
    EXPECT_TRUE(ui.messages.empty());
    net->initCode = 34817;
    EXPECT_FALSE(NwDLLCallsInit(engine));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "NWCallsInit() FAILED!     \rretCode: 34817");
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Critical);
    EXPECT_EQ(ui.messages[0].title, " Tarnwick");
}

TEST_F(Connections, ServerHandleFindsTheRowBlindToCase) {
    engine.directory.connections[7].Server = "fs1";
    engine.directory.connections[7].ConnectionHandle = 42;
    chooseServer(" Fs1  ");
    EXPECT_TRUE(GetServerConnectionHandle(engine));
    EXPECT_EQ(engine.directory.ServerConnectionHandle, 42);
    EXPECT_EQ(engine.directory.ServerConnectionServer, "FS1");
    EXPECT_EQ(net->touches, 0);
}

TEST_F(Connections, ServerHandleThreeTouchesAndThreeWaitsOfFourteenSecondsThenFailure) {
    engine.DebugMode = true;
    chooseServer("FS1");
    std::vector<std::int64_t> touchedAt;
    net->onTouch = [&](const QString& server) {
        EXPECT_EQ(server, "FS1");
        touchedAt.push_back(fast.now);
    };
    EXPECT_FALSE(GetServerConnectionHandle(engine));
    EXPECT_EQ(net->touches, 3);
    ASSERT_EQ(touchedAt.size(), 3u);
    EXPECT_GE(touchedAt[1] - touchedAt[0], 14000);
    EXPECT_GE(touchedAt[2] - touchedAt[1], 14000);
    EXPECT_LT(touchedAt[1] - touchedAt[0], 14000 + 3 * fast.stepMs) << "whole seconds, not more";
    EXPECT_EQ(ui.shownWaitForms, std::vector<QString>(3, "Authenticate Server Connection..."));
    EXPECT_EQ(ui.hidden, 3);
    EXPECT_EQ(engine.directory.ServerConnectionHandle, -1);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "Server Connection     \rFAILED!");
    EXPECT_EQ(ui.messages[0].title, " Authenticate Server Connection");
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Critical);
    const QString lines = traceText();
    EXPECT_TRUE(lines.contains("GetServerConnectionHandle Retry1\r\n"));
    EXPECT_TRUE(lines.contains("GetServerConnectionHandle Retry3\r\n"));
    EXPECT_TRUE(
        lines.endsWith("FAILED 3 Authentication Requests - GetServerConnectionHandle=FALSE\r\n"));
}

TEST_F(Connections, ServerHandleATouchThatCannotStartFailsAtOnce) {
    engine.DebugMode = true;
    chooseServer("FS1");
    net->touchStarts = false;
    EXPECT_FALSE(GetServerConnectionHandle(engine));
    EXPECT_EQ(net->touches, 1);
    EXPECT_TRUE(ui.shownWaitForms.empty());
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "Server Connection     \rFAILED!");
    EXPECT_EQ(traceText(), "Shell Process FAILED - GetServerConnectionHandle=FALSE\r\n");
}

TEST(GetServerConnectionHandle, OnTheNetworkFolderATouchLogsTheUserIn) {
    test::NetworkEngine net;
    net.describe("[tree T]\nlogged-in = yes\nuser = ADMIN.ACME\n"
                 "[server FS2]\ntree = T\nversion = NetWare\naddress = 10.0.0.2\n"
                 "[server LOCKED]\ntree = T\nlogin = no\n");
    net.engine.view.cbServer.items = {"fs2", "LOCKED"};
    net.engine.view.cbServer.ListIndex = 0;
    GetConnections(net.engine);
    const auto& row = net.engine.directory.connections[0];
    EXPECT_TRUE(row.Server.isEmpty());
    EXPECT_TRUE(GetServerConnectionHandle(net.engine));
    EXPECT_EQ(net.ui.shownWaitForms.size(), 1u) << "found after the first touch and wait";
    EXPECT_EQ(row.Server, "FS2");
    EXPECT_EQ(row.Authentication, "Directory Services");
    EXPECT_EQ(row.User, "ADMIN.ACME");
    EXPECT_EQ(net.engine.directory.ServerConnectionHandle, row.ConnectionHandle);

    net.engine.view.cbServer.ListIndex = 1;
    EXPECT_FALSE(GetServerConnectionHandle(net.engine)) << "a server that refuses logins";
    EXPECT_EQ(net.ui.shownWaitForms.size(), 4u);

    useNetworkFolder(net.engine, net.tree.path("no-such-folder"));
    EXPECT_FALSE(GetServerConnectionHandle(net.engine)) << "a missing folder cannot be touched";
    EXPECT_EQ(net.ui.shownWaitForms.size(), 4u);
}

TEST_F(Connections, ShowWaitFormWaitsWholeSecondsByTheClockWithTheEventLoopRunning) {
    fast.stepMs = 100;
    const int yieldsBefore = ui.yields;
    const std::int64_t start = fast.now;
    ShowWaitForm(engine, "wait...", 2);
    EXPECT_GE(fast.now - start, 2000);
    EXPECT_LE(fast.now - start, 2300);
    EXPECT_GE(ui.yields - yieldsBefore, 19);
    EXPECT_EQ(ui.shownWaitForms, std::vector<QString>{"wait..."});
    EXPECT_EQ(ui.hidden, 1);
    EXPECT_TRUE(engine.directory.waitFormMessage.isEmpty());
}
