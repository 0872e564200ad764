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
    Row<Float> Jump, EdgeValue;
};

// What a step works on once it has its fluxes.
template <typename Float>
struct UpdateRows {
    NewState<Float> Next;
    CarriedRows<Float> Carried;
};

// The cells that a carried quantity can change in: where it is uniform it stays, to the bit.
struct VaryingCells {
    int First;
    int Last;  // below First if there are none
};

// Finds them among cells 0..n+1, three cells more on either side than differ.
template <typename Float>
VaryingCells FindVarying(const Float* a, int n) {
    VaryingCells varying = {n + 2, -1};
    for (int chunk = -2; chunk <= n + 3; chunk += CellsAtOnce) {
        if (!AnyInChunk<Float>(chunk, [&](int i) { return !(a[i] == a[i - 1]); })) continue;
        varying.First = std::min(varying.First, std::max(chunk - 4, 0));
        varying.Last = std::min(chunk + CellsAtOnce + 2, n + 1);
    }
    return varying;
}

// The value that the mass through edges first..last carries, from the part of the upstream cell's
// mass that leaves it during the step.
template <typename Float>
void TraceCarried(const Float* a, const CellRows<Float>& cells, const EdgeFluxes<Float>& fluxes,
                  CarriedRows<Float>& rows, int first, int last) {
    const Float zero = Bound<Float>::Zero;
    const Float one = Bound<Float>::One;
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float mass = fluxes.Mass[i];
        const Float shareL = Between(zero, mass * cells.StepPerMass[i - 1], one);
        const Float shareR = Between(zero, -mass * cells.StepPerMass[i], one);
        const Float fromLeft =
            a[i - 1] + RightPart(rows.Shape.FromLeft[i - 1], rows.Shape.ToRight[i - 1], shareL);
        const Float fromRight =
            a[i] + LeftPart(rows.Shape.FromLeft[i], rows.Shape.ToRight[i], shareR);
        rows.EdgeValue[i] = Choose(mass > Float(0), fromLeft, fromRight);
    }
}

// The same for upstream cells that hold a jump.
template <typename Float>
void SteepenCarried(const Float* a, const CellRows<Float>& cells, const EdgeFluxes<Float>& fluxes,
                    CarriedRows<Float>& rows, int first, int last) {
    const Float one = Bound<Float>::One;
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float mass = fluxes.Mass[i];
        const Float l2 = a[i - 2];
        const Float l1 = a[i - 1];
        const Float r1 = a[i];
        const Float r2 = a[i + 1];
        const Float jumpL = rows.Jump[i - 1];
        const Float jumpR = rows.Jump[i];
        const Float perMassL = cells.StepPerMass[i - 1];
        const Float perMassR = cells.StepPerMass[i];
        const bool fromLeft = mass > Float(0);
        const Float far = Choose(fromLeft, l2, r2);
        const Float here = Choose(fromLeft, l1, r1);
        const Float near = Choose(fromLeft, r1, l1);
        const Float jump = Choose(fromLeft, jumpL, jumpR);
        const Float share = Least(Size(mass) * Choose(fromLeft, perMassL, perMassR), one);
        const Float gain = here + PartOfJump(far, here, near, share) - rows.EdgeValue[i];
        rows.EdgeValue[i] = rows.EdgeValue[i] + jump * gain;
    }
}

// Cost of a cell where a carried quantity varies, where jumps are looked for, and where it has one.
constexpr CellCost CarriedCost = {30, 26, 1, 23, 0};
constexpr CellCost JumpSearchCost = {9, 1, 0, 3, 0};
constexpr CellCost CarriedJumpCost = {17, 4, 3, 14, 0};

// New values of cells 1..cells of the carried quantity a; what is conserved is its product with the
// density.
template <bool SteepensJumps, typename Float>
void UpdateCarried(const StripState<Float>& strip, const Float* a, const CellRows<Float>& cells,
                   const EdgeFluxes<Float>& fluxes, const Row<Float>& newRho,
                   CarriedRows<Float>& rows, Float* result, int* counters) {
    const int n = strip.Cells;
    std::copy_n(a + 1, n, result + 1);
    const VaryingCells varying = FindVarying(a, n);
    if (varying.Last < varying.First) return;
    const int first = varying.First;
    const int last = PaddedLast(first, varying.Last);
#pragma omp simd
    for (int i = first; i <= last; ++i)
        LimitedParabola(Differences<Float>{a[i - 1] - a[i - 2], a[i] - a[i - 1], a[i + 1] - a[i],
                                           a[i + 2] - a[i + 1]},
                        rows.Shape.FromLeft[i], rows.Shape.ToRight[i]);
    TraceCarried(a, cells, fluxes, rows, first, last);
    CountOperations(CarriedCost, std::min(last + 1 - first, n), counters);
    if constexpr (SteepensJumps) {
        CountOperations(JumpSearchCost, std::min(last + 1 - first, n), counters);
        const int jumping = FindJumps(a, rows.Jump, first, last);
        if (jumping > 0) SteepenCarried(a, cells, fluxes, rows, first, last);
        CountOperations(CarriedJumpCost, std::min(jumping, n), counters);
    }
    const int lastCell = std::min(varying.Last - 1, n);
#pragma omp simd
    for (int i = first + 1; i <= lastCell; ++i) {
        const Float in = fluxes.Mass[i] * (rows.EdgeValue[i] - a[i]);
        const Float out = fluxes.Mass[i + 1] * (rows.EdgeValue[i + 1] - a[i]);
        result[i] = a[i] + cells.StepPerWidth[i] * (in - out) / newRho[i];
    }
}
