#include "core/MainStartup.h"

#include "MainWindowSupport.h"
#include "core/FileTypeRegistration.h"
#include "core/Mainfrm.h"
#include "core/Startup.h"
#include "core/TipOfTheDay.h"
#include "monitor/RealtimeMonitor.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace twk;
using test::MainWindowFixture;

namespace {

const QStringList kNetWareLogs = {
    QStringLiteral("select logfile..."), QStringLiteral("ABEND.LOG"),
    QStringLiteral("CONFIG.TXT"),        QStringLiteral("CONSOLE.LOG"),
    QStringLiteral("CRONLOG"),           QStringLiteral("SYS$LOG.ERR")};

long callsOf(const MainWindowFixture& f, const char* call) {
    return std::count(f.port.calls.begin(), f.port.calls.end(), call);
}

} // namespace

TEST(MainStartup, HelpSwitchShowsTheHelpBoxAndNothingElse) {
    for (const char* argument : {"-help", "-HELP", "-?"}) {
        MainWindowFixture f;
        EXPECT_EQ(f.start({QString::fromLatin1(argument)}), StartupOutcome::Ended);
        ASSERT_EQ(f.ui.messages.size(), 1u) << argument;
        EXPECT_EQ(f.ui.messages[0].text, HelpBoxText());
        EXPECT_EQ(f.ui.messages[0].title, QStringLiteral(" TWK - Tarnwick"));
        EXPECT_EQ(f.ui.messages[0].icon, MsgIcon::Information);
        EXPECT_TRUE(f.port.calls.empty());
        EXPECT_FALSE(f.engine->StartupDone);
        EXPECT_FALSE(QFile::exists(f.engine->registry.filePath())) << "nothing was loaded";
    }
}

TEST(MainStartup, RunsItsStepsInOrderAndEndsIdle) {
    MainWindowFixture f;
    ASSERT_EQ(f.start(), StartupOutcome::Running);
    const std::vector<std::string> expected = {"showMainWindow", "showSplash", "unloadSplash",
                                               "focusGrid", "showTipOfTheDay"};
    EXPECT_EQ(f.port.calls, expected);
    EXPECT_GE(f.port.splashMs, kSplashMilliseconds);
    EXPECT_LT(f.port.splashMs, kSplashMilliseconds + 100);
    ASSERT_EQ(f.ui.waitForms.size(), 2u);
    EXPECT_EQ(f.ui.waitForms[0], QStringLiteral("network scan in progress..."));
    EXPECT_TRUE(f.ui.waitForms[1].isEmpty());

    const MainView& v = f.engine->view;
    EXPECT_TRUE(f.engine->StartupDone);
    EXPECT_TRUE(f.engine->ScanFinished);
    EXPECT_FALSE(v.simpleMode);
    EXPECT_FALSE(v.busyPointer);
    EXPECT_EQ(v.caption, QStringLiteral(" Tarnwick"));
    EXPECT_EQ(v.cbTree.text(), QStringLiteral("ACME_TREE"));
    EXPECT_EQ(v.cbServer.items,
              (QStringList{QStringLiteral("FS1"), QStringLiteral("FS2"), QStringLiteral("LX1")}));
    EXPECT_EQ(v.cbVolume.text(), QStringLiteral("SYS"));
    EXPECT_EQ(v.cbLogFile.items, kNetWareLogs);
    EXPECT_EQ(v.cbLogFile.ListIndex, 0);
    EXPECT_TRUE(v.cbLogFile.enabled);
    EXPECT_EQ(f.engine->Grid1.Cols(), 10) << "the empty grid has its columns";
    EXPECT_EQ(f.engine->Grid1.Rows(), 0);
    EXPECT_TRUE(v.backgroundImage);
    EXPECT_EQ(v.picLogfileToolTip, QStringLiteral(" please select a logfile to analyse... "));
    EXPECT_TRUE(f.ui.messages.empty());
}

TEST(MainStartup, ControlKeyOrDebugArgumentTurnsDebugModeOnWithOneSuffix) {
    for (const auto& [ctrl, argument] :
         {std::pair{true, ""}, {false, "-DEBUG"}, {true, "-debug"}}) {
        MainWindowFixture f;
        f.port.ctrl = ctrl;
        f.start(*argument ? QStringList{QString::fromLatin1(argument)} : QStringList{});
        EXPECT_TRUE(f.engine->DebugMode) << argument;
        EXPECT_EQ(f.engine->view.caption, QStringLiteral(" Tarnwick   [DEBUG MODE=ON]"))
            << argument;
    }
}

TEST(MainStartup, MissingClientShowsTheStyledBoxAndEnds) {
    MainWindowFixture f;
    f.engine->network.reset();
    EXPECT_EQ(f.start(), StartupOutcome::Ended);
    ASSERT_EQ(f.ui.styled.size(), 1u);
    const StyledMessage& m = f.ui.styled[0];
    EXPECT_EQ(m.headline, QStringLiteral("Error!"));
    ASSERT_EQ(m.lines.size(), 7);
    EXPECT_EQ(m.lines[0], QStringLiteral("Novell Client not found!"));
    EXPECT_EQ(m.lines[1], QStringLiteral("Tarnwick needs a Novell Client"));
    EXPECT_EQ(m.lines[2], QStringLiteral("to work properly. Please download the latest"));
    EXPECT_EQ(m.lines[3], QStringLiteral("Novell Client for free at..."));
    EXPECT_TRUE(m.lines[4].startsWith(QStringLiteral("https://")));
    EXPECT_TRUE(m.line5IsLink);
    EXPECT_EQ(m.lines[5], QStringLiteral("and install it. Tarnwick will be"));
    EXPECT_EQ(m.lines[6], QStringLiteral("terminated after closing this message."));
    EXPECT_TRUE(f.port.calls.empty()) << "the main window is never shown";
}

