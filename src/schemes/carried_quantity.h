// Quantities that the gas carries: its velocity across the grid, and the smoke.
#pragma once

#include "schemes/conservative_update.h"
#include "schemes/jump_steepening.h"

// Scratch of one quantity at a time.
template <typename Float>
struct CarriedRows {
    Row<Float> FromLeft, ToRight, Jump, EdgeValue, StepPerMass;
};

// Whether cells first..last of a hold one value: it then stays, to the bit.
template <typename Float>
bool IsUniform(const Float* __restrict a, int first, int last) {
    Float most = Float(0);
    for (int i = first; i <= last; ++i) most = Most(most, Size(a[i] - a[first]));
    return most == Float(0);
}

// The value that the mass through edges first..last carries, from the part of the upstream cell's
// mass that leaves it during the step.
template <typename Float>
void TraceCarried(const Float* __restrict a, const EdgeFluxes<Float>& fluxes,
                  CarriedRows<Float>& rows, int first, int last) {
    const Float one = Float(1);
    for (int i = first; i <= last; ++i) {
        const Float mass = fluxes.Mass[i];
        const Float shareL = Between(Float(0), mass * rows.StepPerMass[i - 1], one);
        const Float shareR = Between(Float(0), -mass * rows.StepPerMass[i], one);
        const Parabola<Float> left = {rows.FromLeft[i - 1], rows.ToRight[i - 1]};
        const Parabola<Float> right = {rows.FromLeft[i], rows.ToRight[i]};
        rows.EdgeValue[i] = Choose(mass > Float(0), a[i - 1] + RightPart(left, shareL),
                                   a[i] + LeftPart(right, shareR));
    }
}

// The same for upstream cells that hold a jump.
template <typename Float>
void SteepenCarried(const Float* __restrict a, const EdgeFluxes<Float>& fluxes,
                    CarriedRows<Float>& rows, int first, int last) {
    const Float one = Float(1);
    for (int i = first; i <= last; ++i) {
        const Float mass = fluxes.Mass[i];
        const bool fromLeft = mass > Float(0);
        const Float far = Choose(fromLeft, a[i - 2], a[i + 1]);
        const Float here = Choose(fromLeft, a[i - 1], a[i]);
        const Float near = Choose(fromLeft, a[i], a[i - 1]);
        const Float jump = Choose(fromLeft, rows.Jump[i - 1], rows.Jump[i]);
        const Float perMass = Choose(fromLeft, rows.StepPerMass[i - 1], rows.StepPerMass[i]);
        const Float share = Least(Size(mass) * perMass, one);
        const Float gain = here + PartOfJump(far, here, near, share) - rows.EdgeValue[i];
        rows.EdgeValue[i] = rows.EdgeValue[i] + jump * gain;
    }
}

// New values of cells 1..cells of the carried quantity a; what is conserved is its product with the
// density.
template <typename Float>
void UpdateCarried(const StripState<Float>& strip, const Float* __restrict a,
                   const Row<Float>& stepPerWidth, const EdgeFluxes<Float>& fluxes,
                   const Row<Float>& newRho, CarriedRows<Float>& rows, Float* __restrict result) {
    const int n = strip.Cells;
    if (IsUniform(a, -1, n + 2)) {
        for (int i = 1; i <= n; ++i) result[i] = a[i];
        return;
    }
    for (int i = 0; i <= n + 1; ++i) {
        rows.StepPerMass[i] = stepPerWidth[i] / strip.Rho[i];
        const Parabola<Float> parabola = LimitedParabola(a[i - 1] - a[i - 2], a[i] - a[i - 1],
                                                         a[i + 1] - a[i], a[i + 2] - a[i + 1]);
        rows.FromLeft[i] = parabola.FromLeft;
        rows.ToRight[i] = parabola.ToRight;
    }
    TraceCarried(a, fluxes, rows, 1, n + 1);
    if (FindJumps(a, rows.Jump, 0, n + 1)) SteepenCarried(a, fluxes, rows, 1, n + 1);
    for (int i = 1; i <= n; ++i) {
        const Float in = fluxes.Mass[i] * (rows.EdgeValue[i] - a[i]);
        const Float out = fluxes.Mass[i + 1] * (rows.EdgeValue[i + 1] - a[i]);
        result[i] = a[i] + stepPerWidth[i] * (in - out) / newRho[i];
    }
}
