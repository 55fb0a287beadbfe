#include "directory/NetworkFolderClient.h"
#include "DirectoryTestSupport.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace twk;

namespace {

const QByteArray kNetwork = R"([tree ACME_TREE]
logged-in = yes
user = ADMIN.ACME

[tree OTHER_TREE]

[server FS1]
tree = ACME_TREE
context = ACME
version = Novell NetWare 5.70.03[DS]
volumes = SYS, DATA
replica = [Root] | Master | On | 2024-05-03 10:15:00
replica = ACME\SALES | Read/Write | On | 2024-05-03 10:16:00
deny = SYS\ETC\CONSOLE.LOG

[server FS2]
tree = ACME_TREE
context = ACME\SALES
version = Novell NetWare 5.00.09[DS]
volumes = SYS

[server FAR]
tree = OTHER_TREE
context = FAR
version = Novell NetWare 5.70.03[DS]
volumes = SYS

[user ADMIN]
tree = ACME_TREE
context = ACME
password = novell

[user JDOE]
tree = OTHER_TREE
context = FAR
password = far

[scenario FAR]
reachable = no
)";

struct Searched {
    bool done = false;
    SearchResults results;
};

Searched search(NetworkClient& client, const QString& base, const QString& objectClass) {
    auto state = std::make_shared<Searched>();
    client.directory().Search(base, kScopeSubtree, objectClass, QString(),
                              [state](const SearchResults& r) {
                                  state->results = r;
                                  state->done = true;
                              });
    EXPECT_FALSE(state->done) << "the completion must come later, on the event loop";
    EXPECT_TRUE(test::runEventsUntil([state] { return state->done; }));
    return *state;
}

class NetworkFolderClientTest : public ::testing::Test {
protected:
    void SetUp() override { net.describe(kNetwork); }
    NetworkClient& client() { return *net.engine.network; }
    test::NetworkEngine net;
};

} // namespace

TEST_F(NetworkFolderClientTest, ServerSearchBelowRootAndBelowAContainer) {
    const Searched all =
        search(client(), QStringLiteral("NDS:\\\\ACME_TREE\\[Root]"), kClassServer);
    EXPECT_EQ(searchResultList(all.results),
              (QStringList{QStringLiteral("NDS:\\\\ACME_TREE\\ACME\\FS1"),
                           QStringLiteral("NDS:\\\\ACME_TREE\\ACME\\SALES\\FS2")}));
    EXPECT_TRUE(std::holds_alternative<QStringList>(all.results));

    const Searched sales =
        search(client(), QStringLiteral("nds:\\\\acme_tree\\acme\\sales"), kClassServer);
    ASSERT_TRUE(std::holds_alternative<QString>(sales.results)) << "a single result is no array";
    EXPECT_EQ(std::get<QString>(sales.results),
              QStringLiteral("NDS:\\\\ACME_TREE\\ACME\\SALES\\FS2"));

    const Searched none = search(client(), QStringLiteral("NDS:\\\\NO_TREE\\[Root]"), kClassServer);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(none.results));
}

TEST_F(NetworkFolderClientTest, VolumeSearchNamesServerAndVolume) {
    const Searched v = search(client(), QStringLiteral("NDS:\\\\ACME_TREE\\[Root]"), kClassVolume);
    EXPECT_EQ(searchResultList(v.results),
              (QStringList{QStringLiteral("NDS:\\\\ACME_TREE\\ACME\\FS1_SYS"),
                           QStringLiteral("NDS:\\\\ACME_TREE\\ACME\\FS1_DATA"),
                           QStringLiteral("NDS:\\\\ACME_TREE\\ACME\\SALES\\FS2_SYS")}));
}

TEST_F(NetworkFolderClientTest, AnEarlierSearchIsReplacedByALaterOne) {
    int firstCalls = 0;
    client().directory().Search(QStringLiteral("NDS:\\\\ACME_TREE\\[Root]"), 2, kClassServer, {},
                                [&](const SearchResults&) { ++firstCalls; });
    const Searched second =
        search(client(), QStringLiteral("NDS:\\\\ACME_TREE\\[Root]"), kClassVolume);
    test::runEventsFor(30);
    EXPECT_EQ(firstCalls, 0);
    EXPECT_EQ(searchResultList(second.results).size(), 3);
}

