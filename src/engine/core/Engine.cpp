#include "core/Engine.h"

#include "core/settings/SysLogErrColumns.h"
#include "directory/NetworkFolder.h"
#include "logs/SavedLogfile.h"
#include "monitor/RealtimeMonitor.h"

namespace twk {

Engine::Engine(AppPaths p, UiPort& u, ProgressPort& pr)
    : paths(std::move(p)), ui(u), progress(pr), registry(paths.registryFile()), errors(paths),
      trace(paths.inApp(QStringLiteral("debug.txt"))) {
    network = makeDefaultNetworkClient(*this);
    // Step mode is for development only: a release never stops on an error.
    if (qEnvironmentVariableIntValue("TWK_STOP_ON_ERROR") == 1)
        errors.StopMode = ErrorCapture::kStoppedOnError;
    errors.askStepMode = [this](const QString& text) {
        return ui.messageBox(text, MsgIcon::Critical, MsgButtons::YesNoCancel, kMessageTitle);
    };
    InstallSavedLogfileHook(*this);
    InstallRealtimeMonitor(*this);
}

std::array<int, 10> Engine::sysLogColumnWidths() const {
    return ColumnWidthsSysLogErr(registry);
}

void Engine::saveSysLogColumnWidth(int column, int width) {
    SaveColumnWidth(registry, column, width);
}

} // namespace twk
