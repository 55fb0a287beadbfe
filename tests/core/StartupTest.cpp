#include "core/Startup.h"

#include "TestSupport.h"
#include "core/Engine.h"

#include <gtest/gtest.h>

using namespace twk;

// The switches that are help ("-help", "-HELP", "-?") are tried through Main.
TEST(CoreStartup, HelpSwitches) {
    EXPECT_FALSE(isHelpSwitch(QStringLiteral("-help ")));
    EXPECT_FALSE(isHelpSwitch(QStringLiteral("/?")));
    EXPECT_EQ(
        HelpBoxText(),
        QStringLiteral("command line parameter help:\r\n\r\n-debug  :  start Tarnwick in debug "
                       "mode\r\n-rtm  :  start the Realtime Event Monitoring at TWK startup   "
                       "     \r\n-? or -help  :  show this help message\r\n\r\nlogfile.twk  : "
                       "open the specified logfile at TWK startup\r\n"));
}

TEST(CoreStartup, TheWholeCommandTailIsOneArgument) {
    const auto exists = [](const QString& p) {
        return p == QStringLiteral("/logs/my file.twk");
    };
    EXPECT_EQ(StartArgument({QStringLiteral("/logs/my"), QStringLiteral("file.twk")}),
              QStringLiteral("/logs/my file.twk"));
    const struct {
        const char* argument;
        bool debugMode, startMonitor, openSavedLogfile, backgroundImage;
    } cases[] = {{"/logs/my file.twk", false, false, true, false},
                 {"-RTM", false, true, false, false},
                 {"-rtm -debug", false, false, false, true},
                 {"-Debug", true, false, false, true},
                 {"", false, false, false, true},
                 {"\"/logs/my file.twk\"", false, false, false, true}};
    for (const auto& c : cases) {
        const ArgumentEffect e = EffectOfArgument(QString::fromLatin1(c.argument), exists);
        EXPECT_EQ(e.debugMode, c.debugMode) << c.argument;
        EXPECT_EQ(e.startMonitor, c.startMonitor) << c.argument;
        EXPECT_EQ(e.openSavedLogfile, c.openSavedLogfile) << c.argument;
        EXPECT_EQ(e.backgroundImage, c.backgroundImage) << c.argument;
    }
}

TEST(CoreStartup, InitWritesTheDefaultsAndSetsTheMenus) {
    test::TempTree tree;
    test::FakeUi ui;
    NoProgress progress;
    Engine engine(tree.paths(), ui, progress);
    engine.view.CurrentView = views::kCronlog;
    engine.DebugMode = true;
    Init(engine);
    EXPECT_TRUE(engine.view.CurrentView.isEmpty());
    EXPECT_FALSE(engine.DebugMode);
    EXPECT_FALSE(engine.view.menuEnabled(QStringLiteral("mnuFilter")));
    EXPECT_FALSE(engine.view.menuVisible(QStringLiteral("mnuAnalyzer")));
    EXPECT_FALSE(engine.view.menuEnabled(QStringLiteral("mnuTipOfTheDay")));
    EXPECT_FALSE(engine.view.menuEnabled(QStringLiteral("mnuConfigReport")));
    EXPECT_EQ(engine.registry.Reg_GetValue(
                  Hive::CurrentUser,
                  QStringLiteral("Software\\Brindlex\\TWK\\SYS$LOG.ERR\\Column10"), QString()),
              QStringLiteral("1220"));
    EXPECT_EQ(engine.sysLogColumnWidths()[0], 25);
    const QByteArray ini = tree.read("app/twk.ini");
    EXPECT_TRUE(ini.contains("TreeContext v2"));
    EXPECT_TRUE(ini.contains("[RealtimeMonitor]"));
    EXPECT_TRUE(ui.messages.empty()); // a fresh file needs no migration notice

    tree.write("app/tips.tdy", "tip");
    tree.write("program/tarnwick-configviewer", "x");
    engine.saveSysLogColumnWidth(3, 77);
    Init(engine);
    EXPECT_TRUE(engine.view.menuEnabled(QStringLiteral("mnuTipOfTheDay")));
    EXPECT_TRUE(engine.view.menuEnabled(QStringLiteral("mnuConfigReport")));
    EXPECT_EQ(engine.sysLogColumnWidths()[2], 77); // defaults never overwrite
}
