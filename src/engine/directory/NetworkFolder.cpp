#include "directory/NetworkFolder.h"

#include "core/Engine.h"
#include "directory/NetworkFolderClient.h"

namespace twk {

QString resolveNetworkFolder(const AppPaths& paths, const Registry& registry) {
    const QString fromEnvironment = qEnvironmentVariable("TARNWICK_NETWORK");
    if (!fromEnvironment.isEmpty())
        return fromEnvironment;
    const QString setting =
        registry.Reg_GetValue(Hive::CurrentUser, kNetworkKey, kNetworkFolderValue).trimmed();
    if (!setting.isEmpty())
        return setting;
    return paths.networkFolder;
}

std::unique_ptr<NetworkClient> makeNetworkFolderClient(const QString& folder,
                                                       ErrorCapture* errors,
                                                       std::function<ClockPort&()> clock) {
    return std::make_unique<NetworkFolderClient>(folder, errors, std::move(clock));
}

namespace {
// The simulated console follows the engine's clock, also when a test replaces it later.
std::function<ClockPort&()> engineClock(Engine& engine) {
    return [&engine]() -> ClockPort& { return *engine.clock; };
}
} // namespace

std::unique_ptr<NetworkClient> makeDefaultNetworkClient(Engine& engine) {
    return makeNetworkFolderClient(resolveNetworkFolder(engine.paths, engine.registry),
                                   &engine.errors, engineClock(engine));
}

void useNetworkFolder(Engine& engine, const QString& folder) {
    engine.paths.networkFolder = folder;
    engine.network = makeNetworkFolderClient(folder, &engine.errors, engineClock(engine));
}

QString networkFolderOf(Engine& engine) {
    if (const auto* client = dynamic_cast<const NetworkFolderClient*>(engine.network.get()))
        return client->folder();
    return QString();
}

} // namespace twk
