#include "healthcheck/DsTraceAnalysis.h"

#include "core/ErrorCapture.h"
#include "core/Text.h"
#include "healthcheck/LogReading.h"
#include "healthcheck/ReportFiles.h"
#include "logs/LineReader.h"

#include <QFile>

#include <limits>

namespace twk {

namespace {

/// The text from the 1-based `start` up to (not including) the 1-based `end`; empty when
/// the end lies before the start or is missing.
std::string_view between(std::string_view s, std::int64_t start, std::int64_t end) {
    if (end <= start)
        return {};
    return text::mid(s, start, end - start);
}

/// Trim, upper-case, one leading and one trailing dot cut.
std::string partitionText(std::string_view raw) {
    std::string name = upperAscii(text::trim(raw));
    if (!name.empty() && name.front() == '.')
        name.erase(0, 1);
    if (!name.empty() && name.back() == '.')
        name.pop_back();
    return name;
}

bool known(const std::vector<std::string>& names, const std::string& name) {
    for (const std::string& n : names)
        if (n == name)
            return true;
    return false;
}

void addOne(std::int16_t& counter) {
    if (counter == std::numeric_limits<std::int16_t>::max())
        throw RunTimeError(errnum::Overflow, "Overflow");
    ++counter;
}

/// The record of a partition (the last one with that name), -1 when none.
int recordOf(const DsTraceStatistics& statistics, const std::string& partition) {
    for (int i = static_cast<int>(statistics.PartitionSyncRecords.size()) - 1; i >= 0; --i)
        if (statistics.PartitionSyncRecords[static_cast<std::size_t>(i)].Partition == partition)
            return i;
    return -1;
}

/// The slot of a server: its own, else the first free one; -1 when all are taken.
int slotOf(const PartitionSyncRecord& record, const std::string& server) {
    int free = -1;
    for (int i = 0; i < kSyncSlots; ++i) {
        const std::string& s = record.Server[static_cast<std::size_t>(i)];
        if (s == server)
            return i;
        if (free < 0 && s.empty())
            free = i;
    }
    return free;
}

} // namespace

std::string_view cutTracePrefix(std::string_view line) {
    return text::mid(line, text::inStr(line, " ") + 1);
}

std::string fnSyncPartitionName(std::string_view sZeile, const std::vector<std::string>& names) {
    const std::string lower = lowerAscii(sZeile);
    std::string name;
    if (const std::int64_t at = text::inStr(lower, "sync - partition - server"); at > 0) {
        name = partitionText(between(lower, at + 25, text::inStr(lower, ",")));
    } else if (const std::int64_t at2 = text::inStr(lower, "sync - partition"); at2 > 0) {
        name = partitionText(between(lower, at2 + 16, text::inStr(lower, "all processed")));
    } else if (has(lower, "sync - process")) {
        const std::int64_t forAt = text::inStr(lower, " for ");
        if (forAt == 0)
            return {};
        std::string_view rest = text::trim(text::mid(lower, forAt + 5));
        if (const auto blank = rest.find(' '); blank != std::string_view::npos)
            rest = rest.substr(0, blank);
        name = partitionText(rest);
    } else {
        return {};
    }
    return known(names, name) ? std::string() : name;
}

std::string fnOutboundPartition(std::string_view sZeile) {
    const std::string lower = lowerAscii(sZeile);
    if (has(lower, "outbound sync") && has(lower, "is already in progress"))
        return {};
    const std::int64_t partition = text::inStr(lower, "partition");
    if (partition == 0)
        return {};
    if (has(lower, "start outbound sync with (")) {
        const std::int64_t start = partition + 9;
        return partitionText(between(lower, start, text::inStr(lower, ")", start)));
    }
    const std::int64_t sync = text::inStr(lower, "start partition sync");
    if (sync > 0 && has(lower, ","))
        return partitionText(between(lower, sync + 20, text::inStr(lower, ",")));
    return {};
}

std::string fnServerName(std::string_view sZeile) {
    const std::int64_t start = text::inStr(sZeile, "to <") + 5;
    const std::int64_t dot = text::inStr(sZeile, ".", start);
    const std::string_view name = dot == 0 ? text::mid(sZeile, start) : between(sZeile, start, dot);
    return upperAscii(name);
}

std::string fnPartitionName(std::string_view sZeile, const std::vector<std::string>& names) {
    if (names.size() == 1)
        return names.front();
    const std::int64_t start = text::inStr(sZeile, "for") + 3;
    return partitionText(between(sZeile, start, text::inStr(sZeile, "succeeded")));
}

void SyncSucceeded(DsTraceStatistics& statistics, std::string_view sEvent) {
    const std::string server = fnServerName(sEvent);
    const int record = recordOf(statistics, fnPartitionName(sEvent, statistics.PartitionNames));
    if (record < 0)
        return;
    PartitionSyncRecord& r = statistics.PartitionSyncRecords[static_cast<std::size_t>(record)];
    const int slot = slotOf(r, server);
    if (slot < 0)
        return;
    r.Server[static_cast<std::size_t>(slot)] = server;
    addOne(r.Succeeded[static_cast<std::size_t>(slot)]);
}

void SyncFailed(DsTraceStatistics& statistics, const std::string& sPartition,
                std::string_view sErrorLine) {
    if (sPartition.empty())
        return;
    const std::string lower = lowerAscii(sErrorLine);
    std::string_view rest = text::trim(text::mid(lower, text::inStr(lower, "to") + 2));
    if (!rest.empty() && rest.front() == '.')
        rest.remove_prefix(1);
    if (const auto dot = rest.find('.'); dot != std::string_view::npos)
        rest = rest.substr(0, dot);
    const std::string server = upperAscii(rest);
    const int record = recordOf(statistics, sPartition);
    if (record < 0)
        return;
    PartitionSyncRecord& r = statistics.PartitionSyncRecords[static_cast<std::size_t>(record)];
    const int slot = slotOf(r, server);
    if (slot < 0)
        return;
    r.Server[static_cast<std::size_t>(slot)] = server;
    addOne(r.Failed[static_cast<std::size_t>(slot)]);
    for (int i = 0; i < kSyncSlots; ++i) {
        std::string& line = r.ErrorLine[static_cast<std::size_t>(i)];
        if (!line.empty())
            continue;
        line = sErrorLine;
        if (i == kSyncSlots - 1)
            line += " ...";
        break;
    }
}

void CreateDSTraceReport(const QString& reportsFolder, DsTraceStatistics& statistics,
                         const TraceDebug& debug) {
    const QString traceCopy = reportFile(reportsFolder, QStringLiteral("dstrace.log"));
    const QString readable = reportFile(reportsFolder, QStringLiteral("debuginfos3.txt"));
    QFile::remove(reportFile(reportsFolder, QStringLiteral("tmpstep3.txt")));
    QFile::remove(readable);
    statistics = DsTraceStatistics();
    std::vector<std::string>& names = statistics.PartitionNames;
    names.emplace_back();

    // One pass: the prefixes cut, two empty lines behind the milestones, and the
    // partitions collected (the empty lines added never name one).
    {
        LineReader reader(traceCopy);
        if (!reader.isOpen())
            throwFileNotFound(traceCopy);
        LineFileWriter out(readable);
        if (!out.ok())
            throw RunTimeError(errnum::PathFileAccessError, "Path/File access error");
        std::string_view line;
        std::string lower;
        while (reader.next(line)) {
            const std::string_view cut = cutTracePrefix(line);
            out.line(cut);
            lowerAscii(cut, lower);
            if (has(lower, "all processed =") || has(lower, "error")) {
                out.line();
                out.line();
            }
            if (has(lower, "sync - partition") || has(lower, "sync - process")) {
                std::string name = fnSyncPartitionName(cut, names);
                if (name.empty())
                    continue;
                if (names.front().empty())
                    names.front() = std::move(name);
                else
                    names.push_back(std::move(name));
            }
        }
        if (!out.close())
            throw RunTimeError(errnum::PathFileAccessError, "Path/File access error");
    }
    if (debug.on && debug.show) {
        QString list;
        for (const std::string& n : names)
            list += QStringLiteral("       ") + text::toQString(n) + QStringLiteral("\r\n");
        debug.show(list, QStringLiteral(" Partitions found..."));
    }
    for (const std::string& n : names) {
        if (n.empty())
            continue;
        statistics.PartitionSyncRecords.emplace_back();
        statistics.PartitionSyncRecords.back().Partition = n;
    }
    if (statistics.PartitionSyncRecords.empty())
        statistics.PartitionSyncRecords.emplace_back();

    // Successes first, then failures, each in the order of the trace: so a server's slot
    // is where its first success put it.
    {
        LineReader reader(readable);
        std::string_view line;
        std::string lower;
        while (reader.next(line)) {
            lowerAscii(line, lower);
            if (has(lower, "send updates to") && has(lower, "succeeded")) {
                SyncSucceeded(statistics, line);
                if (debug.on && debug.trace)
                    debug.trace(QStringLiteral("SyncSucceeded: ") + text::toQString(line));
            }
        }
    }
    {
        LineReader reader(readable);
        std::string previous;
        std::string_view line;
        std::string lower;
        bool first = true;
        while (reader.next(line)) {
            lowerAscii(line, lower);
            if (!first && (has(lower, "error") || has(lower, " -6") || has(lower, " -7")))
                SyncFailed(statistics, fnOutboundPartition(previous), line);
            previous.assign(line);
            first = false;
        }
    }
    auto total = [](const std::array<std::int16_t, kSyncSlots>& counts) {
        int sum = 0;
        for (const std::int16_t n : counts)
            sum += n;
        if (sum > std::numeric_limits<std::int16_t>::max())
            throw RunTimeError(errnum::Overflow, "Overflow");
        return static_cast<std::int16_t>(sum);
    };
    for (PartitionSyncRecord& r : statistics.PartitionSyncRecords) {
        r.TotalSucceeded = total(r.Succeeded);
        r.TotalFailed = total(r.Failed);
    }
    StatisticsForm& form = statistics.frmStatistics;
    for (const PartitionSyncRecord& r : statistics.PartitionSyncRecords) {
        form.lbPartitionName = text::toQString(r.Partition);
        for (std::size_t i = 0; i < form.lbServer.size(); ++i) {
            form.lbServer[i] = text::toQString(r.Server[i]);
            form.lbSucceeded[i] = r.Succeeded[i] != 0 ? QString::number(r.Succeeded[i]) : QString();
            form.lbFailed[i] = r.Failed[i] != 0 ? QString::number(r.Failed[i]) : QString();
        }
        form.lbTotalSuccess = QString::number(r.TotalSucceeded);
        form.lbTotalFailed = QString::number(r.TotalFailed);
    }
}

bool bSynchronization(const DsTraceStatistics& statistics, bool ignoreSkulkErrors) {
    if (!ignoreSkulkErrors) {
        int failed = 0;
        for (const PartitionSyncRecord& r : statistics.PartitionSyncRecords)
            failed += r.TotalFailed;
        return failed == 0;
    }
    for (const PartitionSyncRecord& r : statistics.PartitionSyncRecords)
        for (const std::string& line : r.ErrorLine)
            if (!line.empty() && !has(line, "-698"))
                return false;
    return true;
}

void CreateDSTrace7Report(const QString& reportsFolder, const QString& server) {
    const QString traceCopy = reportFile(reportsFolder, QStringLiteral("dstrace.log"));
    const QString temporary = reportFile(reportsFolder, QStringLiteral("tmpstep7.txt"));
    QFile::remove(temporary);
    {
        LineReader reader(traceCopy);
        if (!reader.isOpen())
            throwFileNotFound(traceCopy);
        LineFileWriter out(temporary);
        std::string_view line;
        while (reader.next(line)) {
            const std::string_view cut = cutTracePrefix(line);
            if (!text::startsWith(cut, "  -->"))
                out.line(cut);
        }
        if (!out.close())
            throw RunTimeError(errnum::PathFileAccessError, "Path/File access error");
    }
    QFile::remove(traceCopy);
    QFile::rename(temporary, traceCopy);

    LineFileWriter report(reportFile(reportsFolder, QStringLiteral("hcstep7.txt")));
    writeReportHead(report, 7);
    report.line(QStringLiteral("Server: ") + server);
    report.line();
    report.line();
    LineReader reader(traceCopy);
    std::string_view line;
    while (reader.next(line))
        report.line(line);
    if (!report.close())
        throw RunTimeError(errnum::PathFileAccessError, "Path/File access error");
}

bool bSchemaSync(const QString& hcstep7Path) {
    LineReader reader(hcstep7Path);
    if (!reader.isOpen())
        throwFileNotFound(hcstep7Path);
    std::string_view line;
    std::string lower;
    while (reader.next(line)) {
        lowerAscii(line, lower);
        if (has(lower, "all processed = yes"))
            return true;
    }
    return false;
}

} // namespace twk