TEST_F(NetworkFolderClientTest, VersionAttributeOfServerObjects) {
    const auto version = client().directory().ReadAttribute(
        QStringLiteral("NDS:\\\\acme_tree\\acme\\fs1"), QStringLiteral("Version"));
    EXPECT_FALSE(version.failed());
    EXPECT_EQ(version.value, QStringLiteral("Novell NetWare 5.70.03[DS]"));
    EXPECT_EQ(client()
                  .directory()
                  .ReadAttribute(QStringLiteral("NDS:\\\\ACME_TREE\\ACME\\NOPE"),
                                 QStringLiteral("Version"))
                  .error,
              neterr::kNoSuchEntry);
}

TEST_F(NetworkFolderClientTest, TreesAndLoginMakeATreeLoggedIn) {
    DirectoryPort& d = client().directory();
    EXPECT_EQ(d.Trees(), (QStringList{QStringLiteral("ACME_TREE"), QStringLiteral("OTHER_TREE")}));
    EXPECT_EQ(d.LoggedInTrees(), QStringList{QStringLiteral("ACME_TREE")});

    EXPECT_FALSE(
        d.Login(QStringLiteral("NDS:\\\\OTHER_TREE\\FAR\\JDOE"), QStringLiteral("FAR")).value)
        << "passwords are compared as written";
    EXPECT_FALSE(d.Login(QStringLiteral("NDS:\\\\OTHER_TREE\\JDOE"), QStringLiteral("far")).value)
        << "the context belongs to the name";
    EXPECT_EQ(d.LoggedInTrees().size(), 1);
    EXPECT_TRUE(
        d.Login(QStringLiteral("NDS:\\\\other_tree\\far\\jdoe"), QStringLiteral("far")).value);
    EXPECT_EQ(d.LoggedInTrees(),
              (QStringList{QStringLiteral("ACME_TREE"), QStringLiteral("OTHER_TREE")}));
    QString user;
    EXPECT_EQ(client().calls().NWDSWhoAmI(QStringLiteral("OTHER_TREE"), user), 0);
    EXPECT_EQ(user, QStringLiteral("JDOE.FAR"));
}

TEST_F(NetworkFolderClientTest, ReplicasOfAServer) {
    const auto replicas =
        client().directory().Replicas(QStringLiteral("NDS:\\\\ACME_TREE\\ACME\\FS1"));
    ASSERT_FALSE(replicas.failed());
    ASSERT_EQ(replicas.value.size(), 2u);
    EXPECT_EQ(replicas.value[0].PartitionFullName, QStringLiteral("NDS:\\\\ACME_TREE\\[Root]"));
    EXPECT_EQ(replicas.value[0].PartitionShortName, QStringLiteral("[Root]"));
    EXPECT_EQ(replicas.value[1].PartitionFullName,
              QStringLiteral("NDS:\\\\ACME_TREE\\ACME\\SALES"));
    EXPECT_EQ(replicas.value[1].ReplicaType, replicatype::ReadWrite);
    EXPECT_EQ(replicas.value[1].LastSync, QStringLiteral("2024-05-03 10:16:00"));

    EXPECT_EQ(client().directory().Replicas(QStringLiteral("NDS:\\\\ACME_TREE\\GONE")).error,
              neterr::kNoSuchEntry);
    EXPECT_EQ(client().directory().Replicas(QStringLiteral("NDS:\\\\OTHER_TREE\\FAR\\FAR")).error,
              neterr::kNoRights)
        << "the user is not authenticated to that tree";
}

