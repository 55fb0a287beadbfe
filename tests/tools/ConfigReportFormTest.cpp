// The configuration report dialog's model: report names, CONFIG.NLM on the simulated
// console, the wait, the file list, deleting, the two report slots and the viewer.

#include "tools/ConfigReportForm.h"
#include "ToolsTestSupport.h"
#include "directory/NetworkFolderClient.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace twk;

namespace {

class ConfigReports : public ::testing::Test {
protected:
    explicit ConfigReports(const QByteArray& scenario = "[scenario FS1]\nconfig-run-ms = 0\n")
        : t(scenario), form(*t.engine) {}
    void load() { form.Form_Load(); }
    QStringList names() const {
        QStringList out;
        for (const ConfigFileRow& r : form.FileGrid1)
            out << r.cell(configReportColumn::Name);
        return out;
    }
    test::ToolsEngine t;
    FrmConfigReport form;
};

class StuckConfigNlm : public ConfigReports {
protected:
    StuckConfigNlm() : ConfigReports("[scenario FS1]\nconfig-run-ms = 100000000\n") {}
};

class NoConsoleRights : public ConfigReports {
protected:
    NoConsoleRights() : ConfigReports("[scenario FS1]\nconsole-rights = no\n") {}
};

} // namespace

TEST_F(ConfigReports, TheNextNameFillsTheFirstGap) {
    EXPECT_EQ(form.fnReportName("FS1"), "config-twk1.txt");
    for (const char* n : {"config-twk1.txt", "config-twk3.txt"})
        t.system(QString::fromLatin1(n));
    EXPECT_EQ(form.fnReportName("FS1"), "config-twk2.txt");
    t.system("CONFIG-TWK2.TXT");
    EXPECT_EQ(form.fnReportName("FS1"), "config-twk4.txt") << "names are blind to case";
    for (int n = 4; n <= 1000; ++n)
        t.system(QStringLiteral("config-twk%1.txt").arg(n), "");
    EXPECT_EQ(form.fnReportName("FS1"), "");
}

TEST_F(ConfigReports, LoadingListsTheTextFilesOfTheChosenServer) {
    t.system("config-twk10.txt", QByteArray(1234567, 'x'));
    t.system("config-twk2.txt");
    t.system("README.TXT", "");
    t.system("other.log");
    load();
    EXPECT_EQ(form.cbServer.items, (QStringList{"FS1", "FS2"}));
    EXPECT_EQ(form.server(), "FS1");
    EXPECT_EQ(names(), (QStringList{"config-twk2.txt", "config-twk10.txt", "readme.txt"}));
    const ConfigFileRow& big = form.FileGrid1[1];
    EXPECT_EQ(big.cell(configReportColumn::Icon), configReportText::kReportIcon);
    EXPECT_EQ(big.cell(configReportColumn::Size), "1,234,567");
    EXPECT_TRUE(big.cell(configReportColumn::Modified).endsWith(' '));
    EXPECT_EQ(form.FileGrid1[2].cell(configReportColumn::Icon), configReportText::kTextFileIcon);
    for (const ButtonState* b :
         {&form.cmdSetAsReport1, &form.cmdSetAsReport2, &form.cmdResetReport1,
          &form.cmdResetReport2, &form.cmdOpenConfigViewer})
        EXPECT_FALSE(b->enabled);
    EXPECT_FALSE(form.ucWaitBarVisible);

    form.cbServer.ListIndex = 1;
    form.cbServer_Click();
    EXPECT_TRUE(form.FileGrid1.empty()) << "FS2 has no text files";
}

TEST(ConfigFileCreated, TimesOfTheList) {
    const QDateTime modified(QDate(2024, 5, 6), QTime(10, 0, 0));
    EXPECT_EQ(configFileCreated(QDateTime(), modified, 10), "2024-05-06 10:00:00 * ");
    const QDateTime created = QDateTime(QDate(2024, 5, 1), QTime(8, 30, 0), Qt::UTC);
    EXPECT_EQ(configFileCreated(created, modified, 0), "2024-05-01 08:30:00 ")
        << "an empty file's time has no correction";
    EXPECT_EQ(configFileCreated(created, modified, 5),
              created.toLocalTime().toString("yyyy-MM-dd hh:mm:ss") + " ");
}

