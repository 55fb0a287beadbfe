// tarnwick-cli filter: loads a SYS$LOG.ERR (or a saved logfile of one) as the window
// does, runs the event filter dialog with the criteria given, and prints the rows left
// visible.

#include "cli/CliUi.h"
#include "cli/Commands.h"
#include "core/Engine.h"
#include "logs/EventFilterForm.h"
#include "logs/FilterCommandLine.h"
#include "logs/GridExport.h"
#include "logs/LogPipeline.h"
#include "logs/SavedLogfile.h"

#include <cstdio>

namespace twk::cli {

const char* const kFilterUsage =
    "  tarnwick-cli filter [--format json|csv] [--only SEVERITIES] [--hide SEVERITIES]\n"
    "                      [--source NAME] [--category NAME] [--event-type NAME|KEY]\n"
    "                      [--error-nr TEXT] [--message TEXT] [--from DATE] [--to DATE] FILE\n"
    "      FILE: a SYS$LOG.ERR, or a .twk saved from one. SEVERITIES: a comma list of\n"
    "      informational, warning, recovered, aborted-nos, aborted, critical, fatal,\n"
    "      unknown. NAME as in the filter dialog's lists (case-blind). The error number\n"
    "      and message texts are found case-blind. DATE: 2003-01-15, 1-15-2003, 15.01.2003\n";

int runFilter(const GlobalOptions&, const QStringList& args) {
    FilterArguments arguments;
    if (const QString problem = parseFilterArguments(args, arguments); !problem.isEmpty())
        return usage(problem.toLocal8Bit().constData());
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
    if (hasSavedLogfileExtension(arguments.file)) {
        const SavedLoadResult loaded = LoadSavedLogfile(engine, arguments.file);
        if (loaded == SavedLoadResult::UnknownKind)
            std::fprintf(stderr, "tarnwick-cli: %s is no saved logfile\n",
                         arguments.file.toLocal8Bit().constData());
        if (loaded != SavedLoadResult::Loaded)
            return kExitFailed;
        if (engine.view.CurrentView != views::kSysLogErr) {
            std::fprintf(stderr,
                         "tarnwick-cli: the saved logfile holds a %s view; the event filter "
                         "works on SYS$LOG.ERR views\n",
                         engine.view.CurrentView.toLocal8Bit().constData());
            return kExitUsage;
        }
    } else if (!LoadLogFile(engine, views::kSysLogErr, arguments.file)) {
        return kExitFailed;
    }

    FrmFilterSYSLOG form(engine);
    form.Form_Load();
    form.Form_Activate();
    if (const QString problem = applyFilterArguments(arguments, form); !problem.isEmpty())
        return usage(problem.toLocal8Bit().constData());
    // A check that stops the filter has shown its message on standard error.
    if (!form.cmdFilter_Click())
        return engine.errors.count() > 0 ? kExitFailed : kExitUsage;
    if (arguments.format == QStringLiteral("csv"))
        writeGridCsv(engine, stdout, true);
    else
        writeGridJson(engine, stdout, true);
    return std::fflush(stdout) == 0 ? kExitOk : kExitFailed;
}

} // namespace twk::cli
