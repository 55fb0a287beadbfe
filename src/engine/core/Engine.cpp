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
    InstallSavedLogfileHook(*this);
    InstallRealtimeMonitor(*this);
}

std::array<int, 10> Engine::sysLogColumnWidths() const { return ColumnWidthsSysLogErr(registry); }

void Engine::saveSysLogColumnWidth(int column, int width) { SaveColumnWidth(registry, column, width); }

} // namespace twk
