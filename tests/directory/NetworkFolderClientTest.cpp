#include "directory/NetworkFolderClient.h"
#include "DirectoryTestSupport.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace twk;

namespace {

const QByteArray kClientNetwork =
    "[tree ACME_TREE]\nlogged-in = yes\nuser = ADMIN.ACME\n[tree OTHER_TREE]\n"
    "[server FS1]\ntree = ACME_TREE\ncontext = ACME\nversion = Novell NetWare 5.70.03[DS]\n"
    "volumes = SYS, DATA\nreplica = [Root] | Master | On | 2024-05-03 10:15:00\n"
    "replica = ACME\\SALES | Read/Write | On | 2024-05-03 10:16:00\ndeny = SYS\\ETC\\CONSOLE.LOG\n"
    "[server FS2]\ntree = ACME_TREE\ncontext = ACME\\SALES\nversion = Novell NetWare 5.00.09[DS]\n"
    "volumes = SYS\n"
    "[server FAR]\ntree = OTHER_TREE\ncontext = FAR\nversion = Novell NetWare 5.70.03[DS]\n"
    "volumes = SYS\n"
    "[user ADMIN]\ntree = ACME_TREE\ncontext = ACME\npassword = novell\n"
    "[user JDOE]\ntree = OTHER_TREE\ncontext = FAR\npassword = far\n"
    "[scenario FAR]\nreachable = no\n";

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
    void SetUp() override { net.describe(kClientNetwork); }
    NetworkClient& client() { return *net.engine.network; }
    test::NetworkEngine net;
};

} // namespace

TEST_F(NetworkFolderClientTest, ServerSearchBelowRootAndBelowAContainer) {
    const Searched all = search(client(), "NDS:\\\\ACME_TREE\\[Root]", kClassServer);
    EXPECT_EQ(searchResultList(all.results),
              (QStringList{"NDS:\\\\ACME_TREE\\ACME\\FS1", "NDS:\\\\ACME_TREE\\ACME\\SALES\\FS2"}));
    EXPECT_TRUE(std::holds_alternative<QStringList>(all.results));

    const Searched sales = search(client(), "nds:\\\\acme_tree\\acme\\sales", kClassServer);
    ASSERT_TRUE(std::holds_alternative<QString>(sales.results)) << "a single result is no array";
    EXPECT_EQ(std::get<QString>(sales.results), "NDS:\\\\ACME_TREE\\ACME\\SALES\\FS2");

    const Searched none = search(client(), "NDS:\\\\NO_TREE\\[Root]", kClassServer);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(none.results));
}

TEST_F(NetworkFolderClientTest, AnEarlierSearchIsReplacedByALaterOne) {
    int firstCalls = 0;
    client().directory().Search("NDS:\\\\ACME_TREE\\[Root]", 2, kClassServer, {},
                                [&](const SearchResults&) { ++firstCalls; });
    const Searched v = search(client(), "NDS:\\\\ACME_TREE\\[Root]", kClassVolume);
    test::runEventsFor(30);
    EXPECT_EQ(firstCalls, 0);
    EXPECT_EQ(searchResultList(v.results),
              (QStringList{"NDS:\\\\ACME_TREE\\ACME\\FS1_SYS", "NDS:\\\\ACME_TREE\\ACME\\FS1_DATA",
                           "NDS:\\\\ACME_TREE\\ACME\\SALES\\FS2_SYS"}))
        << "a volume is named by server and volume";
}

TEST_F(NetworkFolderClientTest, VersionAttributeOfServerObjects) {
    const auto version =
        client().directory().ReadAttribute("NDS:\\\\acme_tree\\acme\\fs1", "Version");
    EXPECT_FALSE(version.failed());
    EXPECT_EQ(version.value, "Novell NetWare 5.70.03[DS]");
    EXPECT_EQ(client().directory().ReadAttribute("NDS:\\\\ACME_TREE\\ACME\\NOPE", "Version").error,
              neterr::kNoSuchEntry);
}

TEST_F(NetworkFolderClientTest, TreesAndLoginMakeATreeLoggedIn) {
    DirectoryPort& d = client().directory();
    EXPECT_EQ(d.Trees(), (QStringList{"ACME_TREE", "OTHER_TREE"}));
    EXPECT_EQ(d.LoggedInTrees(), QStringList{"ACME_TREE"});

    EXPECT_FALSE(d.Login("NDS:\\\\OTHER_TREE\\FAR\\JDOE", "FAR").value)
        << "passwords are compared as written";
    EXPECT_FALSE(d.Login("NDS:\\\\OTHER_TREE\\JDOE", "far").value)
        << "the context belongs to the name";
    EXPECT_EQ(d.LoggedInTrees().size(), 1);
    EXPECT_TRUE(d.Login("NDS:\\\\other_tree\\far\\jdoe", "far").value);
    EXPECT_EQ(d.LoggedInTrees(), (QStringList{"ACME_TREE", "OTHER_TREE"}));
    QString user;
    EXPECT_EQ(client().calls().NWDSWhoAmI("OTHER_TREE", user), 0);
    EXPECT_EQ(user, "JDOE.FAR");
}

