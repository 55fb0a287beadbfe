#include "directory/TreeDiscovery.h"
#include "DirectoryTestSupport.h"
#include "core/Startup.h"
#include "directory/Connections.h"

#include <gtest/gtest.h>

using namespace twk;

namespace {

QString versionByName(const QString& fullName) {
    if (fullName.endsWith("NW"))
        return "Novell NetWare 5.70.03[DS]";
    if (fullName.endsWith("LX"))
        return "Novell Open Enterprise Server for Linux";
    if (fullName.endsWith("WIN"))
        return "eDirectory for Windows NT";
    return "something else";
}

/// An engine on a fake network, with the steps of a scan as helpers.
class Discovery : public ::testing::Test, public test::FakeNetworkEngine {
protected:
    MainView& v = engine.view;

    void treeContext(const QString& value) {
        tree.write("app/twk.ini", ("; start contexts\n[TreeContext]\nTreeContext=" + value +
                                   "\n[RealtimeMonitor]\n")
                                      .toUtf8());
    }
    QString registryValue(const QString& key, const QString& value) {
        return engine.registry.Reg_GetValue(Hive::CurrentUser, "Software\\Brindlex\\TWK\\" + key,
                                            value);
    }
    void chooseServer(const QString& server) {
        v.cbServer.items = {server};
        v.cbServer.ListIndex = 0;
    }
    /// Runs a server search with the results the fake hands over.
    void serversFound(const SearchResults& results) {
        net->nextResults = results;
        GetServers(engine);
        ASSERT_FALSE(engine.ScanFinished);
        ASSERT_TRUE(test::runEventsUntil([&] { return engine.ScanFinished; }));
    }
    void volumesFound(const SearchResults& results) {
        net->nextResults = results;
        GetVolumes(engine);
        ASSERT_TRUE(test::runEventsUntil([&] { return engine.ScanFinished; }));
    }
};
using StartContext = Discovery;
using GetTreesTest = Discovery;
using ServerSearch = Discovery;
using VolumeSearch = Discovery;

} // namespace

// ---------------------------------------------------------------- start contexts

TEST_F(StartContext, TheStoredContextIsTheFirstEntryWhenValid) {
    EXPECT_FALSE(StartContextDefined(engine)) << "no twk.ini";
    EXPECT_TRUE(ReadNDSContext(engine).isEmpty());
    const struct {
        const char* ini;
        bool defined;
        const char* context;
    } cases[] = {{"", false, ""},
                 {"NDS:\\\\ACME_TREE\\ACME,NDS:\\\\OTHER", true, "NDS:\\\\ACME_TREE\\ACME"},
                 {"NDS:\\\\,NDS:\\\\OTHER", true, ""}};
    for (const auto& c : cases) {
        treeContext(c.ini);
        EXPECT_EQ(StartContextDefined(engine), c.defined) << c.ini;
        EXPECT_EQ(ReadNDSContext(engine), c.context) << c.ini;
    }
}

