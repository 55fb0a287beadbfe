// Feeds arbitrary bytes to the evaluators of the repair log as DSREPAIR.LOG: versions,
// time sync, replica sync with its stamps, and the external references after the line
// feeds are turned into CR LF. Expected failures are exceptions for the caller's error
// tail; anything else (a crash, a sanitizer report, a hang) is a finding.

#include "FuzzLogFile.h"
#include "healthcheck/DsRepairEvaluation.h"

#include <QFile>

namespace {

std::unique_ptr<twk::fuzz::FuzzLogFile> target;

template <typename Rule> void judge(Rule rule) {
    try {
        (void)rule();
    } catch (const std::exception&) {
        // a log the rules can't take apart: the step fails
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    target = std::make_unique<twk::fuzz::FuzzLogFile>(QStringLiteral("DSREPAIR.LOG"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (!target->write(data, size))
        return 0;
    const QString& log = target->path;
    const QDateTime checkTime(QDate(2009, 1, 12), QTime(12, 0, 0));
    judge([&] { return twk::bDSVersion(log); });
    judge([&] { return twk::bTimeSync(log); });
    judge([&] { return twk::bReplicaSync(log, 3600, checkTime, target->ui); });
    judge([&] { return twk::ReplicaTimeZone(log); });
    judge([&] {
        twk::ReplaceLineFeed(log);
        return twk::bExtReferences(log);
    });
    return 0;
}
