// What the inner loops of a game pay for the machine: a pump with nothing to do, and one with timers running.
#include <benchmark/benchmark.h>
#include <inkstone/inkstone.h>

namespace {

void pump_with_nothing_due(benchmark::State &state) {
    HOST_name();
    for (auto _ : state) fnCheckMessage();
}
BENCHMARK(pump_with_nothing_due)->Name("Runtime/fnCheckMessage, nothing due/inkstone");

void pump_with_sixteen_timers(benchmark::State &state) {
    SetupTimerProc(nullptr);
    for (auto _ : state) fnCheckMessage();
    ClearTimerProc(nullptr);
}
BENCHMARK(pump_with_sixteen_timers)->Name("Runtime/fnCheckMessage, sixteen timers/inkstone");

}  // namespace