TEST_F(StartContext, AValidContextStartsTheSearchThereAfterTheWait) {
    treeContext("NDS:\\\\ACME_TREE\\ACME\\Sales");
    fast.stepMs = 64;
    net->nextResults = "NDS:\\\\ACME_TREE\\ACME\\SALES\\NW";
    net->versionOf = versionByName;
    GetServersInContext(engine);
    EXPECT_EQ(v.cbTree.items, QStringList{"nds:\\\\acme_tree\\acme\\sales"});
    EXPECT_EQ(v.cbTree.ListIndex, 0);
    EXPECT_FALSE(v.cbTree.enabled) << "disabled while scanning";
    EXPECT_EQ(engine.StartContext, "nds:\\\\acme_tree\\acme\\sales");
    EXPECT_EQ(v.caption, " Tarnwick   StartContext: [NDS:\\\\ACME_TREE\\ACME\\SALES]");
    EXPECT_TRUE(v.simpleMode);
    EXPECT_EQ(v.simpleText, " expanding [nds:\\\\acme_tree\\acme\\sales] - please wait...");
    EXPECT_GE(fast.now, 4096) << "the wait before the search";
    ASSERT_EQ(net->searches.size(), 1u);
    EXPECT_EQ(net->searches[0].first, "nds:\\\\acme_tree\\acme\\sales");
    EXPECT_EQ(net->searches[0].second, "NCP Server");
    EXPECT_EQ(engine.directory.SearchKind, "NCP Server");
    ASSERT_TRUE(test::runEventsUntil([&] { return engine.ScanFinished; }));
    EXPECT_TRUE(v.cbTree.enabled);
    EXPECT_EQ(v.cbServer.items, QStringList{"NW"});
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(StartContext, ATreeWithoutContainerAndALowerCasePrefixAreValid) {
    treeContext("NDS:\\\\TREE,nds:\\\\Tree2\\O");
    GetServersInContext(engine);
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(v.cbTree.items, (QStringList{"nds:\\\\tree", "nds:\\\\tree2\\o"}));
    EXPECT_EQ(engine.StartContext, "nds:\\\\tree");
}

TEST_F(StartContext, InvalidEntriesAreShownAndBlankedTheOthersKept) {
    showWaitForm(engine, "network scan in progress...");
    treeContext("NDS:\\\\,LDAP:\\\\TREE\\O,NDS:\\\\TREE\\O");
    GetServersInContext(engine);
    ASSERT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(ui.messages[0].text, "Invalid TreeContext:\r\nNDS:\\\\       ");
    EXPECT_EQ(ui.messages[1].text, "Invalid TreeContext:\r\nLDAP:\\\\TREE\\O       ");
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(ui.messages[0].title, " Tarnwick");
    EXPECT_EQ(v.cbTree.items, QStringList{"nds:\\\\tree\\o"});
    EXPECT_EQ(ui.hidden, 2) << "the scan window steps aside for each message";
    EXPECT_EQ(ui.shownWaitForms.size(), 3u);
}

TEST_F(StartContext, NoValidEntryLeavesTheTreePlaceholder) {
    engine.StartContext = "NDS:\\\\OLD";
    treeContext("X,NDS:\\\\");
    GetServersInContext(engine);
    EXPECT_EQ(ui.messages.size(), 2u);
    EXPECT_TRUE(engine.StartContext.isEmpty());
    EXPECT_EQ(v.cbTree.items, QStringList{"tree"});
    EXPECT_EQ(v.cbTree.ListIndex, 0);
    EXPECT_EQ(v.caption, " Tarnwick   StartContext: [invalid start context!]");
    EXPECT_TRUE(net->searches.empty());
    EXPECT_TRUE(engine.ScanFinished) << "start-up must not wait for a search that never starts";

    engine.DebugMode = true;
    treeContext("bad");
    GetServersInContext(engine);
    EXPECT_EQ(v.caption, " Tarnwick   StartContext: [invalid start context!]   [DEBUG MODE=ON]");
}

// ---------------------------------------------------------------- trees

TEST_F(GetTreesTest, OffersAllTreesAndSelectsTheLastLoggedInOne) {
    net->trees = {"A_TREE", "B_TREE", "C_TREE"};
    net->loggedIn = {"C_TREE", "B_TREE"};
    GetTrees(engine);
    EXPECT_EQ(v.cbTree.items, net->trees);
    EXPECT_EQ(v.cbTree.text(), "B_TREE");
    EXPECT_TRUE(v.cbTree.enabled);
    EXPECT_TRUE(v.menuEnabled("mnuLogin"));
    EXPECT_EQ(registryValue("Trees", "maxTrees"), "3");

    net->trees = {"A_TREE"};
    net->loggedIn.clear();
    GetTrees(engine);
    EXPECT_EQ(v.cbTree.text(), "A_TREE") << "no default: the first";
    EXPECT_EQ(registryValue("Trees", "maxTrees"), "3") << "only a larger count is stored";

    net->trees.clear();
    GetTrees(engine);
    EXPECT_EQ(v.cbTree.items, QStringList{"tree not found"});
    EXPECT_EQ(v.cbTree.ListIndex, 0);
    EXPECT_FALSE(v.cbTree.enabled);
}

TEST_F(GetTreesTest, AStartContextNamesTheOnlyTree) {
    net->trees = {"A_TREE", "B_TREE"};
    engine.StartContext = "nds:\\\\acme_tree\\acme";
    GetTrees(engine);
    EXPECT_EQ(v.cbTree.items, QStringList{"ACME_TREE"});
    EXPECT_FALSE(v.cbTree.enabled);
    EXPECT_FALSE(v.menuEnabled("mnuLogin"));
}

// ---------------------------------------------------------------- servers

TEST_F(ServerSearch, SearchesBelowRootOfTheChosenTreeOrTheStartContext) {
    v.cbTree.resetTo("ACME_TREE");
    serversFound("NDS:\\\\ACME_TREE\\NW");
    EXPECT_EQ(net->searches.back().first, "NDS:\\\\ACME_TREE\\[Root]");
    EXPECT_EQ(net->searches.back().second, "NCP Server");
    engine.StartContext = "nds:\\\\acme_tree\\acme";
    serversFound("NDS:\\\\ACME_TREE\\NW");
    EXPECT_EQ(net->searches.back().first, "nds:\\\\acme_tree\\acme");
}

TEST_F(ServerSearch, PlatformAndImageByTheVersionText) {
    net->versionOf = versionByName;
    serversFound(
        QStringList{"NDS:\\\\T\\O\\NW", "NDS:\\\\T\\O\\LX", "NDS:\\\\T\\WIN", "NDS:\\\\T\\ODD"});
    const auto& rows = engine.directory.servers;
    EXPECT_EQ(engine.directory.ServerCount, 4);
    EXPECT_EQ(rows[0].ShortName, "NW");
    EXPECT_EQ(rows[0].FullName, "NDS:\\\\T\\O\\NW");
    EXPECT_EQ(rows[0].Version, "Novell NetWare 5.70.03[DS]");
    const char* osTypes[] = {"NETWARE", "LINUX", "WINDOWS", "UNKNOWN"};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(rows[i].OSType, osTypes[i]) << i;
        EXPECT_EQ(rows[i].IconIndex, 29 + i) << i;
    }
    EXPECT_EQ(v.cbServer.items, (QStringList{"NW", "LX", "WIN", "ODD"}));
    EXPECT_EQ(v.cbServer.icons, (QList<int>{29, 30, 31, 32}));
    EXPECT_EQ(v.cbServer.ListIndex, 0);
    EXPECT_TRUE(v.cbServer.enabled);
    EXPECT_EQ(v.cbLogFile.items, (QStringList{"select logfile...", "ABEND.LOG", "CONFIG.TXT",
                                              "CONSOLE.LOG", "CRONLOG", "SYS$LOG.ERR"}));
    EXPECT_EQ(v.cbLogFile.ListIndex, 0);
    EXPECT_EQ(fnOSType(engine, "lx"), "LINUX");
    EXPECT_EQ(fnOSType(engine, "NOT THERE"), "UNKNOWN");
    EXPECT_EQ(fnServerFullname(engine, "Win"), "NDS:\\\\T\\WIN");
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(ServerSearch, VersionTextsDecideInTheirOrder) {
    const struct {
        const char* version;
        const char* osType;
    } cases[] = {{"Novell NetWare 6.5", "NETWARE"},           {"NETWARE for LINUX", "NETWARE"},
                 {"Open Enterprise Server (Linux)", "LINUX"}, {"Windows NT 4.0", "WINDOWS"},
                 {"eDirectory 8.7 for Solaris", "UNKNOWN"},   {"", "UNKNOWN"}};
    for (const auto& c : cases)
        EXPECT_EQ(osTypeOfVersion(c.version), c.osType) << c.version;
}

TEST_F(ServerSearch, ALinuxServerOffersItsOwnLogs) {
    net->versionOf = versionByName;
    serversFound("NDS:\\\\T\\O\\LX");
    EXPECT_EQ(engine.directory.ServerCount, 1) << "a single name is a list of one";
    EXPECT_EQ(v.cbLogFile.items, (QStringList{"select logfile...", "boot.msg", "messages"}));
}

TEST_F(ServerSearch, MoreThanAThousandServersAreCut) {
    QStringList many;
    for (int i = 1; i <= 1003; ++i)
        many << QStringLiteral("NDS:\\\\T\\S%1").arg(i);
    serversFound(many);
    EXPECT_EQ(engine.directory.ServerCount, 1003);
    EXPECT_EQ(v.cbServer.items.size(), 1000);
    EXPECT_EQ(engine.directory.servers.size(), 1000u);
    EXPECT_EQ(engine.directory.servers[999].ShortName, "S1000");
    EXPECT_EQ(registryValue("Server", "maxServers"), "1003");
}

TEST_F(ServerSearch, NoServerGivesServerNotFound) {
    for (const SearchResults& empty :
         {SearchResults{}, SearchResults{QStringList{QString()}}, SearchResults{QString()}}) {
        test::FakeNetworkEngine f;
        f.net->nextResults = empty;
        GetServers(f.engine);
        ASSERT_FALSE(f.engine.ScanFinished);
        ASSERT_TRUE(test::runEventsUntil([&] { return f.engine.ScanFinished; }));
        EXPECT_EQ(f.engine.directory.ServerCount, 0);
        EXPECT_EQ(f.engine.view.cbServer.items, QStringList{"server not found"});
        EXPECT_EQ(f.engine.view.cbServer.ListIndex, 0);
        EXPECT_FALSE(f.engine.view.cbServer.enabled);
        EXPECT_FALSE(f.engine.view.menuEnabled("mnuHealthCheck"));
        ASSERT_EQ(f.ui.messages.size(), 1u);
        EXPECT_EQ(f.ui.messages[0].text, "No Servers found!");
        EXPECT_EQ(f.ui.messages[0].title, " Tarnwick");
    }
}

TEST_F(ServerSearch, TheWindowHearsOfEveryHandledSearch) {
    QStringList kinds;
    engine.directory.onSearchHandled = [&](const QString& kind) {
        kinds << kind;
    };
    serversFound("NDS:\\\\T\\NW");
    volumesFound("NDS:\\\\T\\NW_SYS");
    EXPECT_EQ(kinds, (QStringList{"NCP Server", "Volume"}));
}

// ---------------------------------------------------------------- volumes

TEST_F(VolumeSearch, OnlyTheSelectedServersVolumesAndSysIsSelected) {
    chooseServer("FS1 ");
    volumesFound(QStringList{"NDS:\\\\T\\O\\FS1_DATA", "NDS:\\\\T\\O\\FS10_SYS",
                             "NDS:\\\\T\\FS1_sys", "NDS:\\\\T\\O\\FS2_SYS", "FS1_USERS"});
    EXPECT_EQ(net->searches.back().second, "Volume");
    EXPECT_EQ(v.cbVolume.items, (QStringList{"DATA", "sys", "USERS"}));
    EXPECT_EQ(v.cbVolume.text(), "sys");
    EXPECT_TRUE(v.cbVolume.enabled);
    EXPECT_TRUE(ui.messages.empty());

    volumesFound(QStringList{"NDS:\\\\T\\FS1_DATA", "NDS:\\\\T\\FS1_SYSBACKUP"});
    EXPECT_EQ(v.cbVolume.items.size(), 2);
    EXPECT_EQ(v.cbVolume.ListIndex, -1) << "without SYS the selection stays as it is";
}

TEST_F(VolumeSearch, NoMatchingVolumeGivesVolumeNotFound) {
    chooseServer("FS1");
    volumesFound("NDS:\\\\T\\FS2_SYS");
    EXPECT_EQ(v.cbVolume.items, QStringList{"volume not found"});
    EXPECT_EQ(v.cbVolume.ListIndex, 0);
    EXPECT_FALSE(v.cbVolume.enabled);
    EXPECT_TRUE(ui.messages.empty()) << "the message is for an empty result only";

    volumesFound(SearchResults{});
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "No Volume found!");
    EXPECT_EQ(v.cbVolume.items, QStringList{"volume not found"});
}

