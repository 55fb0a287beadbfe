#include "directory/UncPath.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

using namespace twk;

TEST(UncPath, TakesServerVolumeAndPathApart) {
    const auto p = UncPath::parse(QStringLiteral("\\\\FS1\\SYS\\SYSTEM\\SYS$LOG.ERR"));
    ASSERT_TRUE(p);
    EXPECT_EQ(p->server, QStringLiteral("FS1"));
    EXPECT_EQ(p->volume, QStringLiteral("SYS"));
    EXPECT_EQ(p->parts, (QStringList{QStringLiteral("SYSTEM"), QStringLiteral("SYS$LOG.ERR")}));
    EXPECT_EQ(p->toString(), QStringLiteral("\\\\FS1\\SYS\\SYSTEM\\SYS$LOG.ERR"));
}

TEST(UncPath, ServerAloneAndSlashesAndDoubledSeparators) {
    const auto server = UncPath::parse(QStringLiteral("\\\\FS1"));
    ASSERT_TRUE(server);
    EXPECT_EQ(server->server, QStringLiteral("FS1"));
    EXPECT_TRUE(server->volume.isEmpty());
    const auto slashes = UncPath::parse(QStringLiteral("//fs1/sys//etc/"));
    ASSERT_TRUE(slashes);
    EXPECT_EQ(slashes->toString(), QStringLiteral("\\\\fs1\\sys\\etc"));
}

TEST(UncPath, RejectsWhatIsNoUncPath) {
    EXPECT_FALSE(UncPath::parse(QString()));
    EXPECT_FALSE(UncPath::parse(QStringLiteral("\\FS1\\SYS")));
    EXPECT_FALSE(UncPath::parse(QStringLiteral("FS1\\SYS")));
    EXPECT_FALSE(UncPath::parse(QStringLiteral("\\\\")));
    EXPECT_FALSE(UncPath::parse(QStringLiteral("\\\\\\\\")));
}

TEST(UncPath, ServerFilePaths) {
    EXPECT_EQ(sysSystemUnc(QStringLiteral("FS1"), QStringLiteral("ABEND.LOG")),
              QStringLiteral("\\\\FS1\\SYS\\SYSTEM\\ABEND.LOG"));
    EXPECT_EQ(sysEtcUnc(QStringLiteral("FS1"), QStringLiteral("CRONLOG")),
              QStringLiteral("\\\\FS1\\SYS\\ETC\\CRONLOG"));
    EXPECT_EQ(consolePathToUnc(QStringLiteral("FS1"), QStringLiteral("sys:system\\twkhc12.sk")),
              QStringLiteral("\\\\FS1\\sys\\system\\twkhc12.sk"));
    EXPECT_FALSE(consolePathToUnc(QStringLiteral("FS1"), QStringLiteral("twkhc12.sk")));
}

TEST(UncPathMapping, MatchesEveryComponentBlindToCase) {
    test::TempTree tree;
    const QString file =
        tree.write(QStringLiteral("network/servers/FS1/SYS/SYSTEM/SYS$LOG.ERR"), "x");
    const QString network = tree.path(QStringLiteral("network"));
    EXPECT_EQ(mapUncPath(network, QStringLiteral("\\\\fs1\\sys\\system\\sys$log.err")), file);
    EXPECT_EQ(mapUncPath(network, QStringLiteral("\\\\Fs1\\Sys\\System\\Sys$Log.Err")), file);
}

TEST(UncPathMapping, MissingComponentsAreKeptAsWritten) {
    test::TempTree tree;
    tree.write(QStringLiteral("network/servers/FS1/SYS/SYSTEM/X"), "x");
    const QString network = tree.path(QStringLiteral("network"));
    EXPECT_EQ(mapUncPath(network, QStringLiteral("\\\\fs1\\sys\\etc\\Console.log")),
              network + QStringLiteral("/servers/FS1/SYS/etc/Console.log"));
    EXPECT_EQ(mapUncPath(network, QStringLiteral("\\\\FS9\\SYS\\SYSTEM\\X")),
              network + QStringLiteral("/servers/FS9/SYS/SYSTEM/X"));
}

TEST(UncPathMapping, APathCannotLeaveTheNetworkFolder) {
    test::TempTree tree;
    const QString network = tree.path(QStringLiteral("network"));
    EXPECT_FALSE(mapUncPath(network, QStringLiteral("\\\\..\\..\\etc\\passwd")));
    EXPECT_FALSE(mapUncPath(network, QStringLiteral("\\\\FS1\\SYS\\..\\..\\x")));
    EXPECT_FALSE(mapUncPath(network, QStringLiteral("C:\\x")));
}

TEST(UncPathMapping, ExactSpellingWinsOverAnotherCase) {
    test::TempTree tree;
    tree.write(QStringLiteral("network/servers/FS1/SYS/a.txt"), "lower");
    const QString upper = tree.write(QStringLiteral("network/servers/FS1/SYS/A.TXT"), "upper");
    const QString lower = tree.path(QStringLiteral("network/servers/FS1/SYS/a.txt"));
    const QString network = tree.path(QStringLiteral("network"));
    EXPECT_EQ(mapUncPath(network, QStringLiteral("\\\\FS1\\SYS\\A.TXT")), upper);
    EXPECT_EQ(mapUncPath(network, QStringLiteral("\\\\FS1\\SYS\\a.txt")), lower);
}
