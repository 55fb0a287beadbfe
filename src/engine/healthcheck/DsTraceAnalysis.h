#pragma once
// Judging a server by the trace DSTRACE writes during steps 3 and 7. Step 3 turns the
// copy of the trace (Reports/dstrace.log) into a readable trace (debuginfos3.txt) and
// statistics per partition and partner server; step 7 into a plain list. Every pass is
// a sequential line read; the only search inside is over the partition list.

#include <QString>

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace twk {

/// Partner servers (and error lines) a partition record holds.
inline constexpr int kSyncSlots = 250;

struct PartitionSyncRecord {
    std::string Partition;
    std::array<std::string, kSyncSlots> Server{}; ///< empty = free slot
    std::array<std::int16_t, kSyncSlots> Succeeded{};
    std::array<std::int16_t, kSyncSlots> Failed{};
    std::array<std::string, kSyncSlots> ErrorLine{}; ///< empty = free
    std::int16_t TotalSucceeded = 0;
    std::int16_t TotalFailed = 0;
};

/// frmStatistics: the rows of one record (the last one it was filled with).
struct StatisticsForm {
    QString caption = QStringLiteral("Synchronization Statistics");
    QString lbPartitionName;
    std::array<QString, 9> lbServer{};
    std::array<QString, 9> lbSucceeded{};
    std::array<QString, 9> lbFailed{};
    QString lbTotalSuccess;
    QString lbTotalFailed;
};

/// What the analysis of a step 3 trace finds.
struct DsTraceStatistics {
    std::vector<std::string> PartitionNames;
    std::vector<PartitionSyncRecord> PartitionSyncRecords;
    StatisticsForm frmStatistics;
};

/// The partition a "sync - partition" or "sync - process" line names, upper-cased, without
/// one leading and one trailing dot; empty when none or when the name is in `names`.
std::string fnSyncPartitionName(std::string_view sZeile, const std::vector<std::string>& names);
/// The partition of a line just ahead of an error; empty when it names none.
std::string fnOutboundPartition(std::string_view sZeile);
/// The partner server of a "send updates to <.SERVER...>" line.
std::string fnServerName(std::string_view sZeile);
/// The partition of a success line (the only one when there is only one).
std::string fnPartitionName(std::string_view sZeile, const std::vector<std::string>& names);

/// Counts a success for the server of the line in its partition's record.
void SyncSucceeded(DsTraceStatistics& statistics, std::string_view sEvent);
/// Counts a failure (and keeps the line) for the server the error line names.
void SyncFailed(DsTraceStatistics& statistics, const std::string& sPartition,
                std::string_view sErrorLine);

/// What the analysis may show in debug mode.
struct TraceDebug {
    bool on = false;
    /// A message box (text, title).
    std::function<void(const QString&, const QString&)> show;
    /// A line for the debug trace.
    std::function<void(const QString&)> trace;
};

/// Step 3: reads `reportsFolder`/dstrace.log, writes debuginfos3.txt and fills the
/// statistics. A counter that overflows 16 bits throws "Overflow" (the caller's error
/// tail keeps what was counted so far).
void CreateDSTraceReport(const QString& reportsFolder, DsTraceStatistics& statistics,
                         const TraceDebug& debug = {});
/// The rule of step 3: no failed synchronization (with `ignoreSkulkErrors`: no error line
/// other than -698).
bool bSynchronization(const DsTraceStatistics& statistics, bool ignoreSkulkErrors);

/// Step 7: cleans dstrace.log (prefixes cut, "  -->" lines dropped) and writes the head
/// and body of hcstep7.txt.
void CreateDSTrace7Report(const QString& reportsFolder, const QString& server);
/// The rule of step 7: hcstep7.txt has a line with "all processed = yes" (any case).
bool bSchemaSync(const QString& hcstep7Path);

/// The line with its first blank and everything before it cut (trace lines begin with
/// a tag).
std::string_view cutTracePrefix(std::string_view line);

} // namespace twk
