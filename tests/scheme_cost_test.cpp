// The operation counters against a float that counts.
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "counting_float.h"
#include "schemes/entry_adapter.h"
#include "schemes/lagrangian_remap_step.h"
#include "schemes/predictor_corrector_step.h"
#include "schemes/traced_step.h"

namespace {

constexpr int B = NeighbourCells;

// What a step of one block of the given flow really costs, and what it says that it costs, in the
// order of the counters.
struct Cost {
    std::array<int, 8> Real = {};
    std::array<int, 8> Said = {};
};

// A cell of a flow: gas at rest but for a slight stretching, unless a sample makes something of it.
struct Cell {
    double Rho = 1.0;
    double P = 1.0;
    double Ux = 0.1;
    double Uy = 0.0;
    double Smoke = 0.0;
};

struct Sample {
    const char* Name;
    void (*Change)(int cell, Cell& flow);
    double TimeStep = 1e-5;
    double Widening = 0.0;  // of every other cell
};

// A step with one cell between its two values.
double Step(int cell, int length) {
    return cell > length ? 1.0 : cell == length ? 0.5 : 0.0;
}

// Three cells of 0, three of 1, and one between them, over and over: every chunk holds a jump.
double Stairs(int cell) {
    const int place = (cell + 800) % 8;
    return place < 3 ? 0.0 : place == 3 || place == 7 ? 0.5 : 1.0;
}

// Four cells of a slope up and down, none of which is a jump of density at even pressure.
double Roof(int cell) {
    constexpr std::array<double, 4> values = {0.0, 0.2, 0.4, 0.2};
    return values[static_cast<std::size_t>((cell + 800) % 4)];
}

using Advance = CountingFloat(const StripState<CountingFloat>&, const StepConstants<CountingFloat>&,
                              const StripResult<CountingFloat>&, int*);

Cost CostOf(Advance& advance, const Sample& sample, int cells) {
    const auto length = static_cast<std::size_t>(cells + 2 * B + 1);
    std::array<std::vector<CountingFloat>, 11> arrays;
    arrays.fill(std::vector<CountingFloat>(length));
    auto& [edges, rho, p, ux, uy, smoke, newRho, newP, newUx, newUy, newSmoke] = arrays;
    for (std::size_t i = 0; i < length; ++i) {
        const int number = static_cast<int>(i) - B + 1;
        Cell cell;
        cell.Ux += 1e-6 * number;
        sample.Change(number, cell);
        edges[i] = 0.01 * (static_cast<double>(i) + sample.Widening * static_cast<double>(i / 2));
        rho[i] = cell.Rho;
        p[i] = cell.P;
        ux[i] = cell.Ux;
        uy[i] = cell.Uy;
        smoke[i] = cell.Smoke;
    }
    const auto strip =
        StripAt(edges.data(), rho.data(), p.data(), ux.data(), uy.data(), smoke.data(), cells, B);
    const auto result =
        ResultAt(newRho.data(), newP.data(), newUx.data(), newUy.data(), newSmoke.data(), B);
    const StepConstants<CountingFloat> constants = {
        sample.TimeStep, 1.4, 1e-8, 1e-8, 1e-8, 1e-8, 0.3, 0.2, 1.0};
    Cost cost;
    CellCost& real = CountingFloat::Counted();
    real = {};
    advance(strip, constants, result, cost.Said.data());
    cost.Real = {real.Adds + real.Mults + real.Recips + real.Roots,
                 real.Adds,
                 real.Mults,
                 real.Recips,
                 real.Selects,
                 real.Roots};
    return cost;
}

// Loops run a few cells past both ends, so that the cost of a cell shows in the difference of two
// strips, whose lengths fill whole vectors.
void ExpectTruth(const char* step, Advance& advance, const Sample& sample) {
    constexpr int more = 32;
    const Cost small = CostOf(advance, sample, 64);
    const Cost large = CostOf(advance, sample, 64 + more);
    for (std::size_t slot = 0; slot < small.Real.size(); ++slot)
        EXPECT_EQ((large.Said[slot] - small.Said[slot]) / more,
                  (large.Real[slot] - small.Real[slot]) / more)
            << step << ", " << sample.Name << ", counter " << slot + 1;
}

TEST(SchemeCost, IsWhatTheCountersSay) {
    // clang-format off
    const Sample samples[] = {
        {"quiet",      [](int, Cell& flow) { flow.Ux = 0.1; }},
        {"plain",      [](int, Cell&) {}},
        {"contacts",   [](int cell, Cell& flow) { flow.Rho = 1.0 + 0.5 * Stairs(cell); }},
        {"transverse", [](int cell, Cell& flow) { flow.Uy = 0.001 * cell; }},
        {"smoke",      [](int cell, Cell& flow) { flow.Smoke = Stairs(cell); }},
        {"supersonic", [](int cell, Cell& flow) { flow.Ux = 3.0 + 1e-6 * cell; }},
        {"strong",     [](int cell, Cell& flow) { flow.P = 1.0 + 0.1 * (cell & 1); }},
        {"shock",      [](int cell, Cell& flow) { flow = {.P = 1.0 + 9.0 * Stairs(cell),
                                                          .Ux = 0.005 * (100 - cell)}; }},
        {"slow shock", [](int cell, Cell& flow) { flow = {.P = 1.0 + 9.0 * Stairs(cell),
                                                          .Ux = 3.0 - 3.0 * Stairs(cell)}; }},
        {"failure",    [](int cell, Cell& flow) { flow.Ux = 100.0 * Step(cell, 20) + 1e-6 * cell; },
                       2e-4},
        {"steep",      [](int cell, Cell& flow) { flow.Rho = 1.0 + Roof(cell);
                                                  flow.P = 1.0 + 0.02 * Roof(cell); }},
        {"uneven",     [](int, Cell&) {}, 1e-5, 0.5},
        {"cold",       [](int cell, Cell& flow) { flow = {.P = 1e-4, .Ux = 0.1 * Stairs(cell)}; }},
    };
    // clang-format on
    for (const Sample& sample : samples) {
        ExpectTruth("traced", AdvanceTraced, sample);
        ExpectTruth("Lagrangian", AdvanceLagrangian, sample);
        ExpectTruth("predictor and corrector", AdvancePredictorCorrector, sample);
    }
}

}  // namespace
