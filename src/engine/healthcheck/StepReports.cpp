#include "healthcheck/StepReports.h"

#include "core/ErrorCapture.h"
#include "core/Text.h"
#include "healthcheck/HealthCheckOptions.h"
#include "healthcheck/ReportFiles.h"
#include "logs/LineReader.h"

namespace twk {

namespace {

void copyLines(const QString& from, LineFileWriter& out) {
    LineReader reader(from);
    std::string_view line;
    while (reader.next(line))
        out.line(line);
}

void repairReport(const QString& reportsFolder, int step, const QString& stateCaption) {
    LineFileWriter out(reportFile(reportsFolder, QStringLiteral("hcstep%1.txt").arg(step)));
    writeReportHead(out, step);
    copyLines(reportFile(reportsFolder, QStringLiteral("hcstep0.txt")), out);
    writeReportEnd(out, stateCaption);
    if (!out.close())
        throw RunTimeError(errnum::PathFileAccessError, "Path/File access error");
}

} // namespace

QString reportTime(const QDateTime& when) {
    return when.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

void WriteStep1Result(const QString& reportsFolder, const QString& stateCaption) {
    repairReport(reportsFolder, 1, stateCaption);
}

void WriteStep2Result(const QString& reportsFolder, const QString& stateCaption) {
    repairReport(reportsFolder, 2, stateCaption);
}

void WriteStep5Result(const QString& reportsFolder, const QString& stateCaption) {
    repairReport(reportsFolder, 5, stateCaption);
}

void WriteStep4Result(const QString& reportsFolder, const QString& stateCaption,
                      const QDateTime& ReplicaCheckTime, int timeDiffMinutes) {
    LineFileWriter out(reportFile(reportsFolder, QStringLiteral("hcstep4.txt")));
    writeReportHead(out, 4);
    copyLines(reportFile(reportsFolder, QStringLiteral("hcstep0.txt")), out);
    out.line();
    out.line();
    out.line(QStringLiteral("Replica Synchronization Health Check Start:            ") +
             reportTime(ReplicaCheckTime));
    out.line(QStringLiteral("Replica Synchronization Time Difference Maximum:       %1 minutes")
                 .arg(timeDiffMinutes));
    out.line();
    out.line(QStringLiteral("to pass all servers must be synchronized up to time:   ") +
             reportTime(ReplicaCheckTime.addSecs(-60LL * timeDiffMinutes)));
    writeReportEnd(out, stateCaption);
    if (!out.close())
        throw RunTimeError(errnum::PathFileAccessError, "Path/File access error");
}

void WriteDSTraceResults(const QString& reportsFolder, const QString& stateCaption,
                         const QString& server, const TraceReportOptions& options,
                         const DsTraceStatistics& statistics) {
    LineFileWriter out(reportFile(reportsFolder, QStringLiteral("hcstep3.txt")));
    writeReportHead(out, 3);
    out.line(QStringLiteral("Server: ") + server);
    out.line();
    out.line();
    out.line("Health Check Options");
    out.line();
    out.line(QStringLiteral("ignore replica in skulk error = ") + onOff(options.ignoreSkulkErrors));
    out.line(QStringLiteral("show replika in skulk errors  = ") + onOff(options.showSkulkErrors));
    out.line(QStringLiteral("include dstrace debug infos   = ") + onOff(options.includeDebugInfos));
    out.line(
        QStringLiteral("health check duration         = %1 seconds").arg(options.traceSeconds));
    out.line();
    out.line();
    for (const PartitionSyncRecord& r : statistics.PartitionSyncRecords) {
        const QString title = QStringLiteral("Partition ") + text::toQString(r.Partition);
        const QString rule(title.size(), u'_');
        out.line(rule);
        out.line(title);
        out.line(rule);
        out.line();
        out.line(QStringLiteral("successful synchronizations: %1").arg(r.TotalSucceeded));
        out.line(QStringLiteral("synchronization errors:      %1").arg(r.TotalFailed));
        out.line();
        out.line();
        out.line("Synchronization Statistics");
        out.line();
        out.line("Server                      Successful   Failed");
        out.line(std::string(50, '_'));
        for (int i = 0; i < kSyncSlots; ++i) {
            const std::size_t slot = static_cast<std::size_t>(i);
            if (r.Server[slot].empty())
                continue;
            const QString row = (text::toQString(r.Server[slot]).leftJustified(28) +
                                 QString::number(r.Succeeded[slot]))
                                    .leftJustified(42) +
                                QString::number(r.Failed[slot]);
            out.line(row);
        }
        out.line();
        out.line("Errors found:");
        if (r.ErrorLine.front().empty())
            out.line("None");
        for (const std::string& line : r.ErrorLine)
            if (!line.empty())
                out.line(line);
        out.line();
    }
    writeReportEnd(out, stateCaption);
    if (!out.close())
        throw RunTimeError(errnum::PathFileAccessError, "Path/File access error");
}

void WriteStep7Result(const QString& reportsFolder, const QString& stateCaption) {
    LineFileWriter out(reportFile(reportsFolder, QStringLiteral("hcstep7.txt")), true);
    writeReportEnd(out, stateCaption);
    if (!out.close())
        throw RunTimeError(errnum::PathFileAccessError, "Path/File access error");
}

} // namespace twk
