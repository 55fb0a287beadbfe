#include "directory/NetworkDescription.h"

#include <gtest/gtest.h>

using namespace twk;

namespace {

const QByteArray kGood = R"(# a comment
; another comment
[tree ACME_TREE]
logged-in = yes
user = ADMIN.ACME
container = ACME\SALES

[server FS1]
tree = acme_tree
context = SALES.ACME          ; dotted, from the leaf up
version = Novell NetWare 5.70.03[DS]
volumes = SYS, DATA ,, USERS
address = 10.1.1.11
connected = yes
replica = [Root] | Master | On | 2024-05-03 10:15:00
replica = OU=SALES.O=ACME | Read/Write | Transition to On | 2024-05-03 10:16:00
replica = ACME | 3 | 64 | never
deny = SYS\ETC\CONSOLE.LOG

[user ADMIN]
tree = ACME_TREE
context = ACME
password = se;cret

[scenario fs1]
console-rights = no
date-style = de
dsrepair-run-ms = 0x10
)";

} // namespace

TEST(NetworkDescription, ReadsTreesServersUsersAndScenarios) {
    const NetworkDescription d = parseNetworkDescription(kGood);
    EXPECT_TRUE(d.problems.isEmpty()) << d.problems.join(u'\n').toStdString();
    ASSERT_EQ(d.trees.size(), 1u);
    EXPECT_TRUE(d.trees[0].loggedIn);
    EXPECT_EQ(d.trees[0].user, "ADMIN.ACME");
    EXPECT_EQ(d.trees[0].containers, QStringList{"ACME\\SALES"});

    const ServerEntry* fs1 = d.server("fs1");
    ASSERT_NE(fs1, nullptr);
    EXPECT_EQ(fs1->context, (QStringList{"ACME", "SALES"}));
    EXPECT_EQ(serverFullName(*fs1), "NDS:\\\\acme_tree\\ACME\\SALES\\FS1");
    EXPECT_EQ(fs1->volumes, (QStringList{"SYS", "DATA", "USERS"}));
    EXPECT_TRUE(fs1->connected);
    EXPECT_TRUE(fs1->login);
    EXPECT_EQ(fs1->denied, QStringList{"SYS\\ETC\\CONSOLE.LOG"});

    ASSERT_EQ(fs1->replicas.size(), 3u);
    EXPECT_EQ(fs1->replicas[0].PartitionFullName, "[Root]");
    EXPECT_EQ(fs1->replicas[0].ReplicaType, replicatype::Master);
    EXPECT_EQ(fs1->replicas[1].PartitionFullName, "ACME\\SALES");
    EXPECT_EQ(fs1->replicas[1].PartitionShortName, "SALES");
    EXPECT_EQ(fs1->replicas[1].ReplicaState, replicastate::TransitionToOn);
    EXPECT_EQ(fs1->replicas[2].ReplicaType, replicatype::SubRef);
    EXPECT_EQ(fs1->replicas[2].ReplicaState, replicastate::JoinStateZero);
    EXPECT_EQ(fs1->replicas[2].LastSync, "never");

    EXPECT_FALSE(fs1->scenario.consoleRights);
    EXPECT_EQ(fs1->scenario.dateStyle, "DE");
    EXPECT_EQ(fs1->scenario.dsrepairRunMs, 16);

    ASSERT_EQ(d.users.size(), 1u);
    EXPECT_EQ(d.users[0].password, "se;cret") << "only \" ;\" starts a comment";
    EXPECT_EQ(d.serverByFullName("nds:\\\\ACME_TREE\\acme\\sales\\fs1"), fs1);
}

