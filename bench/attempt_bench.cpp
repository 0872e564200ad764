// A whole attempt at a time step against the library calls in it: what filling the rows, the ghost
// zones, gathering, and accepting with floors add. The counter "of kernel" is the attempt's time
// over that of the calls alone, on the same strips.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <string>

#include "core/model/experiment_state.h"
#include "core/run/strip_driver.h"
#include "core/run/tick_arrays.h"
#include "core/run/time_step.h"
#include "core/setup/grid.h"
#include "loading/scheme_loader.h"

namespace {

// Two gases at rest behind a diaphragm, a while after it has gone. The step is then so short that
// the flow stands still while it is measured.
ExperimentState ShockTube(const std::string& scheme, int cells) {
    ExperimentState state;
    state.SchemeName = scheme;
    state.NGridCells = cells;
    AllocateArrays(state);
    for (int i = 0; i <= cells + 1; ++i) {
        const bool left = i <= cells / 2;
        state.Rho[i] = left ? 1.0 : 0.125;
        state.P[i] = left ? 1.0 : 0.1;
        state.FSmoke[i] = i / 10 % 2;
    }
    state.MnBdry = 4;
    state.PlotInterval = 1.0;
    state.DTime = 0.1 / cells;
    TickArrays tick(state, LoadSchemeLibrary(state.SchemeName));
    while (state.Time < 0.15 && TakeTimeStep(state, tick)) {
    }
    state.DTime *= 1e-6;
    state.CourantNumber *= 1e-6;
    return state;
}

// Seconds of the best of many attempts.
double BestAttempt(ExperimentState& state, TickArrays& tick) {
    double best = 1e9;
    for (int run = 0; run < 40; ++run) {
        const auto start = std::chrono::steady_clock::now();
        AdvanceAllStrips(state, tick);
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
        best = std::min(best, time.count());
    }
    return best;
}

// Seconds of the calls of one attempt: the meter has every strip called many times over.
double KernelSeconds(ExperimentState& state, TickArrays& tick) {
    const double plain = BestAttempt(state, tick);
    state.MeterOn = 1;
    const int calls = CallsPerStrip(state);
    const double metered = BestAttempt(state, tick);
    state.MeterOn = 0;
    return (metered - plain) / (calls - 1);
}

void Attempt(benchmark::State& bench, const std::string& scheme, int cells) {
    ExperimentState state = ShockTube(scheme, cells);
    TickArrays tick(state, LoadSchemeLibrary(state.SchemeName));
    if (!tick.Library.IsLoaded()) {
        bench.SkipWithError(tick.Library.Trouble.c_str());
        return;
    }
    const double kernel = KernelSeconds(state, tick);
    for (auto _ : bench) TakeTimeStep(state, tick);
    const auto steps = static_cast<double>(bench.iterations());
    using benchmark::Counter;
    bench.counters["cells/s"] = Counter(steps * cells, Counter::kIsRate);
    bench.counters["kernel cells/s"] = cells / kernel;
    bench.counters["of kernel"] =
        Counter(steps * kernel, Counter::Flags(Counter::kIsRate | Counter::kInvert));
}

}  // namespace

int main(int argc, char** argv) {
    for (const char* scheme : {"Kestrel", "Kestrel32", "Heron32", "Plover"}) {
        for (const int cells : {400, 5001}) {
            benchmark::RegisterBenchmark(
                ("attempt/" + std::string(scheme) + "/" + std::to_string(cells)).c_str(),
                [=](benchmark::State& bench) { Attempt(bench, scheme, cells); });
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
