#include "directory/TreeDiscovery.h"
#include "DirectoryTestSupport.h"
#include "core/Startup.h"
#include "directory/Connections.h"

#include <gtest/gtest.h>

using namespace twk;

namespace {

void writeTreeContext(test::TempTree& tree, const QString& value) {
    tree.write(QStringLiteral("app/twk.ini"),
               (QStringLiteral("; start contexts\n[TreeContext]\nTreeContext=") + value +
                QStringLiteral("\n[RealtimeMonitor]\n"))
                   .toUtf8());
}

QString registryValue(Engine& e, const QString& key, const QString& value) {
    return e.registry.Reg_GetValue(Hive::CurrentUser, key, value);
}

/// Runs a server search with the results the fake hands over.
void serversFound(test::FakeNetworkEngine& f, const SearchResults& results) {
    f.net->nextResults = results;
    GetServers(f.engine);
    ASSERT_FALSE(f.engine.ScanFinished);
    ASSERT_TRUE(test::runEventsUntil([&] { return f.engine.ScanFinished; }));
}

void volumesFound(test::FakeNetworkEngine& f, const SearchResults& results) {
    f.net->nextResults = results;
    GetVolumes(f.engine);
    ASSERT_TRUE(test::runEventsUntil([&] { return f.engine.ScanFinished; }));
}

QString versionByName(const QString& fullName) {
    if (fullName.endsWith(QStringLiteral("NW")))
        return QStringLiteral("Novell NetWare 5.70.03[DS]");
    if (fullName.endsWith(QStringLiteral("LX")))
        return QStringLiteral("Novell Open Enterprise Server for Linux");
    if (fullName.endsWith(QStringLiteral("WIN")))
        return QStringLiteral("eDirectory for Windows NT");
    return QStringLiteral("something else");
}

} // namespace

// ---------------------------------------------------------------- start contexts

TEST(StartContext, NoneWithoutTwkIniOrWithAnEmptyValue) {
    test::FakeNetworkEngine f;
    EXPECT_FALSE(StartContextDefined(f.engine));
    EXPECT_TRUE(ReadNDSContext(f.engine).isEmpty());
    writeTreeContext(f.tree, QString());
    EXPECT_FALSE(StartContextDefined(f.engine));
    EXPECT_TRUE(ReadNDSContext(f.engine).isEmpty());
}

TEST(StartContext, TheStoredContextIsTheFirstEntryWhenValid) {
    test::FakeNetworkEngine f;
    writeTreeContext(f.tree, QStringLiteral("NDS:\\\\ACME_TREE\\ACME,NDS:\\\\OTHER"));
    EXPECT_TRUE(StartContextDefined(f.engine));
    EXPECT_EQ(ReadNDSContext(f.engine), QStringLiteral("NDS:\\\\ACME_TREE\\ACME"));
    writeTreeContext(f.tree, QStringLiteral("NDS:\\\\,NDS:\\\\OTHER"));
    EXPECT_TRUE(StartContextDefined(f.engine));
    EXPECT_TRUE(ReadNDSContext(f.engine).isEmpty());
}

