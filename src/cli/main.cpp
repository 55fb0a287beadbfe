// tarnwick-cli: the engine of the window program on the command line.

#include "cli/Commands.h"

#include <QCoreApplication>

#include <cstdio>

namespace twk::cli {

int fail(const QString& text) {
    std::fprintf(stderr, "tarnwick-cli: %s\n", text.toLocal8Bit().constData());
    return kExitFailed;
}

int usage(const char* problem) {
    if (problem != nullptr)
        std::fprintf(stderr, "tarnwick-cli: %s\n", problem);
    std::fprintf(stderr, "usage: tarnwick-cli [--network DIR] COMMAND ...\n");
    for (const char* lines :
         {kShowUsage, kSaveUsage, kFilterUsage, kErrcodeUsage, kDemoUsage, kServersUsage,
          kMonitorUsage, kHealthCheckUsage, kConfigReportUsage, kConfigDiffUsage})
        std::fprintf(stderr, "%s", lines);
    std::fprintf(stderr, "  tarnwick-cli --help\n");
    return kExitUsage;
}

} // namespace twk::cli

int main(int argc, char** argv) {
    using namespace twk::cli;
    QCoreApplication app(argc, argv);
    QStringList args = QCoreApplication::arguments();
    args.removeFirst();
    GlobalOptions options;
    while (!args.isEmpty() && args.front() == QStringLiteral("--network")) {
        args.removeFirst();
        if (args.isEmpty())
            return usage("--network needs a folder");
        options.networkFolder = args.takeFirst();
    }
    if (args.isEmpty())
        return usage("no command given");
    const QString command = args.takeFirst();
    if (command == QStringLiteral("--help") || command == QStringLiteral("-h") ||
        command == QStringLiteral("help")) {
        usage(nullptr);
        return kExitOk;
    }
    if (command == QStringLiteral("show"))
        return runShow(options, args);
    if (command == QStringLiteral("save"))
        return runSave(options, args);
    if (command == QStringLiteral("filter"))
        return runFilter(options, args);
    if (command == QStringLiteral("errcode"))
        return runErrcode(options, args);
    if (command == QStringLiteral("demo"))
        return runDemo(options, args);
    if (command == QStringLiteral("servers"))
        return runServers(options, args);
    if (command == QStringLiteral("healthcheck"))
        return runHealthCheck(options, args);
    if (command == QStringLiteral("configreport"))
        return runConfigReport(options, args);
    if (command == QStringLiteral("configdiff"))
        return runConfigDiff(options, args);
    if (command == QStringLiteral("monitor"))
        return runMonitor(options, args);
    return usage("unknown command");
}
