#pragma once
// The commands of tarnwick-cli, one file each.

#include <QString>
#include <QStringList>

namespace twk::cli {

/// Exit codes: 0 done, 1 the work failed (the reason is on standard error), 2 usage.
inline constexpr int kExitOk = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;

/// Options that come before the command.
struct GlobalOptions {
    QString networkFolder; ///< --network DIR; empty: the configured network folder
};

/// Prints the problem (when given) and the usage of all commands; returns kExitUsage.
int usage(const char* problem);
/// Prints "tarnwick-cli: " and the reason on standard error; returns kExitFailed.
int fail(const QString& text);

int runShow(const GlobalOptions& options, const QStringList& args);
int runSave(const GlobalOptions& options, const QStringList& args);
int runFilter(const GlobalOptions& options, const QStringList& args);
int runErrcode(const GlobalOptions& options, const QStringList& args);
int runDemo(const GlobalOptions& options, const QStringList& args);
int runServers(const GlobalOptions& options, const QStringList& args);
int runHealthCheck(const GlobalOptions& options, const QStringList& args);
int runConfigReport(const GlobalOptions& options, const QStringList& args);
int runConfigDiff(const GlobalOptions& options, const QStringList& args);
int runMonitor(const GlobalOptions& options, const QStringList& args);

/// Usage lines of each command, printed by usage().
extern const char* const kShowUsage;
extern const char* const kSaveUsage;
extern const char* const kFilterUsage;
extern const char* const kErrcodeUsage;
extern const char* const kDemoUsage;
extern const char* const kServersUsage;
extern const char* const kHealthCheckUsage;
extern const char* const kConfigReportUsage;
extern const char* const kConfigDiffUsage;
extern const char* const kMonitorUsage;

} // namespace twk::cli