TEST(StartContext, AValidContextStartsTheSearchThereAfterTheWait) {
    test::FakeNetworkEngine f;
    writeTreeContext(f.tree, QStringLiteral("NDS:\\\\ACME_TREE\\ACME\\Sales"));
    f.fast.stepMs = 64;
    f.net->nextResults = QStringLiteral("NDS:\\\\ACME_TREE\\ACME\\SALES\\NW");
    f.net->versionOf = versionByName;
    GetServersInContext(f.engine);
    const MainView& v = f.engine.view;
    EXPECT_EQ(v.cbTree.items, QStringList{QStringLiteral("nds:\\\\acme_tree\\acme\\sales")});
    EXPECT_EQ(v.cbTree.ListIndex, 0);
    EXPECT_FALSE(v.cbTree.enabled) << "disabled while scanning";
    EXPECT_EQ(f.engine.StartContext, QStringLiteral("nds:\\\\acme_tree\\acme\\sales"));
    EXPECT_EQ(v.caption,
              QStringLiteral(" Tarnwick   StartContext: [NDS:\\\\ACME_TREE\\ACME\\SALES]"));
    EXPECT_TRUE(v.simpleMode);
    EXPECT_EQ(v.simpleText,
              QStringLiteral(" expanding [nds:\\\\acme_tree\\acme\\sales] - please wait..."));
    EXPECT_GE(f.fast.now, 4096) << "the wait before the search";
    ASSERT_EQ(f.net->searches.size(), 1u);
    EXPECT_EQ(f.net->searches[0].first, QStringLiteral("nds:\\\\acme_tree\\acme\\sales"));
    EXPECT_EQ(f.net->searches[0].second, QStringLiteral("NCP Server"));
    EXPECT_EQ(f.engine.directory.SearchKind, QStringLiteral("NCP Server"));
    ASSERT_TRUE(test::runEventsUntil([&] { return f.engine.ScanFinished; }));
    EXPECT_TRUE(v.cbTree.enabled);
    EXPECT_EQ(v.cbServer.items, QStringList{QStringLiteral("NW")});
    EXPECT_TRUE(f.ui.messages.empty());
}

TEST(StartContext, ATreeWithoutContainerAndALowerCasePrefixAreValid) {
    test::FakeNetworkEngine f;
    writeTreeContext(f.tree, QStringLiteral("NDS:\\\\TREE,nds:\\\\Tree2\\O"));
    GetServersInContext(f.engine);
    EXPECT_TRUE(f.ui.messages.empty());
    EXPECT_EQ(f.engine.view.cbTree.items,
              (QStringList{QStringLiteral("nds:\\\\tree"), QStringLiteral("nds:\\\\tree2\\o")}));
    EXPECT_EQ(f.engine.StartContext, QStringLiteral("nds:\\\\tree"));
}

