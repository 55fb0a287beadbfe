// tarnwick-cli servers: what the network scan finds, one server a line:
// tree, server, platform and volumes, separated by tabs.

#include "cli/CliUi.h"
#include "cli/Commands.h"
#include "core/Engine.h"
#include "directory/NetworkFolder.h"
#include "directory/ServerListing.h"

#include <cstdio>

namespace twk::cli {

const char* const kServersUsage =
    "  tarnwick-cli [--network DIR] servers\n"
    "      lists the servers of every tree (or start context): tree, server, platform,\n"
    "      volumes joined by \",\", separated by tabs\n";

int runServers(const GlobalOptions& options, const QStringList& args) {
    if (!args.isEmpty())
        return usage("servers takes no arguments");
    CliUi ui;
    NoProgress progress;
    Engine engine(AppPaths::fromEnvironment(), ui, progress);
    if (!options.networkFolder.isEmpty())
        useNetworkFolder(engine, options.networkFolder);
    engine.errors.onError = [](const ErrorContext& c) {
        std::fprintf(stderr, "tarnwick-cli: %s in %s (written to error.txt)\n",
                     c.description.toLocal8Bit().constData(),
                     c.methodName.toLocal8Bit().constData());
    };
    std::vector<ListedServer> servers;
    QString error;
    if (!listServers(engine, servers, error)) {
        std::fprintf(stderr, "tarnwick-cli: %s\n", error.toLocal8Bit().constData());
        return kExitFailed;
    }
    for (const ListedServer& server : servers)
        std::printf("%s\n", serverListLine(server).toLocal8Bit().constData());
    return std::fflush(stdout) == 0 ? kExitOk : kExitFailed;
}

} // namespace twk::cli
