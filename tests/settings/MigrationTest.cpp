// Migrations of twk.ini written by older versions.

#include "TestSupport.h"
#include "core/settings/DefaultSettings.h"
#include "core/settings/IniFile.h"
#include "core/settings/Registry.h"
#include "core/settings/TreeContextMigration.h"

#include <gtest/gtest.h>

namespace twk {
namespace {

const QString kForwarding = "Software\\Brindlex\\TWK\\Realtime Monitor\\Event Forwarding";

const QByteArray kOldRule16 = "5,2,6,0,11,0,(none),(none),1,0,1,beep.wav,1,0,-1,-1";
const QByteArray kRule17 = "6,2,5,0,0,0,(none),(none),1,0,0,17,,0,0,-1,-1";

class SettingsMigration : public ::testing::Test {
protected:
    QStringList iniLines() {
        return IniFile::twkIni(tree.paths()).readLines().value_or(QStringList());
    }
    void writeIni(const QByteArray& content) { tree.write("app/twk.ini", content); }
    bool leftovers() {
        return QFile::exists(tree.paths().inApp("twk.new")) ||
               QFile::exists(tree.paths().inApp("twk.tmp"));
    }

    test::TempTree tree;
    test::FakeUi ui;
    Registry reg;
};

TEST_F(SettingsMigration, RtmConvertAddsTheSyslogPriorityToOldRulesOnce) {
    writeIni(" TreeContext v2\n[TreeContext]\nTreeContext=\n[RealtimeMonitor]\n" + kOldRule16 +
             "\n\n" + kRule17 + "\n");
    WriteRealtimeMonitorDefaults(reg, tree.paths());
    const QStringList lines = iniLines();
    ASSERT_EQ(lines.size(), 7);
    EXPECT_EQ(lines[4], "5,2,6,0,11,0,(none),(none),1,0,1,-1,beep.wav,1,0,-1,-1");
    EXPECT_EQ(lines[5], "");
    EXPECT_EQ(lines[6], kRule17);
    EXPECT_EQ(reg.Reg_GetValue(Hive::CurrentUser, kForwarding, "RTMConvert"), "1");
    EXPECT_FALSE(leftovers());

    writeIni("[RealtimeMonitor]\n" + kOldRule16 + "\n");
    WriteRealtimeMonitorDefaults(reg, tree.paths());
    EXPECT_EQ(iniLines().last(), kOldRule16);
}

TEST_F(SettingsMigration, RtmConvertWithoutIniOnlySetsTheFlag) {
    WriteRealtimeMonitorDefaults(reg, tree.paths());
    EXPECT_EQ(reg.Reg_GetValue(Hive::CurrentUser, kForwarding, "RTMConvert"), "1");
    EXPECT_FALSE(IniFile::twkIni(tree.paths()).exists());
}

TEST_F(SettingsMigration, TreeContextV2KeepsTheContextAndTheRules) {
    writeIni("; my notes\r\n[TreeContext]\r\nTreeContext=NDS:\\\\ACME\\O\r\n"
             "[RealtimeMonitor]\r\n" +
             kRule17 + "\r\n\r\nnot a rule\r\n");
    MigrateTreeContext(tree.paths(), ui);
    const QStringList lines = iniLines();
    EXPECT_EQ(lines[0], QString(81, '-'));
    EXPECT_EQ(lines[1], " TreeContext v2");
    EXPECT_EQ(lines[2], QString(81, '-'));
    EXPECT_EQ(lines[3], "");
    EXPECT_TRUE(lines[4].startsWith("During the startup of Tarnwick the entire tree is "
                                    "scanned started at"));
    EXPECT_EQ(IniFile::twkIni(tree.paths()).IniValue("TreeContext", "TreeContext"),
              "NDS:\\\\ACME\\O");
    const qsizetype section = lines.indexOf("[RealtimeMonitor]");
    EXPECT_EQ(lines[section - 1], "TreeContext=NDS:\\\\ACME\\O");
    EXPECT_EQ(lines.mid(section + 1), (QStringList{kRule17, "", "not a rule"}));
    EXPECT_FALSE(lines.contains("; my notes"));
    EXPECT_FALSE(leftovers());

    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title, " New Feature:");
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Information);
    EXPECT_EQ(ui.messages[0].buttons, MsgButtons::Ok);

    const QByteArray migrated = tree.read("app/twk.ini");
    MigrateTreeContext(tree.paths(), ui);
    EXPECT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(tree.read("app/twk.ini"), migrated);
}

TEST_F(SettingsMigration, MarkerInsideACommentLeavesTheFileAlone) {
    const QByteArray content = "; converted by hand, like TreeContext v2\n[TreeContext]\n"
                               "TreeContext=x\n[RealtimeMonitor]\n";
    writeIni(content);
    MigrateTreeContext(tree.paths(), ui);
    EXPECT_EQ(tree.read("app/twk.ini"), content);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(SettingsMigration, TreeContextWithoutIniCreatesNothing) {
    MigrateTreeContext(tree.paths(), ui);
    EXPECT_FALSE(IniFile::twkIni(tree.paths()).exists());
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_FALSE(leftovers());
}

TEST_F(SettingsMigration, OldFileGetsDefaultRulesConversionAndHeadInOneStart) {
    writeIni("[TreeContext]\nTreeContext=NDS:\\\\T\\O\n[RealtimeMonitor]\n" + kOldRule16 + "\n");
    RunDefaultWriters(reg, tree.paths(), ui);
    const QStringList lines = iniLines();
    EXPECT_EQ(lines[1], " TreeContext v2");
    EXPECT_EQ(lines.last(), "5,2,6,0,11,0,(none),(none),1,0,1,-1,beep.wav,1,0,-1,-1");
    EXPECT_EQ(lines.count("[RealtimeMonitor]"), 1);
    EXPECT_EQ(ui.messages.size(), 1u);
}

} // namespace
} // namespace twk
