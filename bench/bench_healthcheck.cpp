// The health check's evaluation of large server files: the trace analysis of steps 3 and
// 7 over a 100 MB DSTRACE.DBG and the four rules of the repair log over a 10 MB
// DSREPAIR.LOG, beside a plain line count of the same files. The files are made by the
// simulated server tools from the demo directory and kept in the temporary folder.

#include "BenchLogs.h"
#include "demo/DemoNetwork.h"
#include "directory/ServerConsoleTexts.h"
#include "healthcheck/DsRepairEvaluation.h"
#include "healthcheck/DsTraceAnalysis.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <fcntl.h>
#include <unistd.h>

using twk::bench::countLineFeeds;
using twk::bench::QuietEngine;

namespace {

constexpr double kMB = 1024.0 * 1024.0;
// Inside the years the replica rule takes (2000 to 2020).
const QDateTime kNow(QDate(2019, 5, 6), QTime(10, 0, 0));

const twk::NetworkDescription& directory() {
    static const twk::NetworkDescription d = twk::demo::demoDirectory(kNow);
    return d;
}

const twk::ServerEntry& fs2() {
    return *directory().server(QStringLiteral("FS2"));
}

/// What a server traces besides synchronization: checks of objects, backlinks and
/// limber, which the rules pass over. A real trace is mostly such lines.
QByteArray traceNoise(int block) {
    QByteArray noise;
    for (int i = 0; i < 40; ++i) {
        const QByteArray n = QByteArray::number(block * 40 + i);
        noise += "INSPECTOR: Checking object CN=user" + n + ".OU=SALES.O=ACME, 14 attributes\r\n";
        noise += "BACKLINK: Verifying backlinks of object CN=user" + n + ".OU=SALES.O=ACME\r\n";
        noise +=
            "LIMBER: Checking the tree name and the server address of .FS2.ACME.ACME_TREE.\r\n";
    }
    return noise;
}

QString traceFile() {
    static const QString path =
        twk::bench::cachedFile(QStringLiteral("dstrace-100MB-v2.dbg"), 100, [](int block) {
            return twk::dsTraceBlock(twk::DsTraceKind::Sync, directory(), fs2(), block) +
                   traceNoise(block);
        });
    return path;
}

QString repairFile() {
    static const QString path =
        twk::bench::cachedFile(QStringLiteral("dsrepair-10MB.log"), 10, [](int run) {
            const twk::DsRepairRun kinds[] = {twk::DsRepairRun::VersionsAndTime,
                                              twk::DsRepairRun::ReplicaSync,
                                              twk::DsRepairRun::ExternalReferences};
            return twk::dsRepairLogText(kinds[run % 3], directory(), fs2(), kNow);
        });
    return path;
}

void setThroughput(benchmark::State& state, const QString& path) {
    const auto bytes = QFileInfo(path).size();
    state.SetBytesProcessed(state.iterations() * bytes);
    state.counters["fileMB"] = static_cast<double>(bytes) / kMB;
}

/// A Reports folder whose dstrace.log is the big trace.
struct TraceFolder {
    QuietEngine quiet;
    QString folder = quiet.dir.path();
    bool ok = QFile::link(traceFile(), folder + QStringLiteral("/dstrace.log"));
};

void traceStep3(benchmark::State& state) {
    TraceFolder t;
    if (!t.ok)
        return state.SkipWithError("no trace");
    std::size_t partitions = 0;
    for (auto _ : state) {
        twk::DsTraceStatistics statistics;
        try {
            twk::CreateDSTraceReport(t.folder, statistics);
        } catch (const std::exception& e) {
            return state.SkipWithError(e.what());
        }
        benchmark::DoNotOptimize(twk::bSynchronization(statistics, false));
        partitions = statistics.PartitionSyncRecords.size();
    }
    setThroughput(state, traceFile());
    state.counters["partitions"] = static_cast<double>(partitions);
}

void traceStep7(benchmark::State& state) {
    TraceFolder t;
    if (!t.ok)
        return state.SkipWithError("no trace");
    for (auto _ : state) {
        twk::CreateDSTrace7Report(t.folder, QStringLiteral("FS2"));
        benchmark::DoNotOptimize(twk::bSchemaSync(t.folder + QStringLiteral("/hcstep7.txt")));
    }
    setThroughput(state, traceFile());
}

void repairRules(benchmark::State& state) {
    const QString log = repairFile();
    if (log.isEmpty())
        return state.SkipWithError("no repair log");
    QuietEngine quiet;
    for (auto _ : state) {
        benchmark::DoNotOptimize(twk::bDSVersion(log));
        benchmark::DoNotOptimize(twk::bTimeSync(log));
        benchmark::DoNotOptimize(twk::bReplicaSync(log, 3600, kNow, quiet.ui));
        benchmark::DoNotOptimize(twk::bExtReferences(log));
    }
    setThroughput(state, log);
}

// The floor: reading the file in 1 MiB blocks and counting line feeds, as `wc -l` does.
void countLines(benchmark::State& state, QString (*file)()) {
    const QByteArray local = file().toLocal8Bit();
    std::int64_t lines = 0;
    for (auto _ : state) {
        lines = countLineFeeds(local);
        benchmark::DoNotOptimize(lines);
    }
    setThroughput(state, file());
    state.counters["lines"] = static_cast<double>(lines);
}

} // namespace

BENCHMARK(traceStep3)->Name("Trace/Step3/100MB")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(traceStep7)->Name("Trace/Step7/100MB")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(countLines, trace, traceFile)
    ->Name("LineCount/Trace/100MB")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(repairRules)->Name("Repair/FourRules/10MB")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(countLines, repair, repairFile)
    ->Name("LineCount/Repair/10MB")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

BENCHMARK_MAIN();
