#include "monitor/DemoMonitor.h"

#include "core/Engine.h"
#include "demo/DemoNetwork.h"
#include "directory/NetworkFolder.h"
#include "directory/NetworkFolderClient.h"
#include "monitor/OptionChecks.h"
#include "monitor/RealtimeMonitor.h"

namespace twk {

bool AddDemoServersWhenNoneAreMonitored(Engine& engine) {
    const QString key = monitorServersKey();
    if (!engine.registry.Reg_GetAllKeys(Hive::CurrentUser, key).isEmpty())
        return false;
    auto* folder = dynamic_cast<NetworkFolderClient*>(engine.network.get());
    if (folder == nullptr || !demo::isDemoNetwork(folder->folder()))
        return false;
    const Registry::Batch oneWrite(engine.registry);
    bool added = false;
    for (const ServerEntry& server : folder->description().servers) {
        const QString address = server.address.trimmed();
        engine.registry.Reg_SetString(Hive::CurrentUser, key, server.name,
                                      fCheckIP(address) ? address : QString());
        added = true;
    }
    return added;
}

} // namespace twk