TEST_F(NetworkFolderClientTest, ReplicasOfAServer) {
    const auto replicas = client().directory().Replicas("NDS:\\\\ACME_TREE\\ACME\\FS1");
    ASSERT_FALSE(replicas.failed());
    ASSERT_EQ(replicas.value.size(), 2u);
    EXPECT_EQ(replicas.value[0].PartitionFullName, "NDS:\\\\ACME_TREE\\[Root]");
    EXPECT_EQ(replicas.value[0].PartitionShortName, "[Root]");
    EXPECT_EQ(replicas.value[1].PartitionFullName, "NDS:\\\\ACME_TREE\\ACME\\SALES");
    EXPECT_EQ(replicas.value[1].ReplicaType, replicatype::ReadWrite);
    EXPECT_EQ(replicas.value[1].LastSync, "2024-05-03 10:16:00");

    EXPECT_EQ(client().directory().Replicas("NDS:\\\\ACME_TREE\\GONE").error, neterr::kNoSuchEntry);
    EXPECT_EQ(client().directory().Replicas("NDS:\\\\OTHER_TREE\\FAR\\FAR").error,
              neterr::kNoRights)
        << "the user is not authenticated to that tree";
}

TEST_F(NetworkFolderClientTest, FileAccessFindsFilesBlindToCaseButNotDeniedOrUnreachable) {
    const QString file = net.file("servers/fs1/sys/system/sys$log.err");
    net.file("servers/fs1/sys/etc/CONSOLE.LOG");
    net.file("servers/fs1/sys/etc/CRONLOG");
    net.file("servers/FAR/SYS/SYSTEM/SYS$LOG.ERR");
    FileAccessPort& files = client().files();
    EXPECT_EQ(files.localPath("\\\\FS1\\SYS\\SYSTEM\\SYS$LOG.ERR"), file);
    EXPECT_TRUE(files.localPath("no unc").isEmpty());
    const struct {
        const char* unc;
        int error;
    } cases[] = {{"\\\\FS1\\SYS\\SYSTEM\\SYS$LOG.ERR", 0},
                 {"\\\\FS1\\SYS\\SYSTEM\\ABEND.LOG", errnum::FileNotFound},
                 {"\\\\FS1\\SYS\\NOWHERE\\ABEND.LOG", errnum::PathNotFound},
                 {"\\\\FS9\\SYS\\SYSTEM\\SYS$LOG.ERR", errnum::PathNotFound},
                 {"no unc", errnum::PathNotFound},
                 {"\\\\fs1\\sys\\etc\\console.log", errnum::PermissionDenied},
                 {"\\\\FS1\\SYS\\ETC\\CRONLOG", 0},
                 {"\\\\FAR\\SYS\\SYSTEM\\SYS$LOG.ERR", errnum::PathNotFound}};
    for (const auto& c : cases)
        EXPECT_EQ(files.accessError(c.unc), c.error) << c.unc;
}

TEST_F(NetworkFolderClientTest, ChangesOfTheDescriptionAreReadAgain) {
    EXPECT_EQ(client().directory().Trees().size(), 2);
    net.describe("[tree ONLY_TREE]\n");
    EXPECT_EQ(client().directory().Trees(), QStringList{"ONLY_TREE"});
    QFile::remove(net.tree.path("network/directory.txt"));
    EXPECT_TRUE(client().directory().Trees().isEmpty());
}

TEST_F(NetworkFolderClientTest, ProblemsOfTheDescriptionGoToTheErrorCaptureOnce) {
    int captured = 0;
    QString text;
    net.engine.errors.onError = [&](const ErrorContext& c) {
        ++captured;
        text = c.description;
        EXPECT_EQ(c.methodName, "NetworkFolder.ReadDirectory(sFile)");
    };
    net.describe("[tree T]\nbogus = 1\n[server S]\ntree = T\nwhat\n");
    EXPECT_EQ(client().directory().Trees(), QStringList{"T"});
    EXPECT_EQ(client().directory().Trees().size(), 1);
    EXPECT_EQ(captured, 1);
    EXPECT_TRUE(text.contains("line 2: unknown key \"bogus\" in a tree"));
    EXPECT_TRUE(text.contains("line 5: expected \"key = value\": what"));
}

TEST_F(NetworkFolderClientTest, VolumeEntryReadsSizeAndMissingFilesGiveNoValue) {
    net.file("servers/FS1/SYS/SYSTEM/DSREPAIR.LOG", "12345");
    const auto present = client().volumes().GetEntry("FS1", "SYS", "SYSTEM\\dsrepair.log");
    EXPECT_FALSE(present.failed());
    EXPECT_EQ(present.value, std::optional<std::int64_t>(5));
    const auto missing = client().volumes().GetEntry("FS1", "SYS", "SYSTEM\\NONE.LOG");
    EXPECT_FALSE(missing.failed());
    EXPECT_FALSE(missing.value.has_value());
    EXPECT_EQ(client().volumes().GetEntry("FAR", "SYS", "X").error, neterr::kServerUnknown);
}