TEST(TreeSelection, TreeOfAContextOrAName) {
    for (const char* selection : {"nds:\\\\acme_tree\\acme", "NDS:\\\\ACME_TREE", "acme_tree"})
        EXPECT_EQ(treeOfSelection(selection), "ACME_TREE") << selection;
}

// ---------------------------------------------------------------- the whole scan

TEST(DiscoverNetwork, TreesThenServersOnTheNetworkFolder) {
    test::NetworkEngine net;
    net.describe(
        "[tree T]\nlogged-in = yes\n[server NW1]\ntree = T\nversion = Novell NetWare 5.70\n"
        "volumes = SYS, DATA\n");
    DiscoverNetwork(net.engine);
    EXPECT_TRUE(net.engine.StartContext.isEmpty());
    EXPECT_EQ(net.engine.view.cbTree.text(), "T");
    ASSERT_TRUE(test::runEventsUntil([&] { return net.engine.ScanFinished; }));
    EXPECT_EQ(net.engine.view.cbServer.text(), "NW1");
    GetVolumes(net.engine);
    EXPECT_FALSE(net.engine.ScanFinished);
    ASSERT_TRUE(test::runEventsUntil([&] { return net.engine.ScanFinished; }));
    EXPECT_EQ(net.engine.view.cbVolume.text(), "SYS");
}
