// tarnwick-cli show: loads a log in both passes, as the window does, and prints the grid.

#include "cli/CliUi.h"
#include "cli/Commands.h"
#include "core/Engine.h"
#include "logs/GridExport.h"
#include "logs/LineReader.h"
#include "logs/LogPipeline.h"

#include <cstdio>

namespace twk::cli {

const char* const kShowUsage =
    "  tarnwick-cli show [--kind KIND] [--format json|csv] FILE\n"
    "      KIND: SYS$LOG.ERR, CONSOLE.LOG, CRONLOG or ABEND.LOG (default: by the file name)\n";

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
    if (kind.isEmpty()) {
        kind = logKindOfFileName(file);
        if (kind.isEmpty())
            return usage("the kind of the file is not known by its name; give --kind");
    } else {
        const QString known = logKindOfFileName(kind);
        if (known.isEmpty())
            return usage("unknown kind");
        kind = known;
    }
    if (!canReadLogKind(kind)) {
        std::fprintf(stderr, "tarnwick-cli: %s files cannot be read by this version yet\n",
                     kind.toLocal8Bit().constData());
        return kExitUsage;
    }

    CliUi ui;
    NoProgress progress;
    AppPaths paths = AppPaths::fromEnvironment();
    paths.ensureFolders();
    Engine engine(paths, ui, progress);
    engine.errors.onError = [](const ErrorContext& c) {
        std::fprintf(stderr, "tarnwick-cli: %s in %s (written to error.txt)\n",
                     c.description.toLocal8Bit().constData(),
                     c.methodName.toLocal8Bit().constData());
    };
    if (!LoadLogFile(engine, kind, file))
        return kExitFailed;
    if (format == QStringLiteral("csv"))
        writeGridCsv(engine, stdout);
    else
        writeGridJson(engine, stdout);
    return std::fflush(stdout) == 0 ? kExitOk : kExitFailed;
}

} // namespace twk::cli