TEST_F(ConfigReports, ACreatedReportIsWaitedForAndListed) {
    t.system("config-twk1.txt");
    load();
    int redraws = 0;
    form.changed = [&] {
        ++redraws;
    };
    form.cmdCreateReport_Click();
    EXPECT_EQ(form.ConfigReportFile, "\\\\FS1\\SYS\\SYSTEM\\config-twk2.txt");
    const QStringList history =
        dynamic_cast<NetworkFolderClient&>(*t.engine->network).simulator().history();
    EXPECT_TRUE(history.contains("FS1: LOAD config /o=config-twk2.txt /all /f"));
    EXPECT_EQ(form.ConfigTimerTag, "175") << "the lock is checked every 5 seconds";
    EXPECT_FALSE(form.configTimerEnabled());
    EXPECT_FALSE(form.waitBarTimerEnabled());
    EXPECT_FALSE(form.ucWaitBarVisible);
    EXPECT_TRUE(form.cmdExit.enabled);
    EXPECT_TRUE(form.cbServer.enabled);
    EXPECT_EQ(names(), (QStringList{"config-twk1.txt", "config-twk2.txt"}));
    EXPECT_GT(redraws, 100) << "the bar moved while the module ran";
    EXPECT_TRUE(t.tree.read("network/servers/FS1/SYS/SYSTEM/config-twk2.txt")
                    .contains("***** Loaded Modules *****"));
    EXPECT_TRUE(t.ui.messages.empty());
}

TEST_F(StuckConfigNlm, AReportNeverReleasedEndsTheWaitAfterThreeMinutes) {
    load();
    bool disabledWhileWaiting = false;
    form.changed = [&] {
        if (!form.configTimerEnabled())
            return;
        disabledWhileWaiting = !form.cmdExit.enabled && !form.cbServer.enabled &&
                               !form.cmdCreateReport.enabled && form.ucWaitBarVisible;
        form.cbServer_GotFocus(); // the server can't be changed during the wait
        disabledWhileWaiting = disabledWhileWaiting && form.focus == "ucWaitBar";
    };
    const std::int64_t before = t.clock.elapsedMs();
    form.cmdCreateReport_Click();
    EXPECT_TRUE(disabledWhileWaiting);
    EXPECT_EQ(form.ConfigTimerTag, "0");
    EXPECT_GE(t.clock.elapsedMs() - before, 180000);
    EXPECT_LT(t.clock.elapsedMs() - before, 181000);
    EXPECT_EQ(names(), QStringList{"config-twk1.txt"}) << "listed as it is";
    EXPECT_EQ(form.focus, "cmdExit");
}

TEST_F(ConfigReports, AMissingModuleOrLackingRightsAreSaid) {
    load();
    form.cbServer.ListIndex = 1; // FS2 has no CONFIG.NLM
    form.cmdCreateReport_Click();
    ASSERT_EQ(t.ui.messages.size(), 1u);
    EXPECT_EQ(t.ui.messages[0].text,
              "The CONFIG.NLM module on Server \\\\FS2\r\n" + configReportText::kNoConfigNlm2 +
                  "\r\n" + configReportText::kNoConfigNlm3 +
                  "\r\nand copy it into the SYSTEM directory (search for fconfig16.zip).       ");
    EXPECT_EQ(t.ui.messages[0].icon, MsgIcon::Critical);
    EXPECT_EQ(t.ui.messages[0].title, " Tarnwick");
    EXPECT_TRUE(form.ConfigReportFile.isEmpty());
}

TEST_F(NoConsoleRights, TheModuleThatMayNotBeLoaded) {
    load();
    form.cmdCreateReport_Click();
    ASSERT_EQ(t.ui.messages.size(), 1u);
    EXPECT_EQ(t.ui.messages[0].text,
              "You don't have sufficient privileges to server        \r\n\\\\FS1 to create a "
              "config report with the        \r\nCONFIG.NLM tool!");
    EXPECT_EQ(t.ui.messages[0].icon, MsgIcon::Exclamation);
    EXPECT_FALSE(form.ucWaitBarVisible);
}

