// Configuration reports of 100 MB: opening one in the viewer (bytes read, lines and
// sections indexed), comparing two section by section, and writing the differences as
// `tarnwick-cli configdiff` prints them; beside a plain line count of the same file.
//
// The reports are many reports of one server written one after the other (about 100 MB
// each): the left one as the server stands now, the right one as it stood before its
// last maintenance nine days earlier, so every section pairs and differs the way two
// real reports do.

#include "BenchLogs.h"
#include "directory/ConfigReportWriter.h"
#include "tools/ConfigReportCompare.h"
#include "tools/ConfigReportText.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

namespace {

using namespace twk;

constexpr int kReportMegabytes = 100;

ServerEntry benchServer() {
    ServerEntry fs1;
    fs1.name = QStringLiteral("FS1");
    fs1.tree = QStringLiteral("ACME_TREE");
    fs1.context = {QStringLiteral("ACME")};
    fs1.version = QStringLiteral("Novell NetWare 5.70.03[DS]");
    fs1.volumes = {QStringLiteral("SYS"), QStringLiteral("DATA"), QStringLiteral("MAIL")};
    fs1.address = QStringLiteral("10.10.1.11");
    return fs1;
}

// The report `name` in the benchmarks' temporary folder: reports of the server one
// after the other, ten minutes apart, until it holds 100 MB.
QString cachedReport(const QString& name, ConfigState state) {
    const ServerEntry server = benchServer();
    const QDateTime start(QDate(2024, 5, 6), QTime(10, 0));
    const qint64 ageDays = state == ConfigState::Current ? 0 : 9;
    const auto report = [&](int i) {
        return writeConfigReport(server, start.addSecs(600 * i).addDays(-ageDays), state);
    };
    const QString fingerprint = QString::fromLatin1(
        QCryptographicHash::hash(report(0), QCryptographicHash::Sha1).toHex().left(10));
    return bench::cachedFile(name + u'-' + fingerprint + QStringLiteral(".txt"), kReportMegabytes,
                             report);
}

const QString& leftReport() {
    static const QString path =
        cachedReport(QStringLiteral("config-100MB-now"), ConfigState::Current);
    return path;
}

const QString& rightReport() {
    static const QString path =
        cachedReport(QStringLiteral("config-100MB-before"), ConfigState::BeforeLastMaintenance);
    return path;
}

ConfigReportText loaded(const QString& path) {
    ConfigReportText report;
    QString error;
    if (path.isEmpty() || !report.load(path, error)) {
        std::fprintf(stderr, "the report could not be read: %s\n", qPrintable(error));
        std::abort();
    }
    return report;
}

void lineCount(benchmark::State& state) {
    const QByteArray path = QFile::encodeName(leftReport());
    for (auto _ : state)
        benchmark::DoNotOptimize(bench::countLineFeeds(path));
}

void openReport(benchmark::State& state) {
    const QString& path = leftReport();
    for (auto _ : state) {
        const ConfigReportText report = loaded(path);
        benchmark::DoNotOptimize(report.sections().size());
    }
}

void compareTwo(benchmark::State& state) {
    const ConfigReportText left = loaded(leftReport());
    const ConfigReportText right = loaded(rightReport());
    std::size_t differences = 0;
    for (auto _ : state) {
        const ReportComparison comparison = compareReports(left, right);
        differences = comparison.differences.size();
    }
    state.counters["differences"] = static_cast<double>(differences);
    state.counters["lines"] = left.lineCount();
}

// What `tarnwick-cli configdiff` does, output written to /dev/null.
void configDiff(benchmark::State& state) {
    for (auto _ : state) {
        const ConfigReportText left = loaded(leftReport());
        const ConfigReportText right = loaded(rightReport());
        const ReportComparison comparison = compareReports(left, right);
        QFile sink(QStringLiteral("/dev/null"));
        (void)sink.open(QIODevice::WriteOnly);
        formatDifferences(comparison, left, right,
                          [&sink](const QString& line) { sink.write(line.toUtf8() + '\n'); });
    }
}

} // namespace

BENCHMARK(lineCount)
    ->Name("ConfigReport/100MB/LineFeeds")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(openReport)
    ->Name("ConfigReport/100MB/Open")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(compareTwo)
    ->Name("ConfigReport/100MB/Compare")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(configDiff)
    ->Name("ConfigReport/100MB/ConfigDiff")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1);
BENCHMARK_MAIN();
