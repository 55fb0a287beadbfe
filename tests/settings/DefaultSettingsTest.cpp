// The default writers at start: a fresh installation, a second start, a user's changes.

#include "core/settings/DefaultSettings.h"
#include "TestSupport.h"
#include "core/settings/IniFile.h"
#include "core/settings/Registry.h"
#include "core/settings/SysLogErrColumns.h"
#include "monitor/FilterRuleFile.h"

#include <gtest/gtest.h>

namespace twk {
namespace {

const QString kTwk = "Software\\Brindlex\\TWK\\";

class SettingsDefaults : public ::testing::Test {
protected:
    QString value(const QString& key, const QString& name) {
        return reg.Reg_GetValue(kUser, kTwk + key, name, "<missing>");
    }
    void start() { RunDefaultWriters(reg, tree.paths(), ui); }
    QStringList iniLines() {
        return IniFile::twkIni(tree.paths()).readLines().value_or(QStringList());
    }

    test::TempTree tree;
    test::FakeUi ui;
    Registry reg{tree.paths().registryFile()};
};

TEST_F(SettingsDefaults, FreshStartWritesTheDefaultRulesFrom39DownTo1) {
    start();
    const QStringList lines = iniLines();
    const qsizetype section = lines.indexOf("[RealtimeMonitor]");
    ASSERT_GT(section, 0);
    EXPECT_EQ(lines[section - 1], "");
    const QStringList rules = lines.mid(section + 1);
    ASSERT_EQ(rules.size(), 39);
    for (int i = 0; i < 39; ++i) {
        EXPECT_TRUE(rules[i].startsWith(QString::number(39 - i) + ",")) << i;
        EXPECT_EQ(rules[i].count(','), 16) << i;
    }
    EXPECT_EQ(rules[39 - 13], "13,2,0,0,2,0,out of,memory,1,0,0,-1,,0,0,-1,-1");
    EXPECT_EQ(rules[39 - 19],
              "19,2,0,0,0,7,experienced a critical error,(none),1,0,0,-1,,0,0,-1,-1");
    EXPECT_EQ(rules[39 - 1], "1,2,7,0,8,0,(none),(none),1,0,0,-1,,0,0,-1,-1");
    // The head of a fresh file is already of the current layout: no migration, no box.
    EXPECT_EQ(lines[1], " TreeContext v2");
    EXPECT_EQ(IniFile::twkIni(tree.paths()).IniValue("TreeContext", "TreeContext"), "");
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(SettingsDefaults, FreshStartWritesEverySetting) {
    start();
    const struct {
        const char* key;
        const char* name;
        QString expected;
    } expected[] = {
        {"TIDs\\1", "", "TID-10060600 NDS Health Check Procedures - Cross Platform ( 18FEB2003)"},
        {"TIDs\\3", "", "TID-2938836 Before calling support for OS Issues ( 17JUL2000)"},
        {"TIDs\\LastTID", "", "3"},
        {"SYS$LOG.ERR\\Column1", "", "25"},
        {"SYS$LOG.ERR\\Column10", "", "1220"},
        {"Realtime Monitor\\Interval", "Interval", "60"},
        {"Realtime Monitor\\E-Mail", "SMTP Port", "25"},
        {"Realtime Monitor\\E-Mail", "POP3 Authentication", "0"},
        {"Realtime Monitor\\E-Mail", "From", ""},
        {"Realtime Monitor\\Event Forwarding", "SyslogServer", ""},
        {"Realtime Monitor\\Event Forwarding", "DestinationPort", "514"},
        {"Realtime Monitor\\Event Forwarding", "RFCHeader", "1"},
        {"Realtime Monitor\\Event Forwarding", "addCRLF", "1"},
        {"Realtime Monitor\\Event Forwarding", "SilentErrors", "0"},
        {"Realtime Monitor\\Event Forwarding", "RTMConvert", "1"},
        {"Realtime Monitor\\Logging", "Local Logfile", tree.paths().inApp("RTMLog.txt")},
        {"Realtime Monitor\\Misc", "HeartbeatInterval", "60"},
        {"Realtime Monitor\\Misc", "SortOrder", "0"},
        {"Realtime Monitor\\Misc", "FTPpassword", ""},
        {"HealthCheck", "ShowHints", "1"},
        {"HealthCheck", "ServerSyncTraceTime", "90"},
        {"HealthCheck", "ReplicaSyncTimeDiff", "60"},
    };
    for (const auto& e : expected)
        EXPECT_EQ(value(e.key, e.name), e.expected) << e.key << " " << e.name;
    EXPECT_TRUE(reg.RegKeyExist(kUser, kTwk + "Realtime Monitor\\Remote Popup"));
    EXPECT_TRUE(reg.RegKeyExist(kUser, kTwk + "Realtime Monitor\\E-Mail\\Recipients"));
    EXPECT_TRUE(reg.RegKeyExist(kUser, kTwk + "SYS$LOG.ERR\\Columns"));
}

TEST_F(SettingsDefaults, SecondStartChangesNoByte) {
    start();
    const QByteArray ini = tree.read("app/twk.ini");
    const QByteArray settings = tree.read("config/registry.reg");
    Registry again(tree.paths().registryFile());
    RunDefaultWriters(again, tree.paths(), ui);
    EXPECT_EQ(tree.read("app/twk.ini"), ini);
    EXPECT_EQ(tree.read("config/registry.reg"), settings);
}

TEST_F(SettingsDefaults, UsersChangesAreNeverOverwritten) {
    start();
    reg.Reg_SetString(kUser, kTwk + "HealthCheck", "ShowHints", "0");
    reg.Reg_SetString(kUser, kTwk + "Realtime Monitor\\Interval", "Interval", "300");
    reg.Reg_SetDWord(kUser, kTwk + "Realtime Monitor\\Event Forwarding", "DestinationPort", 1514);
    reg.Reg_SetString(kUser, kTwk + "Realtime Monitor\\Logging", "Local Logfile", "/var/rtm.txt");
    reg.Reg_SetString(kUser, kTwk + "TIDs\\1", "", "TID-1 mine");
    SaveColumnWidth(reg, 4, 300);
    start();
    EXPECT_EQ(value("HealthCheck", "ShowHints"), "0");
    EXPECT_EQ(value("Realtime Monitor\\Interval", "Interval"), "300");
    EXPECT_EQ(value("Realtime Monitor\\Event Forwarding", "DestinationPort"), "1514");
    EXPECT_EQ(value("Realtime Monitor\\Logging", "Local Logfile"), "/var/rtm.txt");
    EXPECT_EQ(value("TIDs\\1", ""), "TID-1 mine");
    EXPECT_EQ(ColumnWidthsSysLogErr(reg)[3], 300);
}

TEST_F(SettingsDefaults, DeletedColumnStaysDeletedAndReadsItsDefault) {
    start();
    reg.Reg_DeleteKey(kUser, kTwk + "SYS$LOG.ERR\\Column3");
    SaveColumnWidth(reg, 5, 0);
    start();
    EXPECT_FALSE(reg.RegKeyExist(kUser, kTwk + "SYS$LOG.ERR\\Column3"));
    const SysLogErrColumnWidths widths = ColumnWidthsSysLogErr(reg);
    EXPECT_EQ(widths[2], 58);
    EXPECT_EQ(widths[4], 106);
}

TEST_F(SettingsDefaults, LeftoversOfOlderVersionsAreRemoved) {
    reg.Reg_SetString(kUser, kTwk + "Health Check\\Old", "x", "1");
    reg.Reg_SetString(kUser, kTwk + "HealthCheck", "SyncTraceTime", "90");
    reg.Reg_SetString(kUser, kTwk + "Realtime Monitor\\Event Forwarding", "SYSLOG Server", "h");
    reg.Reg_SetString(kUser, kTwk + "Realtime Monitor\\Logging", "Local Logfile", "");
    start();
    EXPECT_FALSE(reg.RegKeyExist(kUser, kTwk + "Health Check"));
    EXPECT_FALSE(reg.RegSZExist(kUser, kTwk + "HealthCheck", "SyncTraceTime"));
    EXPECT_FALSE(
        reg.RegSZExist(kUser, kTwk + "Realtime Monitor\\Event Forwarding", "SYSLOG Server"));
    EXPECT_EQ(value("Realtime Monitor\\Logging", "Local Logfile"),
              tree.paths().inApp("RTMLog.txt"));
}

TEST_F(SettingsDefaults, ExistingRuleSectionGetsNoDefaults) {
    FilterRuleFile rules = FilterRuleFile::of(tree.paths());
    ASSERT_TRUE(rules.CreateIniFile());
    start();
    const QStringList lines = iniLines();
    EXPECT_EQ(lines.last(), "[RealtimeMonitor]");
    EXPECT_EQ(lines.count("[RealtimeMonitor]"), 1);
}

} // namespace
} // namespace twk