TEST_F(ConfigReports, ClicksSelectAndDeleteFiles) {
    t.system("config-twk1.txt");
    const QString other = t.system("notes.txt");
    load();
    form.FileGrid1_MouseUp(MouseButton::Left, 2);
    EXPECT_EQ(form.txtbSelectedReport.text, "\\\\FS1\\SYS\\SYSTEM\\notes.txt");
    EXPECT_TRUE(form.cmdSetAsReport1.enabled && form.cmdSetAsReport2.enabled);

    t.ui.answers = {MsgResult::No};
    form.FileGrid1_MouseUp(MouseButton::Right, 2);
    EXPECT_EQ(t.lastMessage(), "Shall the Server Configuration Report...       \r\n"
                               "\\\\FS1\\SYS\\SYSTEM\\notes.txt        \r\nbe deleted?");
    EXPECT_EQ(t.ui.messages.back().buttons, MsgButtons::YesNo);
    EXPECT_TRUE(QFile::exists(other));

    form.FileGrid1_MouseUp(MouseButton::Right, 2); // Yes
    EXPECT_FALSE(QFile::exists(other));
    EXPECT_EQ(names(), QStringList{"config-twk1.txt"});
    EXPECT_EQ(form.focus, "cmdExit");
    EXPECT_TRUE(form.txtbSelectedReport.text.isEmpty()) << "the deleted file is no choice";
    form.FileGrid1_MouseUp(MouseButton::Left, 9); // below the rows: nothing
    EXPECT_TRUE(form.txtbSelectedReport.text.isEmpty());
}

TEST_F(ConfigReports, TheSlotsDecideHowTheViewerIsStarted) {
    t.system("config-twk1.txt");
    t.system("config-twk2.txt");
    load();
    form.cmdOpenConfigViewer_Click();
    EXPECT_EQ(t.lastMessage(), "ConfigViewer.exe is not available!\r\nPlease re-install "
                               "Tarnwick.   ");
    const QString viewer = t.tree.write("program/tarnwick-configviewer", "x");

    form.FileGrid1_MouseUp(MouseButton::Left, 2);
    form.cmdSetAsReport2_Click();
    EXPECT_EQ(form.txtbReport2.text, "\\\\FS1\\SYS\\SYSTEM\\config-twk2.txt");
    EXPECT_TRUE(form.cmdOpenConfigViewer.enabled);
    EXPECT_TRUE(form.cmdResetReport2.enabled);
    EXPECT_FALSE(form.cmdResetReport1.enabled);
    form.cmdOpenConfigViewer_Click();
    ASSERT_EQ(t.desktop.opened.size(), 1u);
    EXPECT_EQ(t.desktop.opened.back(), viewer + " -F1=\\\\FS1\\SYS\\SYSTEM\\config-twk2.txt")
        << "only the second: as -F1=";

    form.FileGrid1_MouseUp(MouseButton::Left, 1);
    form.cmdSetAsReport1_Click();
    form.cmdOpenConfigViewer_Click();
    EXPECT_EQ(t.desktop.opened.back(), viewer + " -F1=\\\\FS1\\SYS\\SYSTEM\\config-twk1.txt "
                                                "-F2=\\\\FS1\\SYS\\SYSTEM\\config-twk2.txt");

    form.cmdResetReport1_Click();
    EXPECT_TRUE(form.cmdSetAsReport1.enabled) << "the set button can be used again";
    EXPECT_TRUE(form.cmdOpenConfigViewer.enabled);
    form.cmdResetReport2_Click();
    EXPECT_FALSE(form.cmdOpenConfigViewer.enabled);
    mnuConfigReport_Click(*t.engine);
    EXPECT_EQ(t.desktop.opened.back(), viewer + " ") << "the menu: no reports";
}
