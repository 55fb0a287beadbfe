#include "directory/UncPath.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

using namespace twk;

TEST(UncPath, TakesServerVolumeAndPathApart) {
    const auto p = UncPath::parse("\\\\FS1\\SYS\\SYSTEM\\SYS$LOG.ERR");
    ASSERT_TRUE(p);
    EXPECT_EQ(p->server, "FS1");
    EXPECT_EQ(p->volume, "SYS");
    EXPECT_EQ(p->parts, (QStringList{"SYSTEM", "SYS$LOG.ERR"}));
    EXPECT_EQ(p->toString(), "\\\\FS1\\SYS\\SYSTEM\\SYS$LOG.ERR");
}

TEST(UncPath, ServerAloneAndSlashesAndDoubledSeparators) {
    const auto server = UncPath::parse("\\\\FS1");
    ASSERT_TRUE(server);
    EXPECT_EQ(server->server, "FS1");
    EXPECT_TRUE(server->volume.isEmpty());
    const auto slashes = UncPath::parse("//fs1/sys//etc/");
    ASSERT_TRUE(slashes);
    EXPECT_EQ(slashes->toString(), "\\\\fs1\\sys\\etc");
}

TEST(UncPath, RejectsWhatIsNoUncPath) {
    for (const char* text : {"", "\\FS1\\SYS", "FS1\\SYS", "\\\\", "\\\\\\\\"})
        EXPECT_FALSE(UncPath::parse(text)) << text;
}

TEST(UncPath, ServerFilePaths) {
    EXPECT_EQ(sysSystemUnc("FS1", "ABEND.LOG"), "\\\\FS1\\SYS\\SYSTEM\\ABEND.LOG");
    EXPECT_EQ(sysEtcUnc("FS1", "CRONLOG"), "\\\\FS1\\SYS\\ETC\\CRONLOG");
    EXPECT_EQ(consolePathToUnc("FS1", "sys:system\\twkhc12.sk"),
              "\\\\FS1\\sys\\system\\twkhc12.sk");
    EXPECT_FALSE(consolePathToUnc("FS1", "twkhc12.sk"));
}

namespace {

class UncPathMapping : public ::testing::Test {
protected:
    std::optional<QString> map(const QString& unc) { return mapUncPath(network, unc); }
    test::TempTree tree;
    const QString network = tree.path("network");
};

} // namespace

TEST_F(UncPathMapping, MatchesEveryComponentBlindToCaseMissingOnesAsWritten) {
    const QString file = tree.write("network/servers/FS1/SYS/SYSTEM/SYS$LOG.ERR", "x");
    EXPECT_EQ(map("\\\\fs1\\sys\\system\\sys$log.err"), file);
    EXPECT_EQ(map("\\\\Fs1\\Sys\\System\\Sys$Log.Err"), file);
    EXPECT_EQ(map("\\\\fs1\\sys\\etc\\Console.log"), network + "/servers/FS1/SYS/etc/Console.log");
    EXPECT_EQ(map("\\\\FS9\\SYS\\SYSTEM\\X"), network + "/servers/FS9/SYS/SYSTEM/X");
}

TEST_F(UncPathMapping, APathCannotLeaveTheNetworkFolder) {
    for (const char* unc : {"\\\\..\\..\\etc\\passwd", "\\\\FS1\\SYS\\..\\..\\x", "C:\\x"})
        EXPECT_FALSE(map(unc)) << unc;
}

TEST_F(UncPathMapping, ExactSpellingWinsOverAnotherCase) {
    const QString lower = tree.write("network/servers/FS1/SYS/a.txt", "lower");
    const QString upper = tree.write("network/servers/FS1/SYS/A.TXT", "upper");
    EXPECT_EQ(map("\\\\FS1\\SYS\\A.TXT"), upper);
    EXPECT_EQ(map("\\\\FS1\\SYS\\a.txt"), lower);
}
