#include "directory/ServerListing.h"
#include "DirectoryTestSupport.h"

#include <gtest/gtest.h>

using namespace twk;

TEST(ServerListing, OneLineAServerSeparatedByTabs) {
    EXPECT_EQ(serverListLine({QStringLiteral("ACME_TREE"),
                              QStringLiteral("FS1"),
                              QStringLiteral("NETWARE"),
                              {QStringLiteral("SYS"), QStringLiteral("DATA")}}),
              QStringLiteral("ACME_TREE\tFS1\tNETWARE\tSYS,DATA"));
    EXPECT_EQ(
        serverListLine({QStringLiteral("T"), QStringLiteral("NT1"), QStringLiteral("WINDOWS"), {}}),
        QStringLiteral("T\tNT1\tWINDOWS\t"));
}

TEST(ServerListing, EveryTreeWithItsServersAndVolumes) {
    test::FakeNetworkEngine f;
    f.net->trees = {QStringLiteral("A_TREE"), QStringLiteral("B_TREE")};
    f.net->versionOf = [](const QString& name) {
        return name.contains(QStringLiteral("LX")) ? QStringLiteral("Linux")
                                                   : QStringLiteral("NetWare");
    };
    // Each search answers with everything; the volume lists are cut by the server's prefix.
    f.net->nextResults =
        QStringList{QStringLiteral("NDS:\\\\T\\NW"), QStringLiteral("NDS:\\\\T\\LX"),
                    QStringLiteral("NDS:\\\\T\\NW_SYS"), QStringLiteral("NDS:\\\\T\\LX_DATA")};
    std::vector<ListedServer> servers;
    QString error;
    ASSERT_TRUE(listServers(f.engine, servers, error, 2000));
    QStringList lines;
    for (const ListedServer& s : servers)
        lines << serverListLine(s);
    // The search results hold volume objects too: they are listed as servers of unknown kind.
    ASSERT_EQ(lines.size(), 8);
    EXPECT_EQ(lines[0], QStringLiteral("A_TREE\tNW\tNETWARE\tSYS"));
    EXPECT_EQ(lines[1], QStringLiteral("A_TREE\tLX\tLINUX\tDATA"));
    EXPECT_EQ(lines[4], QStringLiteral("B_TREE\tNW\tNETWARE\tSYS"));
    EXPECT_EQ(f.net->searches[0].first, QStringLiteral("NDS:\\\\A_TREE\\[Root]"));
}

TEST(ServerListing, ASearchThatNeverEndsGivesAClearMessage) {
    test::FakeNetworkEngine f;
    f.net->trees = {QStringLiteral("A_TREE")};
    f.net->completeSearches = false;
    std::vector<ListedServer> servers;
    QString error;
    EXPECT_FALSE(listServers(f.engine, servers, error, 1000));
    EXPECT_EQ(error, QStringLiteral("the network scan did not finish within 1 seconds"));
    EXPECT_TRUE(servers.empty());
}

TEST(ServerListing, NoTreeListsNothing) {
    test::FakeNetworkEngine f;
    std::vector<ListedServer> servers;
    QString error;
    EXPECT_TRUE(listServers(f.engine, servers, error, 1000));
    EXPECT_TRUE(servers.empty());
    EXPECT_TRUE(f.net->searches.empty());
}