TEST(MainStartup, RtmArgumentStartsTheMonitorAndSkipsTheLastSteps) {
    MainWindowFixture f(false);
    int monitorStarts = 0;
    f.engine->hooks.mnuRTM_Click = [&] {
        ++monitorStarts;
    };
    f.start({QStringLiteral("-RTM")});
    EXPECT_EQ(monitorStarts, 1);
    EXPECT_EQ(f.engine->view.cbTree.text(), QStringLiteral("tree not found"));
    EXPECT_EQ(callsOf(f, "showTreeNotFound"), 0);
    EXPECT_EQ(callsOf(f, "showTipOfTheDay"), 0);
}

TEST(MainStartup, RtmWithoutServersAsksForOne) {
    MainWindowFixture f;
    f.start({QStringLiteral("-rtm")});
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.ui.messages[0].text, rtmText::kNoServer);
    EXPECT_TRUE(f.engine->StartupDone);
}

TEST(MainStartup, AnExistingFileIsOpenedAsSavedLogfile) {
    MainWindowFixture f;
    const QString saved =
        f.tree.write(QStringLiteral("logs/my log.twk"), "LOGFILE: SYS$LOG.ERR\r\n");
    QStringList loaded;
    f.engine->hooks.LoadSavedLogfile = [&](const QString& path) {
        loaded << path;
    };
    f.start(saved.split(QLatin1Char(' ')));
    EXPECT_EQ(loaded, QStringList{saved});

    MainWindowFixture other;
    QStringList none;
    other.engine->hooks.LoadSavedLogfile = [&](const QString& path) {
        none << path;
    };
    other.start({QStringLiteral("\"") + saved + QStringLiteral("\"")});
    EXPECT_TRUE(none.isEmpty()) << "a quoted path is no file";
    EXPECT_TRUE(other.engine->view.backgroundImage);
}

TEST(MainStartup, NoTreeFoundShowsItsDialog) {
    MainWindowFixture f(false);
    f.start();
    EXPECT_EQ(f.engine->view.cbTree.text(), QStringLiteral("tree not found"));
    EXPECT_FALSE(f.engine->view.cbLogFile.enabled);
    EXPECT_EQ(callsOf(f, "showTreeNotFound"), 1);
    EXPECT_TRUE(f.engine->StartupDone);
}

TEST(MainStartup, TipOfTheDayFollowsItsSwitchAndTheFile) {
    MainWindowFixture off;
    SetTipsAtStartup(off.engine->registry, false);
    off.start();
    EXPECT_EQ(callsOf(off, "showTipOfTheDay"), 0);
    EXPECT_TRUE(off.engine->view.menuEnabled(QStringLiteral("mnuTipOfTheDay")));

    MainWindowFixture missing;
    missing.engine->paths.shareFolder = missing.tree.path(QStringLiteral("empty-share"));
    missing.start();
    EXPECT_EQ(callsOf(missing, "showTipOfTheDay"), 0);
    EXPECT_FALSE(missing.engine->view.menuEnabled(QStringLiteral("mnuTipOfTheDay")));
}

TEST(MainStartup, RegistersTheFileTypeAtEveryStart) {
    MainWindowFixture f;
    f.engine->registry.Reg_SetString(Hive::ClassesRoot, QStringLiteral(".twk"), QString(),
                                     QStringLiteral("otherfile"));
    f.start();
    for (const auto& [key, value] : {std::pair{".twk", "twkfile"},
                                     {"twkfile\\shell\\open\\command", "/opt/tarnwick/tarnwick %1"},
                                     {"twkfile\\DefaultIcon", "/opt/tarnwick/twkfile.svg"}})
        EXPECT_EQ(f.engine->registry.Reg_GetValue(Hive::ClassesRoot, QString::fromLatin1(key), {}),
                  QString::fromLatin1(value))
            << key;
}

TEST(FileType, ExtensionAndClassName) {
    EXPECT_EQ(normalizedExtension(QStringLiteral("TWK")), QStringLiteral(".twk"));
    EXPECT_EQ(normalizedExtension(QStringLiteral(".Twk")), QStringLiteral(".twk"));
    EXPECT_EQ(fileClassOf(QStringLiteral("TWK")), QStringLiteral("twkfile"));
}

TEST(FileType, DesktopEntryAndMimeTypeAreWrittenOnce) {
    test::TempTree tree;
    const QString home = tree.path(QStringLiteral("xdg"));
    ASSERT_TRUE(InstallDesktopFileType(home, QStringLiteral("/usr/bin/tarnwick"),
                                       QStringLiteral("/i.svg")));
    const QByteArray desktop = tree.read(QStringLiteral("xdg/applications/tarnwick.desktop"));
    EXPECT_TRUE(desktop.contains("Exec=/usr/bin/tarnwick %f\n"));
    EXPECT_TRUE(desktop.contains("MimeType=application/x-tarnwick-logfile;\n"));
    const QByteArray mime = tree.read(QStringLiteral("xdg/mime/packages/tarnwick.xml"));
    EXPECT_TRUE(mime.contains("<glob pattern=\"*.twk\"/>"));
    EXPECT_TRUE(InstallDesktopFileType(home, QStringLiteral("/usr/bin/tarnwick"),
                                       QStringLiteral("/i.svg")));
    EXPECT_FALSE(InstallDesktopFileType(QString(), QStringLiteral("/x"), QStringLiteral("/y")));
    // A data folder that cannot be made fails quietly.
    tree.write(QStringLiteral("blocked"), "a file, not a folder");
    EXPECT_FALSE(InstallDesktopFileType(tree.path(QStringLiteral("blocked")), QStringLiteral("/x"),
                                        QStringLiteral("/y")));
}
