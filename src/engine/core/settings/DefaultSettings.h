#pragma once
// The settings a fresh installation starts with, and the migrations of older ones.
// Each writer runs at every start and writes only what is missing: a value the user
// changed is never overwritten.

namespace twk {

class Registry;
class UiPort;
struct AppPaths;

/// TIDs: the first three history rows and LastTID, while TID-History is missing.
void WriteTidHistoryDefaults(Registry& registry);
/// Realtime Monitor: interval, remote popup, mail, event forwarding, logging and misc
/// settings; then the RTMConvert migration of the rule file.
void WriteRealtimeMonitorDefaults(Registry& registry, const AppPaths& paths);
/// HealthCheck: the options of the health check run; removes older leftovers.
void WriteHealthCheckDefaults(Registry& registry);

/// All default writers and migrations in their order: TID history, SYS$LOG.ERR columns,
/// realtime filter rules, realtime monitor, health check, TreeContext migration.
/// Their registry writes reach the file in one go.
void RunDefaultWriters(Registry& registry, const AppPaths& paths, UiPort& ui);

} // namespace twk
