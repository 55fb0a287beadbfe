// tarnwick-cli demo: creates the demo network in a folder and says where.

#include "cli/CliUi.h"
#include "cli/Commands.h"
#include "core/Engine.h"
#include "demo/DemoNetwork.h"
#include "directory/NetworkFolder.h"

#include <cstdio>

namespace twk::cli {

const char* const kDemoUsage =
    "  tarnwick-cli demo [DIR]\n"
    "      creates the demo network in DIR (default: the --network folder, else the\n"
    "      configured network folder); an earlier demo network there is replaced\n";

int runDemo(const GlobalOptions& options, const QStringList& args) {
    if (args.size() > 1)
        return usage("demo takes at most one folder");
    if (!args.isEmpty() && args.front().startsWith(QStringLiteral("--")))
        return usage("unknown option");
    QString folder = args.isEmpty() ? options.networkFolder : args.front();
    if (folder.isEmpty()) {
        CliUi ui;
        NoProgress progress;
        Engine engine(AppPaths::fromEnvironment(), ui, progress);
        folder = networkFolderOf(engine);
    }
    const demo::DemoNetworkResult result = demo::createDemoNetwork(folder);
    if (result.ok)
        demo::provideDemoStuffkey(AppPaths::fromEnvironment());
    if (!result.ok) {
        std::fprintf(stderr, "tarnwick-cli: no demo network created: %s\n",
                     result.error.toLocal8Bit().constData());
        return kExitFailed;
    }
    std::printf("demo network created in %s\nservers: %s\nlogin: %s, password %s\n",
                result.folder.toLocal8Bit().constData(),
                result.servers.join(QStringLiteral(", ")).toLocal8Bit().constData(),
                demo::kDemoUser.toLocal8Bit().constData(),
                demo::kDemoPassword.toLocal8Bit().constData());
    return std::fflush(stdout) == 0 ? kExitOk : kExitFailed;
}

} // namespace twk::cli
