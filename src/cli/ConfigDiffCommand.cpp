// tarnwick-cli configdiff: the differences of two configuration reports, section by
// section, as the report viewer marks them.

#include "cli/CliUi.h"
#include "cli/Commands.h"
#include "core/Engine.h"
#include "directory/NetworkFolder.h"
#include "tools/ConfigReportCompare.h"

#include <cstdio>

namespace twk::cli {

const char* const kConfigDiffUsage =
    "  tarnwick-cli [--network DIR] configdiff A B\n"
    "      prints the differences of two configuration reports (files, or UNC paths of\n"
    "      the network) section by section: \"@@ section @@ kind: lines\", then the lines\n"
    "      of A (\"- \") and of B (\"+ \"), and a count at the end\n";

int runConfigDiff(const GlobalOptions& options, const QStringList& args) {
    if (args.size() != 2 || args[0].startsWith(QStringLiteral("--")) ||
        args[1].startsWith(QStringLiteral("--")))
        return usage("configdiff needs two reports");
    CliUi ui;
    NoProgress progress;
    Engine engine(AppPaths::fromEnvironment(), ui, progress);
    if (!options.networkFolder.isEmpty())
        useNetworkFolder(engine, options.networkFolder);
    const QString folder = networkFolderOf(engine);
    ConfigReportText reports[2];
    for (int i = 0; i < 2; ++i) {
        QString error;
        if (!reports[i].load(reportLocalPath(args[i], folder), error)) {
            std::fprintf(stderr, "tarnwick-cli: %s\n", error.toLocal8Bit().constData());
            return kExitFailed;
        }
    }
    const ReportComparison comparison = compareReports(reports[0], reports[1]);
    formatDifferences(comparison, reports[0], reports[1], [](const QString& line) {
        const QByteArray bytes = line.toUtf8();
        std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
        std::fputc('\n', stdout);
    });
    return std::fflush(stdout) == 0 ? kExitOk : kExitFailed;
}

} // namespace twk::cli
