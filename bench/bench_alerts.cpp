// One poll cycle of the alert storm: 100 monitor rows, each matching three rules with
// mail, syslog over TCP and RTMLog.txt, against real receivers on 127.0.0.1; once with
// the SMTP server up and once with it silent (it takes connections and says nothing,
// here with a time-out of one second).

#include "alerts/AlertStorm.h"

#include <benchmark/benchmark.h>

namespace {

void CycleWithReceiversUp(benchmark::State& state) {
    if (!twk::test::missingReceiver(QStringLiteral("aiosmtpd")).isEmpty()) {
        state.SkipWithError("aiosmtpd is not installed");
        return;
    }
    twk::test::AlertStorm storm;
    if (!storm.syslog.ready || !storm.startSmtp()) {
        state.SkipWithError("the receivers did not start");
        return;
    }
    for (auto _ : state)
        storm.cycle();
    state.counters["mails"] =
        benchmark::Counter(storm.mailsReceived(), benchmark::Counter::kAvgIterations);
}
BENCHMARK(CycleWithReceiversUp)->Unit(benchmark::kMillisecond)->Iterations(3);

void CycleWithSmtpSilent(benchmark::State& state) {
    if (!twk::test::missingReceiver(QStringLiteral("aiosmtpd")).isEmpty()) {
        state.SkipWithError("aiosmtpd is not installed");
        return;
    }
    twk::test::AlertStorm storm;
    if (!storm.syslog.ready || !storm.startSmtp(true)) {
        state.SkipWithError("the receivers did not start");
        return;
    }
    for (auto _ : state)
        storm.cycle();
}
BENCHMARK(CycleWithSmtpSilent)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

int main(int argc, char** argv) {
    twk::test::alertApplication();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
