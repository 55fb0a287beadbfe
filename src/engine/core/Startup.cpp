#include "core/Startup.h"

#include "core/Engine.h"
#include "core/settings/DefaultSettings.h"

#include <QFileInfo>

namespace twk {

QString StartArgument(const QStringList& argumentsAfterProgram) {
    return argumentsAfterProgram.join(QLatin1Char(' '));
}

bool isHelpSwitch(const QString& argument) {
    return argument.compare(QStringLiteral("-help"), Qt::CaseInsensitive) == 0 ||
           argument == QStringLiteral("-?");
}

QString HelpBoxText() {
    const QStringList lines = {
        QStringLiteral("command line parameter help:"),
        QString(),
        QStringLiteral("-debug  :  start Tarnwick in debug mode"),
        QStringLiteral("-rtm  :  start the Realtime Event Monitoring at TWK startup        "),
        QStringLiteral("-? or -help  :  show this help message"),
        QString(),
        QStringLiteral("logfile.twk  : open the specified logfile at TWK startup"),
    };
    QString text;
    for (const QString& line : lines)
        text += line + QStringLiteral("\r\n");
    return text;
}

bool FileExists(const QString& path) {
    if (path.isEmpty())
        return false;
    const QFileInfo info(path);
    return info.exists() && info.isFile();
}

ArgumentEffect EffectOfArgument(const QString& argument,
                                const std::function<bool(const QString&)>& fileExists) {
    ArgumentEffect effect;
    if (argument.isEmpty()) {
        effect.backgroundImage = true;
        return effect;
    }
    if (argument.compare(QStringLiteral("-debug"), Qt::CaseInsensitive) == 0) {
        effect.debugMode = true;
        effect.backgroundImage = true;
    }
    if (argument.compare(QStringLiteral("-rtm"), Qt::CaseInsensitive) == 0) {
        effect.startMonitor = true;
        return effect;
    }
    // "-debug" goes on to the file test too, and fails it (unless such a file exists).
    if (fileExists(argument))
        effect.openSavedLogfile = true;
    else
        effect.backgroundImage = true;
    return effect;
}

void Init(Engine& engine) {
    withErrorTail(engine.errors, "modMainbas.Init()", [&] {
        MainView& v = engine.view;
        v.CurrentView.clear();
        engine.StartContext.clear();
        engine.DebugMode = false;
        engine.StartupDone = false;
        engine.ScanFinished = false;
        engine.MonitorBusy = false;
        engine.HeartbeatPending = false;
        v.setMenusNothingOpen();
        v.resetPanes();
        engine.paths.ensureFolders();
        RunDefaultWriters(engine.registry, engine.paths, engine.ui);
        v.menu(QStringLiteral("mnuTipOfTheDay")).enabled =
            FileExists(engine.paths.inApp(QStringLiteral("tips.tdy")));
        v.menu(QStringLiteral("mnuConfigReport")).enabled = FileExists(engine.paths.configViewer());
        v.changed();
    });
}

} // namespace twk
