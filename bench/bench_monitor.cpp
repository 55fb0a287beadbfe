// The realtime monitor's poll cycle over 100 servers: with unchanged logs, and with all
// 100 logs changed at logs of 10 KB and of 10 MB (a cycle reads only each log's tail, so
// the two should cost about the same); and one event judged against 100 filter rules.

#include "BenchLogs.h"
#include "directory/NetworkFolder.h"
#include "monitor/FilterRules.h"
#include "monitor/RealtimeMonitor.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace {

using namespace twk;

constexpr int kServers = 100;
const char* const kEntry = "1-15-2003   2:30:45 pm:    SERVER-5.60-0  [nmID=1000A]\r\n"
                           "Severity = 4  Locus = 7  Class = 6\r\nTTS shut down\r\n\r\n";

void ensureApp() {
    static int argc = 1;
    static char name[] = "bench_monitor";
    static char* argv[] = {name, nullptr};
    if (QCoreApplication::instance() == nullptr)
        new QCoreApplication(argc, argv);
}

// 100 servers whose SYS$LOG.ERR are hard links of one log, so that one append changes
// all of them; the monitor started on them with a virtual clock.
struct MonitoredNetwork {
    explicit MonitoredNetwork(std::uint64_t logBytes, int rules = 5) {
        ensureApp();
        q.engine.paths.ensureFolders();
        demo::SysLogErrOptions options;
        options.targetBytes = logBytes;
        const QString cached =
            bench::cachedSysLog(QStringLiteral("monitor-%1.log").arg(logBytes), options);
        const QString network = q.dir.path() + QStringLiteral("/network");
        shared = network + QStringLiteral("/log.err");
        QDir().mkpath(network);
        QFile::copy(cached, shared);
        QByteArray directory = "[tree BENCH_TREE]\nlogged-in = yes\n\n";
        for (int i = 1; i <= kServers; ++i) {
            const QString server = QStringLiteral("S%1").arg(i, 3, 10, QLatin1Char('0'));
            directory += "[server " + server.toLatin1() + "]\ntree = BENCH_TREE\nvolumes = SYS\n\n";
            const QString folder =
                network + QStringLiteral("/servers/") + server + QStringLiteral("/SYS/SYSTEM");
            QDir().mkpath(folder);
            (void)::link(QFile::encodeName(shared).constData(),
                         QFile::encodeName(folder + QStringLiteral("/SYS$LOG.ERR")).constData());
            q.engine.registry.Reg_SetString(Hive::CurrentUser, monitorServersKey(), server,
                                            QString());
        }
        QFile description(network + QStringLiteral("/directory.txt"));
        (void)description.open(QIODevice::WriteOnly);
        description.write(directory);
        description.close();
        QByteArray ini = "[TreeContext]\nTreeContext=\n[RealtimeMonitor]\n";
        for (int r = 1; r <= rules; ++r)
            ini += QByteArray::number(r) + ",0,0,0,0,0,no such text,(none),0,0,0,-1,,0,0,-1,-1\n";
        QFile file(q.engine.paths.inApp(QStringLiteral("twk.ini")));
        (void)file.open(QIODevice::WriteOnly);
        file.write(ini);
        file.close();
        useNetworkFolder(q.engine, network);
        q.engine.clock = &clock;
        mnuRTM_Click(q.engine);
        if (q.engine.monitor.MonitorServerCount != kServers ||
            q.engine.Grid1.CellText(1, 4) == "monitoring is starting...") {
            std::fprintf(stderr, "the monitor did not read the servers\n");
            std::abort();
        }
    }
    void append() {
        QFile file(shared);
        (void)file.open(QIODevice::Append);
        file.write(kEntry);
    }

    bench::QuietEngine q;
    VirtualClock clock;
    QString shared;
};

void unchangedCycle(benchmark::State& state) {
    MonitoredNetwork net(10 << 10);
    for (auto _ : state)
        LongTimer1_Timer(net.q.engine);
}

void changedCycle(benchmark::State& state) {
    MonitoredNetwork net(static_cast<std::uint64_t>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        net.append();
        state.ResumeTiming();
        LongTimer1_Timer(net.q.engine);
    }
}

void hundredRules(benchmark::State& state) {
    MonitoredNetwork net(10 << 10, 100);
    for (auto _ : state)
        CheckRealtimeStatus(net.q.engine, 1);
}

} // namespace

BENCHMARK(unchangedCycle)
    ->Name("PollCycle/100Servers/Unchanged")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(changedCycle)
    ->Name("PollCycle/100Servers/AllChanged")
    ->Arg(10 << 10)
    ->Arg(10 << 20)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(hundredRules)
    ->Name("CheckRealtimeStatus/100Rules")
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();
BENCHMARK_MAIN();
