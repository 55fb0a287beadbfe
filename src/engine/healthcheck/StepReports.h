#pragma once
// The text reports of the steps that read a DSREPAIR log (1, 2, 4, 5) and of step 3,
// written after the step's evaluation from Reports/hcstep0.txt (the copy of the log)
// and the trace statistics.

#include "healthcheck/DsTraceAnalysis.h"

#include <QDateTime>
#include <QString>

namespace twk {

/// How a run shows dates and times in its reports.
QString reportTime(const QDateTime& when);

/// Steps 1, 2 and 5: the banner, the lines of hcstep0.txt, the status.
void WriteStep1Result(const QString& reportsFolder, const QString& stateCaption);
void WriteStep2Result(const QString& reportsFolder, const QString& stateCaption);
void WriteStep5Result(const QString& reportsFolder, const QString& stateCaption);
/// Step 4: the log and the times the rule compared with.
void WriteStep4Result(const QString& reportsFolder, const QString& stateCaption,
                      const QDateTime& ReplicaCheckTime, int timeDiffMinutes);

/// The options step 3 names in its report.
struct TraceReportOptions {
    bool ignoreSkulkErrors = false;
    bool showSkulkErrors = true;
    bool includeDebugInfos = true;
    int traceSeconds = 90;
};
/// Step 3: options, then per partition its totals, its partner servers and its errors.
void WriteDSTraceResults(const QString& reportsFolder, const QString& stateCaption,
                         const QString& server, const TraceReportOptions& options,
                         const DsTraceStatistics& statistics);
/// Step 7: the end of the report CreateDSTrace7Report began.
void WriteStep7Result(const QString& reportsFolder, const QString& stateCaption);

} // namespace twk
