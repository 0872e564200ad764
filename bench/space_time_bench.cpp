// What a paint of the space-time picture costs beside a plain read of its table, for a grid coarser
// and one finer than the picture, at both sizes of the surface.
//
//   PlainRead     the largest value of the table, cell after cell
//   FirstPaint    a table that the raster has never seen
//   Repaint       a table of which all states were painted before; what a run pays at its end
//   RunOfPaints   a run that paints after every stored state, from 2 to 600; time per paint
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "core/picture/space_time_raster.h"

namespace {

constexpr int States = 600;

struct Store {
    int N;
    std::vector<float> A;

    // A front that runs through a smooth flow, with a fine ripple.
    explicit Store(int n) : N(n), A(static_cast<std::size_t>((n + 2) * States)) {
        for (int j = 0; j < States; ++j) {
            for (int i = 0; i < n + 2; ++i) {
                const double x = static_cast<double>(i) / n;
                const double t = static_cast<double>(j) / States;
                const double smooth =
                    1.0 + 0.3 * std::sin(6.0 * (x - t)) + 1e-3 * std::sin(0.7 * i);
                const double front = x < 0.1 + 0.8 * t ? 0.8 : 0.0;
                A[static_cast<std::size_t>(j * (n + 2) + i)] = static_cast<float>(smooth + front);
            }
        }
    }
    SpaceTimeTable Table(int NS) const { return {A.data(), N, NS, N + 2, 1}; }
};

SpaceTimeRaster RasterOf(const benchmark::State& run) {
    return run.range(1) == 0 ? MakeSpaceTimeRaster(453, 193) : MakeSpaceTimeRaster(973, 441);
}

void Paint(const SpaceTimeTable& table, SpaceTimeRaster& raster) {
    double lo = 0.0;
    double hi = 0.0;
    DrawSpaceTime(table, lo, hi, raster.biWidth, raster.biHeight, raster);
    benchmark::DoNotOptimize(lo);
    benchmark::DoNotOptimize(raster.DibBits.data());
    benchmark::ClobberMemory();
}

void PlainRead(benchmark::State& run) {
    const Store store(static_cast<int>(run.range(0)));
    constexpr int lanes = 16;
    for (auto _ : run) {
        float largest[lanes] = {};
        for (int j = 1; j <= States; ++j) {
            const float* const cell = store.Table(States).State(j) + 1;
            for (int i = 0; i + lanes <= store.N; i += lanes) {
                for (int lane = 0; lane < lanes; ++lane) {
                    const float value = cell[i + lane];
                    largest[lane] = value > largest[lane] ? value : largest[lane];
                }
            }
        }
        benchmark::DoNotOptimize(largest);
    }
}

void FirstPaint(benchmark::State& run) {
    const Store store(static_cast<int>(run.range(0)));
    SpaceTimeRaster raster = RasterOf(run);
    SpaceTimeTable table = store.Table(States);
    for (auto _ : run) {
        ++table.Generation;
        Paint(table, raster);
    }
}

void Repaint(benchmark::State& run) {
    const Store store(static_cast<int>(run.range(0)));
    SpaceTimeRaster raster = RasterOf(run);
    for (auto _ : run) Paint(store.Table(States), raster);
}

void RunOfPaints(benchmark::State& run) {
    const Store store(static_cast<int>(run.range(0)));
    SpaceTimeRaster raster = RasterOf(run);
    int generation = 1;
    for (auto _ : run) {
        ++generation;
        for (int NS = 2; NS <= States; ++NS) {
            SpaceTimeTable table = store.Table(NS);
            table.Generation = generation;
            Paint(table, raster);
        }
    }
    run.counters["per_paint"] = benchmark::Counter(
        States - 1, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void Sizes(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"cells", "big"})->ArgsProduct({{400, 5001}, {0, 1}});
    bench->Unit(benchmark::kMicrosecond);
}

BENCHMARK(PlainRead)->ArgName("cells")->Arg(400)->Arg(5001)->Unit(benchmark::kMicrosecond);
BENCHMARK(FirstPaint)->Apply(Sizes);
BENCHMARK(Repaint)->Apply(Sizes);
BENCHMARK(RunOfPaints)->Apply(Sizes);

}  // namespace

BENCHMARK_MAIN();