TEST(StartContext, InvalidEntriesAreShownAndBlankedTheOthersKept) {
    test::FakeNetworkEngine f;
    showWaitForm(f.engine, QStringLiteral("network scan in progress..."));
    writeTreeContext(f.tree, QStringLiteral("NDS:\\\\,LDAP:\\\\TREE\\O,NDS:\\\\TREE\\O"));
    GetServersInContext(f.engine);
    ASSERT_EQ(f.ui.messages.size(), 2u);
    EXPECT_EQ(f.ui.messages[0].text, QStringLiteral("Invalid TreeContext:\r\nNDS:\\\\       "));
    EXPECT_EQ(f.ui.messages[1].text,
              QStringLiteral("Invalid TreeContext:\r\nLDAP:\\\\TREE\\O       "));
    EXPECT_EQ(f.ui.messages[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(f.ui.messages[0].title, QStringLiteral(" Tarnwick"));
    EXPECT_EQ(f.engine.view.cbTree.items, QStringList{QStringLiteral("nds:\\\\tree\\o")});
    EXPECT_EQ(f.ui.hidden, 2) << "the scan window steps aside for each message";
    EXPECT_EQ(f.ui.shownWaitForms.size(), 3u);
}

TEST(StartContext, NoValidEntryLeavesTheTreePlaceholder) {
    test::FakeNetworkEngine f;
    f.engine.StartContext = QStringLiteral("NDS:\\\\OLD");
    writeTreeContext(f.tree, QStringLiteral("X,NDS:\\\\"));
    GetServersInContext(f.engine);
    EXPECT_EQ(f.ui.messages.size(), 2u);
    EXPECT_TRUE(f.engine.StartContext.isEmpty());
    EXPECT_EQ(f.engine.view.cbTree.items, QStringList{QStringLiteral("tree")});
    EXPECT_EQ(f.engine.view.cbTree.ListIndex, 0);
    EXPECT_EQ(f.engine.view.caption,
              QStringLiteral(" Tarnwick   StartContext: [invalid start context!]"));
    EXPECT_TRUE(f.net->searches.empty());
    EXPECT_TRUE(f.engine.ScanFinished) << "start-up must not wait for a search that never starts";

    test::FakeNetworkEngine d;
    d.engine.DebugMode = true;
    writeTreeContext(d.tree, QStringLiteral("bad"));
    GetServersInContext(d.engine);
    EXPECT_EQ(
        d.engine.view.caption,
        QStringLiteral(" Tarnwick   StartContext: [invalid start context!]   [DEBUG MODE=ON]"));
}

// ---------------------------------------------------------------- trees

TEST(GetTrees, OffersAllTreesAndSelectsTheLastLoggedInOne) {
    test::FakeNetworkEngine f;
    f.net->trees = {QStringLiteral("A_TREE"), QStringLiteral("B_TREE"), QStringLiteral("C_TREE")};
    f.net->loggedIn = {QStringLiteral("C_TREE"), QStringLiteral("B_TREE")};
    GetTrees(f.engine);
    EXPECT_EQ(f.engine.view.cbTree.items, f.net->trees);
    EXPECT_EQ(f.engine.view.cbTree.text(), QStringLiteral("B_TREE"));
    EXPECT_TRUE(f.engine.view.cbTree.enabled);
    EXPECT_TRUE(f.engine.view.menuEnabled(QStringLiteral("mnuLogin")));
    EXPECT_EQ(registryValue(f.engine, QStringLiteral("Software\\Brindlex\\TWK\\Trees"),
                            QStringLiteral("maxTrees")),
              QStringLiteral("3"));

    f.net->trees = {QStringLiteral("A_TREE")};
    f.net->loggedIn.clear();
    GetTrees(f.engine);
    EXPECT_EQ(f.engine.view.cbTree.text(), QStringLiteral("A_TREE")) << "no default: the first";
    EXPECT_EQ(registryValue(f.engine, QStringLiteral("Software\\Brindlex\\TWK\\Trees"),
                            QStringLiteral("maxTrees")),
              QStringLiteral("3"))
        << "only a larger count is stored";
}

TEST(GetTrees, NoTreeGivesTreeNotFound) {
    test::FakeNetworkEngine f;
    GetTrees(f.engine);
    EXPECT_EQ(f.engine.view.cbTree.items, QStringList{QStringLiteral("tree not found")});
    EXPECT_EQ(f.engine.view.cbTree.ListIndex, 0);
    EXPECT_FALSE(f.engine.view.cbTree.enabled);
}

TEST(GetTrees, AStartContextNamesTheOnlyTree) {
    test::FakeNetworkEngine f;
    f.net->trees = {QStringLiteral("A_TREE"), QStringLiteral("B_TREE")};
    f.engine.StartContext = QStringLiteral("nds:\\\\acme_tree\\acme");
    GetTrees(f.engine);
    EXPECT_EQ(f.engine.view.cbTree.items, QStringList{QStringLiteral("ACME_TREE")});
    EXPECT_FALSE(f.engine.view.cbTree.enabled);
    EXPECT_FALSE(f.engine.view.menuEnabled(QStringLiteral("mnuLogin")));
}

// ---------------------------------------------------------------- servers

TEST(ServerSearch, SearchesBelowRootOfTheChosenTreeOrTheStartContext) {
    test::FakeNetworkEngine f;
    f.engine.view.cbTree.resetTo(QStringLiteral("ACME_TREE"));
    serversFound(f, QStringLiteral("NDS:\\\\ACME_TREE\\NW"));
    EXPECT_EQ(f.net->searches.back().first, QStringLiteral("NDS:\\\\ACME_TREE\\[Root]"));
    EXPECT_EQ(f.net->searches.back().second, QStringLiteral("NCP Server"));
    f.engine.StartContext = QStringLiteral("nds:\\\\acme_tree\\acme");
    serversFound(f, QStringLiteral("NDS:\\\\ACME_TREE\\NW"));
    EXPECT_EQ(f.net->searches.back().first, QStringLiteral("nds:\\\\acme_tree\\acme"));
}

TEST(ServerSearch, PlatformAndImageByTheVersionText) {
    test::FakeNetworkEngine f;
    f.net->versionOf = versionByName;
    serversFound(f,
                 QStringList{QStringLiteral("NDS:\\\\T\\O\\NW"), QStringLiteral("NDS:\\\\T\\O\\LX"),
                             QStringLiteral("NDS:\\\\T\\WIN"), QStringLiteral("NDS:\\\\T\\ODD")});
    const auto& rows = f.engine.directory.servers;
    EXPECT_EQ(f.engine.directory.ServerCount, 4);
    EXPECT_EQ(rows[0].ShortName, QStringLiteral("NW"));
    EXPECT_EQ(rows[0].FullName, QStringLiteral("NDS:\\\\T\\O\\NW"));
    EXPECT_EQ(rows[0].Version, QStringLiteral("Novell NetWare 5.70.03[DS]"));
    EXPECT_EQ(rows[0].OSType, QStringLiteral("NETWARE"));
    EXPECT_EQ(rows[0].IconIndex, 29);
    EXPECT_EQ(rows[1].OSType, QStringLiteral("LINUX"));
    EXPECT_EQ(rows[1].IconIndex, 30);
    EXPECT_EQ(rows[2].OSType, QStringLiteral("WINDOWS"));
    EXPECT_EQ(rows[2].IconIndex, 31);
    EXPECT_EQ(rows[3].OSType, QStringLiteral("UNKNOWN"));
    EXPECT_EQ(rows[3].IconIndex, 32);
    const ListState& cb = f.engine.view.cbServer;
    EXPECT_EQ(cb.items, (QStringList{QStringLiteral("NW"), QStringLiteral("LX"),
                                     QStringLiteral("WIN"), QStringLiteral("ODD")}));
    EXPECT_EQ(cb.icons, (QList<int>{29, 30, 31, 32}));
    EXPECT_EQ(cb.ListIndex, 0);
    EXPECT_TRUE(cb.enabled);
    EXPECT_EQ(f.engine.view.cbLogFile.items,
              (QStringList{QStringLiteral("select logfile..."), QStringLiteral("ABEND.LOG"),
                           QStringLiteral("CONFIG.TXT"), QStringLiteral("CONSOLE.LOG"),
                           QStringLiteral("CRONLOG"), QStringLiteral("SYS$LOG.ERR")}));
    EXPECT_EQ(f.engine.view.cbLogFile.ListIndex, 0);
    EXPECT_EQ(fnOSType(f.engine, QStringLiteral("lx")), QStringLiteral("LINUX"));
    EXPECT_EQ(fnOSType(f.engine, QStringLiteral("NOT THERE")), QStringLiteral("UNKNOWN"));
    EXPECT_EQ(fnServerFullname(f.engine, QStringLiteral("Win")), QStringLiteral("NDS:\\\\T\\WIN"));
    EXPECT_TRUE(f.ui.messages.empty());
}

TEST(ServerSearch, VersionTextsDecideInTheirOrder) {
    EXPECT_EQ(osTypeOfVersion(QStringLiteral("Novell NetWare 6.5")), QStringLiteral("NETWARE"));
    EXPECT_EQ(osTypeOfVersion(QStringLiteral("NETWARE for LINUX")), QStringLiteral("NETWARE"));
    EXPECT_EQ(osTypeOfVersion(QStringLiteral("Open Enterprise Server (Linux)")),
              QStringLiteral("LINUX"));
    EXPECT_EQ(osTypeOfVersion(QStringLiteral("Windows NT 4.0")), QStringLiteral("WINDOWS"));
    EXPECT_EQ(osTypeOfVersion(QStringLiteral("eDirectory 8.7 for Solaris")),
              QStringLiteral("UNKNOWN"));
    EXPECT_EQ(osTypeOfVersion(QString()), QStringLiteral("UNKNOWN"));
}

TEST(ServerSearch, ALinuxServerOffersItsOwnLogs) {
    test::FakeNetworkEngine f;
    f.net->versionOf = versionByName;
    serversFound(f, QStringLiteral("NDS:\\\\T\\O\\LX"));
    EXPECT_EQ(f.engine.directory.ServerCount, 1) << "a single name is a list of one";
    EXPECT_EQ(f.engine.view.cbLogFile.items,
              (QStringList{QStringLiteral("select logfile..."), QStringLiteral("boot.msg"),
                           QStringLiteral("messages")}));
}

TEST(ServerSearch, MoreThanAThousandServersAreCut) {
    test::FakeNetworkEngine f;
    QStringList many;
    for (int i = 1; i <= 1003; ++i)
        many << QStringLiteral("NDS:\\\\T\\S%1").arg(i);
    serversFound(f, many);
    EXPECT_EQ(f.engine.directory.ServerCount, 1003);
    EXPECT_EQ(f.engine.view.cbServer.items.size(), 1000);
    EXPECT_EQ(f.engine.directory.servers.size(), 1000u);
    EXPECT_EQ(f.engine.directory.servers[999].ShortName, QStringLiteral("S1000"));
    EXPECT_EQ(registryValue(f.engine, QStringLiteral("Software\\Brindlex\\TWK\\Server"),
                            QStringLiteral("maxServers")),
              QStringLiteral("1003"));
}

TEST(ServerSearch, NoServerGivesServerNotFound) {
    for (const SearchResults& empty :
         {SearchResults{}, SearchResults{QStringList{QString()}}, SearchResults{QString()}}) {
        test::FakeNetworkEngine f;
        serversFound(f, empty);
        EXPECT_EQ(f.engine.directory.ServerCount, 0);
        EXPECT_EQ(f.engine.view.cbServer.items, QStringList{QStringLiteral("server not found")});
        EXPECT_EQ(f.engine.view.cbServer.ListIndex, 0);
        EXPECT_FALSE(f.engine.view.cbServer.enabled);
        EXPECT_FALSE(f.engine.view.menuEnabled(QStringLiteral("mnuHealthCheck")));
        ASSERT_EQ(f.ui.messages.size(), 1u);
        EXPECT_EQ(f.ui.messages[0].text, QStringLiteral("No Servers found!"));
        EXPECT_EQ(f.ui.messages[0].title, QStringLiteral(" Tarnwick"));
        EXPECT_TRUE(f.engine.ScanFinished);
    }
}

TEST(ServerSearch, TheWindowHearsOfEveryHandledSearch) {
    test::FakeNetworkEngine f;
    QStringList kinds;
    f.engine.directory.onSearchHandled = [&](const QString& kind) {
        kinds << kind;
    };
    serversFound(f, QStringLiteral("NDS:\\\\T\\NW"));
    volumesFound(f, QStringLiteral("NDS:\\\\T\\NW_SYS"));
    EXPECT_EQ(kinds, (QStringList{QStringLiteral("NCP Server"), QStringLiteral("Volume")}));
}

// ---------------------------------------------------------------- volumes

TEST(VolumeSearch, OnlyTheSelectedServersVolumesAndSysIsSelected) {
    test::FakeNetworkEngine f;
    f.engine.view.cbServer.items = {QStringLiteral("FS1 ")};
    f.engine.view.cbServer.ListIndex = 0;
    volumesFound(f,
                 QStringList{QStringLiteral("NDS:\\\\T\\O\\FS1_DATA"),
                             QStringLiteral("NDS:\\\\T\\O\\FS10_SYS"),
                             QStringLiteral("NDS:\\\\T\\FS1_sys"),
                             QStringLiteral("NDS:\\\\T\\O\\FS2_SYS"), QStringLiteral("FS1_USERS")});
    EXPECT_EQ(f.net->searches.back().second, QStringLiteral("Volume"));
    const ListState& cb = f.engine.view.cbVolume;
    EXPECT_EQ(cb.items, (QStringList{QStringLiteral("DATA"), QStringLiteral("sys"),
                                     QStringLiteral("USERS")}));
    EXPECT_EQ(cb.text(), QStringLiteral("sys"));
    EXPECT_TRUE(cb.enabled);
    EXPECT_TRUE(f.ui.messages.empty());
}

TEST(VolumeSearch, WithoutSysTheSelectionStaysAsItIs) {
    test::FakeNetworkEngine f;
    f.engine.view.cbServer.items = {QStringLiteral("FS1")};
    f.engine.view.cbServer.ListIndex = 0;
    volumesFound(f, QStringList{QStringLiteral("NDS:\\\\T\\FS1_DATA"),
                                QStringLiteral("NDS:\\\\T\\FS1_SYSBACKUP")});
    EXPECT_EQ(f.engine.view.cbVolume.items.size(), 2);
    EXPECT_EQ(f.engine.view.cbVolume.ListIndex, -1);
}

TEST(VolumeSearch, NoMatchingVolumeGivesVolumeNotFound) {
    test::FakeNetworkEngine f;
    f.engine.view.cbServer.items = {QStringLiteral("FS1")};
    f.engine.view.cbServer.ListIndex = 0;
    volumesFound(f, QStringLiteral("NDS:\\\\T\\FS2_SYS"));
    EXPECT_EQ(f.engine.view.cbVolume.items, QStringList{QStringLiteral("volume not found")});
    EXPECT_EQ(f.engine.view.cbVolume.ListIndex, 0);
    EXPECT_FALSE(f.engine.view.cbVolume.enabled);
    EXPECT_TRUE(f.ui.messages.empty()) << "the message is for an empty result only";

    volumesFound(f, SearchResults{});
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.ui.messages[0].text, QStringLiteral("No Volume found!"));
    EXPECT_EQ(f.engine.view.cbVolume.items, QStringList{QStringLiteral("volume not found")});
}

TEST(TreeSelection, TreeOfAContextOrAName) {
    EXPECT_EQ(treeOfSelection(QStringLiteral("nds:\\\\acme_tree\\acme")),
              QStringLiteral("ACME_TREE"));
    EXPECT_EQ(treeOfSelection(QStringLiteral("NDS:\\\\ACME_TREE")), QStringLiteral("ACME_TREE"));
    EXPECT_EQ(treeOfSelection(QStringLiteral("acme_tree")), QStringLiteral("ACME_TREE"));
}

// ---------------------------------------------------------------- the whole scan

TEST(DiscoverNetwork, TreesThenServersOnTheNetworkFolder) {
    test::NetworkEngine net;
    net.describe(
        "[tree T]\nlogged-in = yes\n[server NW1]\ntree = T\nversion = Novell NetWare 5.70\n"
        "volumes = SYS, DATA\n");
    DiscoverNetwork(net.engine);
    EXPECT_TRUE(net.engine.StartContext.isEmpty());
    EXPECT_EQ(net.engine.view.cbTree.text(), QStringLiteral("T"));
    ASSERT_TRUE(test::runEventsUntil([&] { return net.engine.ScanFinished; }));
    EXPECT_EQ(net.engine.view.cbServer.text(), QStringLiteral("NW1"));
    GetVolumes(net.engine);
    EXPECT_FALSE(net.engine.ScanFinished);
    ASSERT_TRUE(test::runEventsUntil([&] { return net.engine.ScanFinished; }));
    EXPECT_EQ(net.engine.view.cbVolume.text(), QStringLiteral("SYS"));
}
