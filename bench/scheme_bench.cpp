// The schemes alone, on a strip that stays in the cache: cell updates per second, counted flops,
// and their share of what the processor can do with a plain mix of products and sums of the same
// floats, measured in the same run. The label names the file that the loader picked.
#include <benchmark/benchmark.h>
#include <dlfcn.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <string>

#include "core/run/boundary_zones.h"
#include "scheme_calls/strip_call.h"
#include "verify/trial_problems.h"
#include "verify/trial_run.h"

namespace {

// Products and sums in twelve vectors of 256 bits, none of which waits for another. The best of
// many short runs, in flops per second.
template <typename Float>
double PeakRate() {
    constexpr int lanes = 32 / static_cast<int>(sizeof(Float));
    constexpr int vectors = 12;
    constexpr int rounds = 4000;
    alignas(64) std::array<Float, lanes * vectors> values;
    values.fill(Float(1));
    double best = 0.0;
    for (int run = 0; run < 300; ++run) {
        const auto start = std::chrono::steady_clock::now();
        std::array<Float, lanes* vectors> local = values;
        for (int round = 0; round < rounds; ++round)
            for (Float& value : local) value = value * Float(0.999) + Float(0.001);
        values = local;
        benchmark::DoNotOptimize(values);
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
        best = std::max(best, 2.0 * rounds * lanes * vectors / time.count());
    }
    return best;
}

std::string FileOf(void* entry) {
    Dl_info info = {};
    dladdr(entry, &info);
    return info.dli_fname != nullptr ? info.dli_fname : "";
}

// The folder that holds the builds for any processor; what the loader picks lies there or below.
std::string LibraryFolder() {
    const std::string picked = FileOf(LoadedScheme(SchemeKind::Kestrel).Entry());
    const std::size_t end = std::min(picked.find("/glibc-hwcaps"), picked.rfind('/'));
    return picked.substr(0, end);
}

// A strip of Test 2 in full swing, with smoke: all kinds of waves, a contact, and both carried
// quantities at work.
Flow BusyFlow(const LoadedScheme& scheme) {
    ExperimentState state = TestProblem(2, 400);
    RunTo(state, scheme.Library(), 0.1);
    for (int cell = 1; cell <= state.NGridCells; ++cell) {
        state.FSmoke[cell] = cell / 10 % 2 == 0 ? 1.0 : 0.0;
    }
    FillBoundaryZones(state);
    return FlowOf(state);
}

template <typename Float>
void Kernel(benchmark::State& state, SchemeKind kind, const std::string& folder) {
    const LoadedScheme scheme(kind, folder);
    static const double peak = PeakRate<Float>();
    const int width = scheme.WidestStrip();
    PlainStorage storage;
    StripCall<Float> call(kind, width, storage);
    call.Load(BusyFlow(scheme), 50);
    call.SetNumbers({}, 4e-4);
    call.Run(scheme.Entry());
    const double flops = call.Ops[0];
    for (auto _ : state) {
        call.Run(scheme.Entry());
        call.Ops = {};
        benchmark::DoNotOptimize(call.Courant);
    }
    const auto steps = static_cast<double>(state.iterations());
    state.counters["cells/s"] = benchmark::Counter(steps * width, benchmark::Counter::kIsRate);
    state.counters["flops/cell"] = flops / width;
    state.counters["share of peak"] =
        benchmark::Counter(steps * flops / peak, benchmark::Counter::kIsRate);
    state.counters["peak Gflop/s"] = 1e-9 * peak;
    state.SetLabel(FileOf(scheme.Entry()));
}

void Register(const std::string& name, const std::string& folder) {
    for (const SchemeKind kind : AllSchemes)
        benchmark::RegisterBenchmark((name + "/" + SchemeName(kind)).c_str(),
                                     [kind, folder](benchmark::State& state) {
                                         if (IsDouble(kind))
                                             Kernel<double>(state, kind, folder);
                                         else
                                             Kernel<float>(state, kind, folder);
                                     });
}

}  // namespace

int main(int argc, char** argv) {
    Register("picked by the loader", "");
    const std::string folder = LibraryFolder();
    Register("any x86-64", folder);
    if (__builtin_cpu_supports("avx2")) Register("256-bit", folder + "/glibc-hwcaps/x86-64-v3");
    if (__builtin_cpu_supports("avx512vl")) Register("512-bit", folder + "/glibc-hwcaps/x86-64-v4");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
