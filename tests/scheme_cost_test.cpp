// The operation counters against a float that counts.
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "counting_float.h"
#include "schemes/lagrangian_remap_step.h"
#include "schemes/predictor_corrector_step.h"
#include "schemes/traced_step.h"

namespace {

constexpr int B = NeighbourCells;

// What a step of one block of the given flow really costs, and what it says that it costs.
struct Cost {
    CellCost Real;
    std::array<int, 8> Said = {};
};

struct Sample {
    const char* Name;
    bool Quiet = false;
    bool Contacts = false;
    bool Transverse = false;
    bool Smoke = false;
    bool Supersonic = false;
    bool Strong = false;
    bool Shock = false;
    bool Failure = false;
    bool Steep = false;
    bool Cold = false;
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
    std::vector<CountingFloat> edges(length), rho(length), p(length), ux(length), uy(length),
        smoke(length);
    for (std::size_t i = 0; i < length; ++i) {
        const int cell = static_cast<int>(i) - B + 1;
        edges[i] = 0.01 * static_cast<double>(i);
        rho[i] = 1.0 + (sample.Contacts ? 0.5 * Stairs(cell) : 0.0);
        p[i] = 1.0 + (sample.Strong ? 0.1 * (cell & 1) : sample.Shock ? 9.0 * Stairs(cell) : 0.0);
        ux[i] = sample.Quiet ? 0.1 : (sample.Supersonic ? 3.0 : 0.1) + 1e-6 * cell;
        if (sample.Failure) ux[i] = 100.0 * Step(cell, 20) + 1e-6 * cell;
        if (sample.Steep) rho[i] = 1.0 + Roof(cell);
        if (sample.Steep) p[i] = 1.0 + 0.02 * Roof(cell);
        if (sample.Cold) p[i] = 1e-4;
        if (sample.Cold) ux[i] = 0.1 * Stairs(cell);
        if (sample.Shock) ux[i] = 0.005 * (100 - cell);
        uy[i] = sample.Transverse ? 0.001 * cell : 0.0;
        smoke[i] = sample.Smoke ? Stairs(cell) : 0.0;
    }
    std::vector<CountingFloat> results(5 * length);
    const std::size_t o = B - 1;
    const StripState<CountingFloat> strip = {&edges[o], &rho[o],   &p[o], &ux[o],
                                             &uy[o],    &smoke[o], cells};
    const StripResult<CountingFloat> result = {&results[o], &results[o + length],
                                               &results[o + 2 * length], &results[o + 3 * length],
                                               &results[o + 4 * length]};
    const StepConstants<CountingFloat> constants = {
        sample.Failure ? 2e-4 : 1e-5, 1.4, 1e-8, 1e-8, 1e-8, 1e-8, 0.3, 0.2, 1.0};
    Cost cost;
    const CellCost before = CountingFloat::Counted();
    advance(strip, constants, result, cost.Said.data());
    const CellCost after = CountingFloat::Counted();
    cost.Real = {after.Adds - before.Adds, after.Mults - before.Mults, after.Recips - before.Recips,
                 after.Selects - before.Selects, after.Roots - before.Roots};
    return cost;
}

// Loops run a few cells past both ends, so that the cost of a cell shows in the difference of two
// strips, whose lengths fill whole vectors.
void ExpectTruth(const char* step, Advance& advance, const Sample& sample) {
    constexpr int more = 32;
    const Cost small = CostOf(advance, sample, 64);
    const Cost large = CostOf(advance, sample, 64 + more);
    const int adds = (large.Real.Adds - small.Real.Adds) / more;
    const int mults = (large.Real.Mults - small.Real.Mults) / more;
    const int recips = (large.Real.Recips - small.Real.Recips) / more;
    const int selects = (large.Real.Selects - small.Real.Selects) / more;
    const int roots = (large.Real.Roots - small.Real.Roots) / more;
    const std::array<int, 8> real = {
        adds + mults + recips + roots, adds, mults, recips, selects, roots, 0, 0};
    for (std::size_t slot = 0; slot < real.size(); ++slot)
        EXPECT_EQ((large.Said[slot] - small.Said[slot]) / more, real[slot])
            << step << ", " << sample.Name << ", counter " << slot + 1;
}

TEST(SchemeCost, IsWhatTheCountersSay) {
    const Sample samples[] = {
        {.Name = "quiet", .Quiet = true},       {.Name = "plain"},
        {.Name = "contacts", .Contacts = true}, {.Name = "transverse", .Transverse = true},
        {.Name = "smoke", .Smoke = true},       {.Name = "supersonic", .Supersonic = true},
        {.Name = "strong", .Strong = true},     {.Name = "shock", .Shock = true},
        {.Name = "failure", .Failure = true},   {.Name = "steep", .Steep = true},
        {.Name = "cold", .Cold = true},
    };
    for (const Sample& sample : samples) {
        ExpectTruth("traced", AdvanceTraced, sample);
        ExpectTruth("Lagrangian", AdvanceLagrangian, sample);
        ExpectTruth("predictor and corrector", AdvancePredictorCorrector, sample);
    }
}

}  // namespace