TEST(NetworkDescription, BadLinesAreReportedWithTheirLineNumbers) {
    const QByteArray text = "stray = 1\n"                        // 1
                            "[tree T]\n"                         // 2
                            "logged-in = maybe\n"                // 3
                            "colour = blue\n"                    // 4
                            "no equals sign here\n"              // 5
                            "[server S]\n"                       // 6
                            "tree = T\n"                         // 7
                            "replica = [Root] | Boss | On | x\n" // 8
                            "replica = only two | fields\n"      // 9
                            "[printer P]\n"                      // 10
                            "anything = goes\n"                  // 11
                            "[broken\n"                          // 12
                            "[scenario GHOST]\n"                 // 13
                            "ttf-stuck = yes\n"                  // 14
                            "[scenario S]\n"                     // 15
                            "dsrepair-run-ms = -5\n"             // 16
                            "flavour = sweet\n"                  // 17
                            "[server S]\n"                       // 18
                            "[server LOST]\n";                   // 19
    const NetworkDescription d = parseNetworkDescription(text);
    const QStringList expected{
        "line 1: \"stray\" stands outside of a section",
        "line 3: logged-in must be yes or no, not \"maybe\"",
        "line 4: unknown key \"colour\" in a tree",
        "line 5: expected \"key = value\": no equals sign here",
        "line 8: unknown replica type \"Boss\"",
        "line 9: a replica is \"partition | type | state | last sync\": only two | fields",
        "line 10: unknown section \"printer\"",
        "line 12: bad section header: [broken",
        "line 16: dsrepair-run-ms must be a number from 0 on, not \"-5\"",
        "line 17: unknown key \"flavour\" in a scenario",
        "line 18: server \"S\" is described twice",
        "line 13: scenario for the unknown server \"GHOST\"",
        "line 19: server \"LOST\" names no tree",
    };
    EXPECT_EQ(d.problems, expected);
    // What could be read is kept.
    ASSERT_NE(d.server("S"), nullptr);
    EXPECT_TRUE(d.server("S")->replicas.empty());
    EXPECT_EQ(d.server("S")->scenario.dsrepairRunMs, ServerScenario().dsrepairRunMs);
}

TEST(NetworkDescription, ServerInAnUnknownTreeIsReported) {
    const NetworkDescription d = parseNetworkDescription("[server X]\ntree = NOWHERE\n");
    EXPECT_EQ(d.problems, QStringList{"line 1: server \"X\" is in the unknown tree \"NOWHERE\""});
}

TEST(NetworkDescription, BinaryGarbageGivesProblemsNotACrash) {
    QByteArray garbage;
    for (int i = 0; i < 4096; ++i)
        garbage.append(static_cast<char>((i * 7919) % 256));
    const NetworkDescription d = parseNetworkDescription(garbage);
    EXPECT_FALSE(d.problems.isEmpty());
    EXPECT_TRUE(parseNetworkDescription(QByteArray()).problems.isEmpty());
}

TEST(NetworkDescription, WrittenTextReadsBackTheSame) {
    const NetworkDescription d = parseNetworkDescription(kGood);
    const NetworkDescription again = parseNetworkDescription(formatNetworkDescription(d));
    EXPECT_TRUE(again.problems.isEmpty()) << again.problems.join(u'\n').toStdString();
    EXPECT_EQ(formatNetworkDescription(again), formatNetworkDescription(d));
    const ServerEntry* fs1 = again.server("FS1");
    ASSERT_NE(fs1, nullptr);
    EXPECT_EQ(fs1->replicas.size(), 3u);
    EXPECT_FALSE(fs1->scenario.consoleRights);
    EXPECT_EQ(again.users[0].password, "se;cret");
}

TEST(NetworkDescription, ContextsInEveryForm) {
    for (const char* context : {"ACME\\SALES", "SALES.ACME", "OU=SALES.O=ACME"})
        EXPECT_EQ(parseContext(context), (QStringList{"ACME", "SALES"})) << context;
    EXPECT_EQ(parseContext(" [Root] "), QStringList());
    EXPECT_EQ(parseContext(QString()), QStringList());
}

TEST(NetworkDescription, NdsPathsSplitBlindToThePrefixCase) {
    QString tree;
    QStringList parts;
    ASSERT_TRUE(splitNdsPath("nds:\\\\ACME_TREE\\[Root]", tree, parts));
    EXPECT_EQ(tree, "ACME_TREE");
    EXPECT_TRUE(parts.isEmpty());
    ASSERT_TRUE(splitNdsPath("NDS:\\\\T\\A\\B", tree, parts));
    EXPECT_EQ(parts, (QStringList{"A", "B"}));
    EXPECT_FALSE(splitNdsPath("NDS:\\\\", tree, parts));
    EXPECT_FALSE(splitNdsPath("LDAP:\\\\T", tree, parts));
}

TEST(NetworkDescription, ReplicaNamesAndNumbers) {
    EXPECT_EQ(replicaTypeOf("read only"), replicatype::ReadOnly);
    EXPECT_EQ(replicaTypeOf("4"), -1);
    EXPECT_EQ(replicaStateOf("split STATE one"), replicastate::SplitStateOne);
    EXPECT_EQ(replicaStateOf("nonsense"), -1);
    EXPECT_EQ(replicaStateName(replicastate::MoveStateZero), "Move state zero");
    EXPECT_EQ(replicaTypeName(replicatype::ReadWrite), "Read/Write");
}
