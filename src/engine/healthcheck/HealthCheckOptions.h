#pragma once
// The options of a health check run, read from Software\Brindlex\TWK\HealthCheck when
// the dialog loads (a change takes effect at the next opening).

#include <QString>

namespace twk {

/// "ON" or "OFF", as the option lists and reports show a switch.
inline QString onOff(bool on) {
    return on ? QStringLiteral("ON") : QStringLiteral("OFF");
}

class Registry;

/// The key of the health check's values.
inline const QString kHealthCheckKey = QStringLiteral("Software\\Brindlex\\TWK\\HealthCheck");

struct HealthCheckOptions {
    bool IgnoreSkulkErrorMessages = false;
    bool ShowSkulkErrorMessages = true;
    bool IncludeDSTraceDebugInfos = true;
    bool ShowSynchronizationInGrid = false;
    int ServerSyncTraceTime = 90;   ///< seconds
    int SchemaSyncTraceTime = 60;   ///< seconds
    int ReplicaSyncTimeDiff = 3600; ///< seconds (stored in minutes)

    /// The stored values; a switch is on only when it is exactly "1".
    static HealthCheckOptions read(const Registry& registry);
};

} // namespace twk
