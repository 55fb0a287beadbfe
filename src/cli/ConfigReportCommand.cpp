// tarnwick-cli configreport: runs CONFIG.NLM on a server as the report dialog does,
// waits until the module has released its report, and prints the report's local path.

#include "cli/CliUi.h"
#include "cli/Commands.h"
#include "core/Engine.h"
#include "directory/NetworkFolder.h"
#include "directory/UncPath.h"
#include "tools/ConfigReportForm.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>

namespace twk::cli {

namespace {

/// Messages to standard error; the console's tools work on the event loop meanwhile.
class WaitingUi : public CliUi {
public:
    void yield() override { QCoreApplication::processEvents(); }
};

} // namespace

const char* const kConfigReportUsage =
    "  tarnwick-cli configreport [--network DIR] SERVER\n"
    "      runs CONFIG.NLM on SERVER, which writes the next config-twkN.txt into its\n"
    "      SYS:SYSTEM, waits until it is written, and prints the report's path\n";

int runConfigReport(const GlobalOptions& global, const QStringList& arguments) {
    GlobalOptions options = global;
    QStringList args = arguments;
    while (!args.isEmpty() && args.front() == QStringLiteral("--network")) {
        args.removeFirst();
        if (args.isEmpty())
            return usage("--network needs a folder");
        options.networkFolder = args.takeFirst();
    }
    if (args.size() != 1 || args.front().startsWith(QStringLiteral("-")))
        return usage("configreport needs one server");
    const QString server = args.front().trimmed();

    WaitingUi ui;
    NoProgress progress;
    Engine engine(AppPaths::fromEnvironment(), ui, progress);
    if (!options.networkFolder.isEmpty())
        useNetworkFolder(engine, options.networkFolder);
    engine.errors.onError = [](const ErrorContext& c) {
        std::fprintf(stderr, "tarnwick-cli: %s in %s (written to error.txt)\n",
                     c.description.toLocal8Bit().constData(),
                     c.methodName.toLocal8Bit().constData());
    };
    const NetResult<QString> probe = engine.network->console().ServerName(server);
    if (probe.failed())
        return fail(probe.description);

    FrmConfigReport form(engine);
    form.cbServer.items = {server};
    form.cbServer.ListIndex = 0;
    if (form.fnReportName(server).isEmpty())
        return fail(QStringLiteral("all 1000 report names are taken on server ") + server);
    form.cmdCreateReport_Click();
    if (form.ConfigReportFile.isEmpty())
        return kExitFailed; // the reason is on standard error
    if (form.bConfigReportLocked())
        return fail(QStringLiteral("CONFIG.NLM did not finish ") + form.ConfigReportFile);
    const QString local = engine.network->files().localPath(form.ConfigReportFile);
    if (!QFileInfo(local).isFile())
        return fail(QStringLiteral("no report was written to ") + form.ConfigReportFile);
    std::printf("%s\n", QFileInfo(local).absoluteFilePath().toLocal8Bit().constData());
    return std::fflush(stdout) == 0 ? kExitOk : kExitFailed;
}

} // namespace twk::cli
