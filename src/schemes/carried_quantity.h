// Quantities that the gas carries: its velocity across the grid, and the smoke.
#pragma once

#include <algorithm>

#include "schemes/conservative_update.h"
#include "schemes/jump_steepening.h"
#include "schemes/operation_counts.h"

// Scratch of one quantity at a time.
template <typename Float>
struct CarriedRows {
    Parabolas<Float> Shape;
    Row<Float> JumpExcess, EdgeValue;
};

// What a step works on once it has its fluxes.
template <typename Float>
struct UpdateRows {
    NewState<Float> Next;
    CarriedRows<Float> Carried;
};

// The cells 0..n+1 in which a carried quantity can change: four cells on either side of a
// difference. Where it is uniform it stays the same to the bit.
template <typename Float>
CellRange FindVarying(const Float* a, int n) {
    const auto differs = [=](int i) { return !(a[i] == a[i - 1]); };
    const CellRange chunks = ChunksWhere<Float>(-2, n + 3, differs);
    if (chunks.Count() == 0) return {n + 2, -1};
    return {std::max(chunks.First - 4, 0), std::min(chunks.Last + 3, n + 1)};
}

// Shapes cells first..last, a whole number of chunks: their parabolas, and where jumps are to be
// steepened how far they hold one instead, both from the same differences.
template <bool SteepensJumps, typename Float>
void ShapeCarried(const Float* a, CarriedRows<Float>& rows, int first, int last) {
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Differences<Float> d = {a[i - 1] - a[i - 2], a[i] - a[i - 1], a[i + 1] - a[i],
                                      a[i + 2] - a[i + 1]};
        if constexpr (SteepensJumps) rows.JumpExcess[i] = Jump<Float>(d).Excess;
        LimitedParabola(d, rows.Shape.FromLeft[i], rows.Shape.ToRight[i]);
    }
}

// The value that the mass through edge i carries, from the part of the upstream cell's mass that
// leaves it during the step.
template <typename Float>
[[gnu::always_inline]] inline Float TraceCarried(const Float* a, const CellRows<Float>& cells,
                                                 const CarriedRows<Float>& rows, Float mass,
                                                 int i) {
    const Float shareL = Clamp01(mass * cells.StepPerMass[i - 1]);
    const Float shareR = Clamp01(-mass * cells.StepPerMass[i]);
    const Float fromLeft =
        a[i - 1] + RightPart(rows.Shape.FromLeft[i - 1], rows.Shape.ToRight[i - 1], shareL);
    const Float fromRight = a[i] + LeftPart(rows.Shape.FromLeft[i], rows.Shape.ToRight[i], shareR);
    return Select(mass > Float(0), fromLeft, fromRight);
}

// The same, given that value, for an upstream cell that may hold a jump.
template <typename Float>
[[gnu::always_inline]] inline Float SteepenCarried(const Float* a, const CellRows<Float>& cells,
                                                   const CarriedRows<Float>& rows, Float mass,
                                                   Float traced, int i) {
    const Float l2 = a[i - 2];
    const Float l1 = a[i - 1];
    const Float r1 = a[i];
    const Float r2 = a[i + 1];
    const Float excessL = rows.JumpExcess[i - 1];
    const Float excessR = rows.JumpExcess[i];
    const Float perMassL = cells.StepPerMass[i - 1];
    const Float perMassR = cells.StepPerMass[i];
    const bool fromLeft = mass > Float(0);
    const Float far = Select(fromLeft, l2, r2);
    const Float here = Select(fromLeft, l1, r1);
    const Float near = Select(fromLeft, r1, l1);
    const Float excess = Select(fromLeft, excessL, excessR);
    const Float jump = excess / Divisor(Abs((here - far) + (near - here)));
    const Float share = Min(Abs(mass) * Select(fromLeft, perMassL, perMassR), Opaque(Float(1)));
    return traced + jump * (here + PartOfJump(far, here, near, share) - traced);
}

// Fills the values at edges first..last, a whole number of chunks.
template <bool SteepensJumps, typename Float>
[[gnu::flatten]] void CarryThroughEdges(const Float* a, const CellRows<Float>& cells,
                                        const EdgeFluxes<Float>& fluxes, CarriedRows<Float>& rows,
                                        int first, int last, WorkDone& work) {
    const auto trace = [&](int i) {
        rows.EdgeValue[i] = TraceCarried(a, cells, rows, fluxes.Mass[i], i);
    };
    if constexpr (SteepensJumps) {
        const auto touchesJump = [&](int i) {
            return Max(rows.JumpExcess[i - 1], rows.JumpExcess[i]) > Float(0);
        };
        const auto steepen = [&](int i) {
            const Float mass = fluxes.Mass[i];
            const Float traced = TraceCarried(a, cells, rows, mass, i);
            rows.EdgeValue[i] = SteepenCarried(a, cells, rows, mass, traced, i);
        };
        work.Add(Work::CarriedJump,
                 RunWhereNeeded<Float>(first, last, touchesJump, steepen, trace));
    } else {
        ForEachChunk(first, last, [&](int chunk) {
            RunChunk(chunk, trace);
            return 0;
        });
    }
}

// New values of cells 1..cells of the carried quantity a; what is conserved is its product with the
// density.
template <bool SteepensJumps, typename Float>
void UpdateCarried(const StripState<Float>& strip, const Float* a, const CellRows<Float>& cells,
                   const EdgeFluxes<Float>& fluxes, const Row<Float>& newRho,
                   CarriedRows<Float>& rows, Float* result, WorkDone& work) {
    const int n = strip.Cells;
    std::copy_n(a + 1, n, result + 1);
    const CellRange varying = FindVarying(a, n);
    if (varying.Count() == 0) return;
    const int first = varying.First;
    const int last = PaddedLast(first, varying.Last);
    work.Add(Work::Carried, last + 1 - first);
    if (SteepensJumps) work.Add(Work::JumpSearch, last + 1 - first);
    ShapeCarried<SteepensJumps>(a, rows, first, last);
    rows.JumpExcess[first - 1] = Float(0);  // beyond what varies
    CarryThroughEdges<SteepensJumps>(a, cells, fluxes, rows, first, last, work);
    const int lastCell = std::min(varying.Last - 1, n);
#pragma omp simd
    for (int i = first + 1; i <= lastCell; ++i) {
        const Float in = fluxes.Mass[i] * (rows.EdgeValue[i] - a[i]);
        const Float out = fluxes.Mass[i + 1] * (rows.EdgeValue[i + 1] - a[i]);
        result[i] = a[i] + cells.StepPerWidth[i] * (in - out) / newRho[i];
    }
}

// The same for both quantities, with jumps steepened.
template <typename Float>
void UpdateBothCarried(const StripState<Float>& strip, const CellRows<Float>& cells,
                       const EdgeFluxes<Float>& fluxes, UpdateRows<Float>& after,
                       const StripResult<Float>& result, WorkDone& work) {
    UpdateCarried<true>(strip, strip.Uy, cells, fluxes, after.Next.Rho, after.Carried, result.Uy,
                        work);
    UpdateCarried<true>(strip, strip.Smoke, cells, fluxes, after.Next.Rho, after.Carried,
                        result.Smoke, work);
}
