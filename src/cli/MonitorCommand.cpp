// tarnwick-cli monitor: the realtime monitor without a window, as -rtm starts it, with
// the servers, options and rules of the settings store and twk.ini. One JSON line after
// the start pass and after each poll cycle; SIGINT or SIGTERM end it.

#include "alerts/MonitorAlerts.h"
#include "cli/CliUi.h"
#include "cli/Commands.h"
#include "core/Engine.h"
#include "core/settings/DefaultSettings.h"
#include "directory/NetworkFolder.h"
#include "monitor/MonitorExport.h"
#include "monitor/RealtimeMonitor.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

namespace twk::cli {

const char* const kMonitorUsage =
    "  tarnwick-cli [--network DIR] monitor [--cycles N] [--interval SECONDS]\n"
    "      runs the realtime monitor; one JSON line after the start pass (cycle 0) and\n"
    "      after each poll cycle; stops after N cycles, else at SIGINT or SIGTERM\n";

namespace {

int signalPipe[2] = {-1, -1};

extern "C" void onStopSignal(int) {
    const int saved = errno;
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
    errno = saved;
}

struct MonitorArgs {
    std::optional<int> cycles;
    std::int64_t intervalMs = 0; ///< 0: the stored interval
    const char* problem = nullptr;
};

MonitorArgs parseMonitorArgs(const QStringList& args) {
    MonitorArgs parsed;
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString& option = args[i];
        if (option != QStringLiteral("--cycles") && option != QStringLiteral("--interval")) {
            parsed.problem = "unknown monitor argument";
            return parsed;
        }
        if (i + 1 >= args.size()) {
            parsed.problem = "an option of monitor needs a value";
            return parsed;
        }
        const QString value = args[++i];
        bool ok = false;
        if (option == QStringLiteral("--cycles")) {
            const int cycles = value.toInt(&ok);
            if (!ok || cycles < 0) {
                parsed.problem = "--cycles needs a number of 0 or more";
                return parsed;
            }
            parsed.cycles = cycles;
        } else {
            const double seconds = value.toDouble(&ok);
            if (!ok || !std::isfinite(seconds) || seconds <= 0 || seconds > INT32_MAX) {
                parsed.problem = "--interval needs a positive number of seconds";
                return parsed;
            }
            parsed.intervalMs = std::max<std::int64_t>(1, std::llround(seconds * 1000));
        }
    }
    return parsed;
}

bool installStopSignals() {
    if (::pipe2(signalPipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return false;
    struct sigaction action {};
    action.sa_handler = onStopSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    return ::sigaction(SIGINT, &action, nullptr) == 0 &&
           ::sigaction(SIGTERM, &action, nullptr) == 0;
}

} // namespace

int runMonitor(const GlobalOptions& options, const QStringList& args) {
    const MonitorArgs parsed = parseMonitorArgs(args);
    if (parsed.problem != nullptr)
        return usage(parsed.problem);
    if (!installStopSignals()) {
        std::fprintf(stderr, "tarnwick-cli: the stop signals cannot be caught\n");
        return kExitFailed;
    }

    CliUi ui;
    NoProgress progress;
    AppPaths paths = AppPaths::fromEnvironment();
    paths.ensureFolders();
    Engine engine(paths, ui, progress);
    // As at the window's start: the default settings and rules where they are missing.
    RunDefaultWriters(engine.registry, engine.paths, ui);
    if (!options.networkFolder.isEmpty())
        useNetworkFolder(engine, options.networkFolder);
    engine.errors.onError = [](const ErrorContext& c) {
        std::fprintf(stderr, "tarnwick-cli: %s in %s (written to error.txt)\n",
                     c.description.toLocal8Bit().constData(),
                     c.methodName.toLocal8Bit().constData());
    };
    engine.monitor.intervalOverrideMs = parsed.intervalMs;
    // Mail, syslog, journal, popups and RTMLog.txt, as in the window.
    const auto alerts = InstallMonitorAlerts(engine);

    int exitCode = kExitOk;
    bool done = false;
    const auto finish = [&](int code) {
        if (done)
            return;
        done = true;
        exitCode = code;
        StopMonitoring(engine);
        QCoreApplication::exit(code);
    };
    engine.monitor.onCycleDone = [&](int cycle) {
        writeMonitorJsonLine(engine, cycle, stdout);
        if (std::fflush(stdout) != 0)
            finish(kExitFailed);
        else if (parsed.cycles && cycle >= *parsed.cycles)
            finish(kExitOk);
    };
    QSocketNotifier stopSignal(signalPipe[0], QSocketNotifier::Read);
    QObject::connect(&stopSignal, &QSocketNotifier::activated, [&] {
        char byte = 0;
        while (::read(signalPipe[0], &byte, 1) > 0) {
        }
        finish(kExitOk);
    });

    mnuRTM_Click(engine);
    if (done)
        return exitCode;
    if (!MonitorRunning(engine)) // no server: the message is on standard error
        return kExitFailed;
    if (!engine.monitor.LongTimer1.Enabled) {
        // Every server is disabled: no poll cycle would ever come.
        std::fprintf(stderr, "%s\n",
                     QString(rtmText::kNoServer)
                         .replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
                         .toLocal8Bit()
                         .constData());
        StopMonitoring(engine);
        return kExitFailed;
    }
    const int code = QCoreApplication::exec();
    return done ? exitCode : code;
}

} // namespace twk::cli
