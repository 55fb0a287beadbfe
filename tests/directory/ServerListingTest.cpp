#include "directory/ServerListing.h"
#include "DirectoryTestSupport.h"

#include <gtest/gtest.h>

using namespace twk;

TEST(ServerListing, OneLineAServerSeparatedByTabs) {
    EXPECT_EQ(serverListLine({"ACME_TREE", "FS1", "NETWARE", {"SYS", "DATA"}}),
              "ACME_TREE\tFS1\tNETWARE\tSYS,DATA");
    EXPECT_EQ(serverListLine({"T", "NT1", "WINDOWS", {}}), "T\tNT1\tWINDOWS\t");
}

namespace {

class ServerListingScan : public ::testing::Test, public test::FakeNetworkEngine {
protected:
    std::vector<ListedServer> servers;
    QString error;
};

} // namespace

TEST_F(ServerListingScan, EveryTreeWithItsServersAndVolumes) {
    net->trees = {"A_TREE", "B_TREE"};
    net->versionOf = [](const QString& name) {
        return QString(name.contains("LX") ? "Linux" : "NetWare");
    };
    // Each search answers with everything; the volume lists are cut by the server's prefix.
    net->nextResults =
        QStringList{"NDS:\\\\T\\NW", "NDS:\\\\T\\LX", "NDS:\\\\T\\NW_SYS", "NDS:\\\\T\\LX_DATA"};
    ASSERT_TRUE(listServers(engine, servers, error, 2000));
    QStringList lines;
    for (const ListedServer& s : servers)
        lines << serverListLine(s);
    // The search results hold volume objects too: they are listed as servers of unknown kind.
    ASSERT_EQ(lines.size(), 8);
    EXPECT_EQ(lines[0], "A_TREE\tNW\tNETWARE\tSYS");
    EXPECT_EQ(lines[1], "A_TREE\tLX\tLINUX\tDATA");
    EXPECT_EQ(lines[4], "B_TREE\tNW\tNETWARE\tSYS");
    EXPECT_EQ(net->searches[0].first, "NDS:\\\\A_TREE\\[Root]");
}

TEST_F(ServerListingScan, ASearchThatNeverEndsGivesAClearMessage) {
    EXPECT_TRUE(listServers(engine, servers, error, 1000)) << "no tree lists nothing";
    EXPECT_TRUE(servers.empty());
    EXPECT_TRUE(net->searches.empty());

    net->trees = {"A_TREE"};
    net->completeSearches = false;
    EXPECT_FALSE(listServers(engine, servers, error, 1000));
    EXPECT_EQ(error, "the network scan did not finish within 1 seconds");
    EXPECT_TRUE(servers.empty());
}
