// tarnwick-cli show: loads a log in both passes, or a saved logfile, as the window does,
// and prints the grid.

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
    QString kind;
    QString format = QStringLiteral("json");
    QString file;
    for (int i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        if (a == QStringLiteral("--kind") || a == QStringLiteral("--format")) {
            if (i + 1 >= args.size())
                return usage("an option lacks its value");
            (a == QStringLiteral("--kind") ? kind : format) = args[++i];
        } else if (a.startsWith(QStringLiteral("--"))) {
            return usage("unknown option");
        } else if (file.isEmpty()) {
            file = a;
        } else {
            return usage("more than one file given");
        }
    }
    if (file.isEmpty())
        return usage("no file given");
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
