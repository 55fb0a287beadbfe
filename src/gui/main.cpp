// tarnwick: the window program.

#include "alerts/MonitorAlerts.h"
#include "core/DesktopPort.h"
#include "core/Engine.h"
#include "core/MainStartup.h"
#include "demo/DemoActivity.h"
#include "demo/DemoNetwork.h"
#include "directory/NetworkFolder.h"
#include "gui/AlertForms.h"
#include "gui/GridView.h"
#include "gui/GuiStartup.h"
#include "gui/ImageList.h"
#include "gui/Mainfrm.h"
#include "gui/QtSound.h"
#include "gui/QtUi.h"
#include "gui/frmProgress.h"
#include "logs/SavedLogfile.h"

#include <QApplication>
#include <QDir>
#include <QTimer>

int main(int argc, char** argv) {
    using namespace twk;
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tarnwick"));
    // The window's frame and the menu's exit end the program, no other window does.
    QApplication::setQuitOnLastWindowClosed(false);

    const AppPaths paths = AppPaths::fromEnvironment();
    gui::QtUi ui;
    gui::frmProgress progress;
    Engine engine(paths, ui, progress);
    ProcessDesktop desktop;
    engine.desktop = &desktop;
    gui::QtSound sound;
    engine.sound = &sound;
    ui.setDesktop(&desktop);
    ui.bugReportFile = paths.inApp(QStringLiteral("BUGREPORT.TXT"));
    InstallSavedLogfileHook(engine);
    const auto alerts = InstallMonitorAlerts(engine);

    const gui::ImageList images(QDir(paths.shareFolder).filePath(QStringLiteral("icons")));
    gui::Mainfrm window(engine, images);
    ui.setMainWindow(&window);
    gui::AlertForms alertForms(engine, *alerts, &window);
    ui.beforeYield = [&window] {
        window.Grid1()->syncRedraw();
    };
    progress.setMainWindow(&window);
    gui::GuiStartup port(window, images);

    StartupOptions options;
    options.arguments = QApplication::arguments().mid(1);
    options.program = QApplication::applicationFilePath();
    options.icon = QDir(paths.shareFolder).filePath(QStringLiteral("icons/key-twkfile.svg"));
    const QString dataHome = qEnvironmentVariable("XDG_DATA_HOME");
    options.desktopDataHome =
        dataHome.isEmpty() ? QDir::homePath() + QStringLiteral("/.local/share") : dataHome;
    // With nothing configured, the first start makes the demo network.
    options.prepareNetwork = [](Engine& e) {
        demo::ensureDemoNetwork(e);
    };
    // A demo server keeps logging while the program runs.
    demo::DemoActivity activity(resolveNetworkFolder(engine.paths, engine.registry));

    int exitCode = 0;
    QTimer::singleShot(0, [&] {
        if (Main(engine, port, options) == StartupOutcome::Ended || window.unloaded()) {
            QCoreApplication::exit(exitCode);
            return;
        }
        activity.start();
    });
    return QApplication::exec();
}
