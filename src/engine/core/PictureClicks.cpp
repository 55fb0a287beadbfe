#include "core/PictureClicks.h"

#include "core/Engine.h"
#include "core/Mainfrm.h"
#include "directory/TreeDiscovery.h"

#include <QFile>

namespace twk {

namespace {

bool chosen(const QString& item, const QString& placeholder, const QString& notFound) {
    return !item.isEmpty() && item != placeholder && item != notFound;
}

void open(Engine& engine, const QString& target) {
    // A failed start is a failure of the routine, as any other.
    if (!engine.desktop->openDefault(target))
        throw RunTimeError(errnum::FileNotFound, "File not found");
}

} // namespace

bool isSavedLogfile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray line = file.readLine(64 * 1024);
    return line.contains("LOGFILE:");
}

void picServer_DblClick(Engine& engine) {
    const QString server = engine.view.cbServer.text();
    if (!chosen(server, cascade::kServerPlaceholder, cascade::kServerNotFound))
        return;
    if (!engine.hooks.remoteConsole) {
        CommandNotAvailable(engine);
        return;
    }
    engine.hooks.remoteConsole(server);
}

void picVolume_DblClick(Engine& engine) {
    withErrorTail(engine.errors, "Mainfrm.picVolume_DblClick()", [&] {
        const MainView& v = engine.view;
        const QString server = v.cbServer.text();
        const QString volume = v.cbVolume.text();
        if (!chosen(server, cascade::kServerPlaceholder, cascade::kServerNotFound) ||
            !chosen(volume, cascade::kVolumePlaceholder, cascade::kVolumeNotFound))
            return;
        const QString unc = QStringLiteral("\\\\") + server + QStringLiteral("\\") + volume;
        open(engine, engine.network->files().localPath(unc));
    });
}

void picLogfile_DblClick(Engine& engine) {
    withErrorTail(engine.errors, "Mainfrm.picLogfile_DblClick()", [&] {
        const QString path = engine.view.openLogPath;
        if (!viewIsOpen(engine) || path.isEmpty() || isSavedLogfile(path))
            return;
        open(engine, path);
    });
}

void picCloseLogfile_DblClick(Engine& engine) {
    if (engine.view.CurrentView == views::kRealtimeMonitor) {
        if (engine.ui.messageBox(QStringLiteral("Exit Realtime Event Monitor?     "),
                                 MsgIcon::Question, MsgButtons::YesNo,
                                 kMessageTitle) != MsgResult::Yes)
            return;
        if (engine.hooks.stopMonitor)
            engine.hooks.stopMonitor();
    }
    CloseFile(engine);
}

} // namespace twk