TEST_F(NetworkFolderClientTest, FileAccessFindsFilesBlindToCase) {
    const QString file = net.file(QStringLiteral("servers/fs1/sys/system/sys$log.err"));
    FileAccessPort& files = client().files();
    EXPECT_EQ(files.localPath(QStringLiteral("\\\\FS1\\SYS\\SYSTEM\\SYS$LOG.ERR")), file);
    EXPECT_EQ(files.accessError(QStringLiteral("\\\\FS1\\SYS\\SYSTEM\\SYS$LOG.ERR")), 0);
    EXPECT_EQ(files.accessError(QStringLiteral("\\\\FS1\\SYS\\SYSTEM\\ABEND.LOG")),
              errnum::FileNotFound);
    EXPECT_EQ(files.accessError(QStringLiteral("\\\\FS1\\SYS\\NOWHERE\\ABEND.LOG")),
              errnum::PathNotFound);
    EXPECT_EQ(files.accessError(QStringLiteral("\\\\FS9\\SYS\\SYSTEM\\SYS$LOG.ERR")),
              errnum::PathNotFound);
    EXPECT_EQ(files.accessError(QStringLiteral("no unc")), errnum::PathNotFound);
    EXPECT_TRUE(files.localPath(QStringLiteral("no unc")).isEmpty());
}

TEST_F(NetworkFolderClientTest, DeniedFilesAndUnreachableServersCannotBeRead) {
    net.file(QStringLiteral("servers/FS1/SYS/ETC/CONSOLE.LOG"));
    net.file(QStringLiteral("servers/FS1/SYS/ETC/CRONLOG"));
    net.file(QStringLiteral("servers/FAR/SYS/SYSTEM/SYS$LOG.ERR"));
    FileAccessPort& files = client().files();
    EXPECT_EQ(files.accessError(QStringLiteral("\\\\fs1\\sys\\etc\\console.log")),
              errnum::PermissionDenied);
    EXPECT_EQ(files.accessError(QStringLiteral("\\\\FS1\\SYS\\ETC\\CRONLOG")), 0);
    EXPECT_EQ(files.accessError(QStringLiteral("\\\\FAR\\SYS\\SYSTEM\\SYS$LOG.ERR")),
              errnum::PathNotFound);
}

TEST_F(NetworkFolderClientTest, ChangesOfTheDescriptionAreReadAgain) {
    EXPECT_EQ(client().directory().Trees().size(), 2);
    net.describe("[tree ONLY_TREE]\n");
    EXPECT_EQ(client().directory().Trees(), QStringList{QStringLiteral("ONLY_TREE")});
    QFile::remove(net.tree.path(QStringLiteral("network/directory.txt")));
    EXPECT_TRUE(client().directory().Trees().isEmpty());
}

TEST_F(NetworkFolderClientTest, ProblemsOfTheDescriptionGoToTheErrorCaptureOnce) {
    int captured = 0;
    QString text;
    net.engine.errors.onError = [&](const ErrorContext& c) {
        ++captured;
        text = c.description;
        EXPECT_EQ(c.methodName, QStringLiteral("NetworkFolder.ReadDirectory(sFile)"));
    };
    net.describe("[tree T]\nbogus = 1\n[server S]\ntree = T\nwhat\n");
    EXPECT_EQ(client().directory().Trees(), QStringList{QStringLiteral("T")});
    EXPECT_EQ(client().directory().Trees().size(), 1);
    EXPECT_EQ(captured, 1);
    EXPECT_TRUE(text.contains(QStringLiteral("line 2: unknown key \"bogus\" in a tree")));
    EXPECT_TRUE(text.contains(QStringLiteral("line 5: expected \"key = value\": what")));
}

TEST_F(NetworkFolderClientTest, VolumeEntryReadsSizeAndMissingFilesGiveNoValue) {
    net.file(QStringLiteral("servers/FS1/SYS/SYSTEM/DSREPAIR.LOG"), "12345");
    const auto present = client().volumes().GetEntry(QStringLiteral("FS1"), QStringLiteral("SYS"),
                                                     QStringLiteral("SYSTEM\\dsrepair.log"));
    EXPECT_FALSE(present.failed());
    EXPECT_EQ(present.value, std::optional<std::int64_t>(5));
    const auto missing = client().volumes().GetEntry(QStringLiteral("FS1"), QStringLiteral("SYS"),
                                                     QStringLiteral("SYSTEM\\NONE.LOG"));
    EXPECT_FALSE(missing.failed());
    EXPECT_FALSE(missing.value.has_value());
    EXPECT_EQ(client()
                  .volumes()
                  .GetEntry(QStringLiteral("FAR"), QStringLiteral("SYS"), QStringLiteral("X"))
                  .error,
              neterr::kServerUnknown);
}
