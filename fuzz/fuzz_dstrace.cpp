// Feeds arbitrary bytes to the trace analysis of steps 3 and 7 as dstrace.log: the
// readable trace, the statistics per partition and partner server and their rule, and
// the cleaned schema trace with its rule.

#include "FuzzLogFile.h"
#include "healthcheck/DsTraceAnalysis.h"

#include <QDir>

namespace {

std::unique_ptr<twk::fuzz::FuzzLogFile> target;

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    target = std::make_unique<twk::fuzz::FuzzLogFile>(QStringLiteral("dstrace.log"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (!target->write(data, size))
        return 0;
    const QString folder = target->dir.path();
    try {
        twk::DsTraceStatistics statistics;
        twk::CreateDSTraceReport(folder, statistics);
        (void)twk::bSynchronization(statistics, false);
        (void)twk::bSynchronization(statistics, true);
    } catch (const std::exception&) {
        // a counter that overflows: the caller's error tail keeps what was counted
    }
    try {
        twk::CreateDSTrace7Report(folder, QStringLiteral("FS1"));
        (void)twk::bSchemaSync(QDir(folder).filePath(QStringLiteral("hcstep7.txt")));
    } catch (const std::exception&) {
    }
    return 0;
}
