#include "core/MainStartup.h"

#include "core/DeliveredFiles.h"
#include "core/Engine.h"
#include "core/FileTypeRegistration.h"
#include "core/Mainfrm.h"
#include "core/Startup.h"
#include "core/TipOfTheDay.h"
#include "directory/Connections.h"
#include "directory/TreeDiscovery.h"
#include "logs/GridViews.h"
#include "tools/UpdateCheckForm.h"

namespace twk {

StyledMessage ClientNotFoundMessage() {
    StyledMessage m;
    m.formCaption = kMessageTitle;
    m.headline = startText::kClientHeadline;
    m.lines = {QStringLiteral("Novell Client not found!"),
               QStringLiteral("Tarnwick needs a Novell Client"),
               QStringLiteral("to work properly. Please download the latest"),
               QStringLiteral("Novell Client for free at..."),
               startText::kClientDownload,
               QStringLiteral("and install it. Tarnwick will be"),
               QStringLiteral("terminated after closing this message.")};
    m.line5IsLink = true;
    return m;
}

bool DirectoryClientUsable(Engine& engine) {
    return engine.network != nullptr && engine.network->calls().NWCallsInit() == 0;
}

namespace {

void placeholders(MainView& v) {
    v.cbTree.resetTo(cascade::kTreePlaceholder);
    v.cbServer.resetTo(cascade::kServerPlaceholder);
    v.cbVolume.resetTo(cascade::kVolumePlaceholder);
    v.cbLogFile.resetTo(cascade::kLogfilePlaceholder);
}

void setDebugMode(Engine& engine) {
    if (engine.DebugMode)
        return;
    engine.DebugMode = true;
    engine.view.caption += kDebugSuffix;
}

// Step 18: what the command-line argument asks for. False when start-up ends here.
bool handleArgument(Engine& engine, const QString& argument) {
    MainView& v = engine.view;
    const ArgumentEffect effect = EffectOfArgument(argument, FileExists);
    if (effect.debugMode)
        setDebugMode(engine);
    if (effect.startMonitor) {
        if (engine.hooks.mnuRTM_Click)
            engine.hooks.mnuRTM_Click();
        else
            engine.ui.messageBox(startText::kMonitorLater, MsgIcon::Information, MsgButtons::Ok,
                                 kMessageTitle);
        return false;
    }
    if (effect.openSavedLogfile) {
        if (engine.hooks.LoadSavedLogfile)
            engine.hooks.LoadSavedLogfile(argument);
        else
            engine.ui.messageBox(startText::kSavedLogfileLater, MsgIcon::Information,
                                 MsgButtons::Ok, kMessageTitle);
    }
    if (effect.backgroundImage)
        v.backgroundImage = true;
    v.changed();
    return true;
}

} // namespace

StartupOutcome Main(Engine& engine, StartupPort& port, const StartupOptions& options) {
    MainView& v = engine.view;
    const QString argument = StartArgument(options.arguments);
    if (isHelpSwitch(argument)) {
        engine.ui.messageBox(HelpBoxText(), MsgIcon::Information, MsgButtons::Ok, kHelpBoxTitle);
        return StartupOutcome::Ended;
    }

    engine.paths.ensureFolders();
    CopyDeliveredFiles(
        engine.paths,
        QStringList{QStringLiteral("tips.tdy")} + DeliveredHelpFiles(engine.paths) +
            DeliveredFilesIn(engine.paths, {QStringLiteral("NLM"), QStringLiteral("Reports")}));
    Init(engine);

    if (options.prepareNetwork)
        options.prepareNetwork(engine);
    if (!DirectoryClientUsable(engine)) {
        engine.ui.styledMessage(ClientNotFoundMessage());
        return StartupOutcome::Ended;
    }

    engine.StartContext = ReadNDSContext(engine);
    v.caption = QStringLiteral(" Tarnwick");
    if (!engine.StartContext.isEmpty())
        v.caption += QStringLiteral("   StartContext: [") + engine.StartContext.toUpper() +
                     QStringLiteral("]");
    if (port.ctrlKeyDown())
        setDebugMode(engine);

    RegisterFileType(engine.registry, QStringLiteral("twk"), options.program, options.icon);
    InstallDesktopFileType(options.desktopDataHome, options.program, options.icon);

    placeholders(v);
    RefreshTooltips(engine);
    v.changed();
    port.showMainWindow();

    CreateNewTable(engine, views::kSysLogErr);

    port.showSplash();
    engine.yieldNow();
    WaitEventLoop(engine, kSplashMilliseconds);
    engine.yieldNow();
    port.unloadSplash();

    v.simpleMode = true;
    v.simpleText = mainText::kScanInProgress;
    showWaitForm(engine, startText::kSplashWaitInfo);
    v.busyPointer = true;
    v.cbLogFile.items = logFileItems(ostype::kNetWare);
    v.cbLogFile.icons.clear();
    v.cbLogFile.ListIndex = 0;
    v.cbLogFile.enabled = false;
    v.changed();
    engine.yieldNow();

    ConnectCascade(engine);
    DiscoverNetwork(engine);
    WaitForScan(engine, options.scanTimeoutMs);
    if (v.cbTree.text() != cascade::kTreePlaceholder) {
        GetVolumes(engine);
        WaitForScan(engine, options.scanTimeoutMs);
    }

    hideWaitForm(engine);
    engine.yieldNow();
    v.busyPointer = false;
    const QString server = v.cbServer.text();
    v.cbLogFile.enabled = !server.isEmpty() && server != cascade::kServerPlaceholder &&
                          server != cascade::kServerNotFound;
    port.focusGrid();
    v.simpleMode = false;
    RefreshTooltips(engine);
    v.changed();

    engine.StartupDone = true;
    StartupUpdateCheck(engine);

    if (!handleArgument(engine, argument))
        return StartupOutcome::Running;

    if (v.cbTree.text() == cascade::kTreeNotFound)
        port.showTreeNotFound();
    if (FileExists(engine.paths.inApp(QStringLiteral("tips.tdy"))) &&
        TipsAtStartup(engine.registry))
        port.showTipOfTheDay();
    return StartupOutcome::Running;
}

} // namespace twk
