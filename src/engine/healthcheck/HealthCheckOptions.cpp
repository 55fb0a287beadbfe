#include "healthcheck/HealthCheckOptions.h"

#include "core/Text.h"
#include "core/settings/Registry.h"

namespace twk {

HealthCheckOptions HealthCheckOptions::read(const Registry& registry) {
    auto value = [&](const char* name, const char* fallback) {
        return registry.Reg_GetValue(Hive::CurrentUser, kHealthCheckKey, QLatin1String(name),
                                     QLatin1String(fallback));
    };
    auto on = [&](const char* name, const char* fallback) {
        return value(name, fallback) == QStringLiteral("1");
    };
    auto number = [&](const char* name, const char* fallback) {
        return static_cast<int>(text::numericReading(value(name, fallback).toStdString()));
    };
    HealthCheckOptions o;
    o.IgnoreSkulkErrorMessages = on("IgnoreSkulkErrorMessages", "0");
    o.ShowSkulkErrorMessages = on("ShowSkulkErrorMessages", "1");
    o.IncludeDSTraceDebugInfos = on("IncludeDSTraceDebugInfos", "1");
    o.ShowSynchronizationInGrid = on("ShowSynchronizationInGrid", "0");
    o.ServerSyncTraceTime = number("ServerSyncTraceTime", "90");
    o.SchemaSyncTraceTime = number("SchemaSyncTraceTime", "60");
    o.ReplicaSyncTimeDiff = number("ReplicaSyncTimeDiff", "60") * 60;
    return o;
}

} // namespace twk
