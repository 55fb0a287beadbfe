// tarnwick-cli show: loads a log in both passes, or a saved logfile, as the window does,
// and prints the grid.

#include "cli/CliArgs.h"
#include "cli/CliLoad.h"
#include "cli/Commands.h"
#include "logs/GridExport.h"

#include <cstdio>

namespace twk::cli {

const char* const kShowUsage =
    "  tarnwick-cli show [--kind KIND] [--format json|csv] FILE\n"
    "      KIND: SYS$LOG.ERR, CONSOLE.LOG, CRONLOG or ABEND.LOG (default: by the file name);\n"
    "      a FILE ending in .twk is a saved logfile and shows the view it holds\n";

int runShow(const GlobalOptions&, const QStringList& args) {
    const OptionsAndFile parsed =
        parseOptionsAndFile(args, {QStringLiteral("--kind"), QStringLiteral("--format")});
    if (parsed.problem != nullptr)
        return usage(parsed.problem);
    const QString kind = parsed.values.value(QStringLiteral("--kind"));
    const QString file = parsed.file;
    const QString format = parsed.values.value(QStringLiteral("--format"), QStringLiteral("json"));
    if (format != QStringLiteral("json") && format != QStringLiteral("csv"))
        return usage("the format is json or csv");

    CliSession session;
    if (const int loaded = session.load(kind, file); loaded != kExitOk)
        return loaded;
    if (format == QStringLiteral("csv"))
        writeGridCsv(session.engine(), stdout);
    else
        writeGridJson(session.engine(), stdout);
    return std::fflush(stdout) == 0 ? kExitOk : kExitFailed;
}

} // namespace twk::cli
