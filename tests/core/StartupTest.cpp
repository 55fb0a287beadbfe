#include "core/Startup.h"

#include "TestSupport.h"
#include "core/Engine.h"

#include <gtest/gtest.h>

using namespace twk;

TEST(CoreStartup, HelpSwitches) {
    EXPECT_TRUE(isHelpSwitch(QStringLiteral("-help")));
    EXPECT_TRUE(isHelpSwitch(QStringLiteral("-HELP")));
    EXPECT_TRUE(isHelpSwitch(QStringLiteral("-?")));
    EXPECT_FALSE(isHelpSwitch(QStringLiteral("-help ")));
    EXPECT_FALSE(isHelpSwitch(QStringLiteral("/?")));
    EXPECT_EQ(HelpBoxText(),
              QStringLiteral("command line parameter help:\r\n\r\n-debug  :  start Tarnwick in debug "
                             "mode\r\n-rtm  :  start the Realtime Event Monitoring at TWK startup   "
                             "     \r\n-? or -help  :  show this help message\r\n\r\nlogfile.twk  : "
                             "open the specified logfile at TWK startup\r\n"));
    EXPECT_EQ(kHelpBoxTitle, QStringLiteral(" TWK - Tarnwick"));
}

TEST(CoreStartup, TheWholeCommandTailIsOneArgument) {
    const auto exists = [](const QString& p) { return p == QStringLiteral("/logs/my file.twk"); };
    EXPECT_EQ(StartArgument({QStringLiteral("/logs/my"), QStringLiteral("file.twk")}),
              QStringLiteral("/logs/my file.twk"));
    EXPECT_TRUE(EffectOfArgument(QStringLiteral("/logs/my file.twk"), exists).openSavedLogfile);

    const ArgumentEffect rtm = EffectOfArgument(QStringLiteral("-RTM"), exists);
    EXPECT_TRUE(rtm.startMonitor);
    EXPECT_FALSE(rtm.backgroundImage);
    const ArgumentEffect both = EffectOfArgument(QStringLiteral("-rtm -debug"), exists);
    EXPECT_FALSE(both.startMonitor);
    EXPECT_FALSE(both.debugMode);
    EXPECT_FALSE(both.openSavedLogfile);
    EXPECT_TRUE(both.backgroundImage);

    const ArgumentEffect debug = EffectOfArgument(QStringLiteral("-Debug"), exists);
    EXPECT_TRUE(debug.debugMode);
    EXPECT_TRUE(debug.backgroundImage);
    EXPECT_FALSE(debug.openSavedLogfile);
    EXPECT_TRUE(EffectOfArgument(QString(), exists).backgroundImage);
    EXPECT_TRUE(EffectOfArgument(QStringLiteral("\"/logs/my file.twk\""), exists).backgroundImage);
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
    EXPECT_EQ(engine.registry.Reg_GetValue(Hive::CurrentUser,
                                           QStringLiteral("Software\\Brindlex\\TWK\\SYS$LOG.ERR\\Column10"),
                                           QString()),
              QStringLiteral("1220"));
    EXPECT_EQ(engine.sysLogColumnWidths()[0], 25);
    const QByteArray ini = tree.read("app/twk.ini");
    EXPECT_TRUE(ini.contains("TreeContext v2"));
    EXPECT_TRUE(ini.contains("[RealtimeMonitor]"));
    EXPECT_TRUE(ui.messages.empty()); // a fresh file needs no migration notice

    tree.write("app/tips.tdy", "tip");
    tree.write("program/tarnwick-viewer", "x");
    engine.saveSysLogColumnWidth(3, 77);
    Init(engine);
    EXPECT_TRUE(engine.view.menuEnabled(QStringLiteral("mnuTipOfTheDay")));
    EXPECT_TRUE(engine.view.menuEnabled(QStringLiteral("mnuConfigReport")));
    EXPECT_EQ(engine.sysLogColumnWidths()[2], 77); // defaults never overwrite
}
