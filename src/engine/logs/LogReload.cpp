#include "logs/LogReload.h"

#include "core/Engine.h"
#include "logs/LogPipeline.h"

namespace twk {

bool mnuReload_Click(Engine& engine,
                     const std::function<void(const QString& kind)>& chooseLogFile) {
    MainView& v = engine.view;
    const QString kind = v.CurrentView;
    if (logKindOfFileName(kind).isEmpty())
        return false;
    if (engine.ui.messageBox(QStringLiteral("Reload logfile now?     "), MsgIcon::Question,
                             MsgButtons::YesNo, kMessageTitle) != MsgResult::Yes)
        return false;
    const QString path = v.openLogPath;
    v.resetPanes();
    engine.Grid1.setRows(0);
    v.CurrentView.clear();
    v.changed();
    if (chooseLogFile) {
        chooseLogFile(kind);
        return true;
    }
    if (path.isEmpty())
        return false;
    const bool loaded = LoadLogFile(engine, kind, path);
    if (loaded)
        v.openLogPath = path;
    return loaded;
}

} // namespace twk
