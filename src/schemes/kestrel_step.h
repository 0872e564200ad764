// The full scheme, for both float types.
#pragma once

#include "schemes/conservative_update.h"
#include "schemes/interpolation.h"
#include "schemes/positivity.h"
#include "schemes/shock_detection.h"

template <typename Float>
struct KestrelRows {
    Row<Float> StepPerWidth, SoundSpeed, Steep, Raw, Edge;
    Parabolas<Float> Rho, P, Ux, Carried;
    EdgeStates<Float> States;
    EdgeFluxes<Float> Fluxes;
    NewState<Float> Next;
    Row<Float> Failed;
};

template <typename Float>
Float PrepareCells(const StripState<Float>& strip, const StepConstants<Float>& constants,
                   KestrelRows<Float>& rows) {
    const int last = strip.Cells + 4;
    for (int i = -3; i <= last; ++i) {
        rows.StepPerWidth[i] = constants.TimeStep / (strip.Edges[i + 1] - strip.Edges[i]);
        rows.SoundSpeed[i] = std::sqrt(constants.Gamma * strip.P[i] / strip.Rho[i]);
    }
    Float courant = 0;
    for (int i = 1; i <= strip.Cells; ++i)
        courant =
            std::max(courant, (std::abs(strip.Ux[i]) + rows.SoundSpeed[i]) * rows.StepPerWidth[i]);
    return courant;
}

template <typename Float>
void Interpolate(const Float* a, Parabolas<Float>& parabolas, KestrelRows<Float>& rows, int cells) {
    EdgeValues(a, rows.Edge.Origin(), -2, cells + 4);
    LimitedParabolas(a, rows.Edge.Origin(), rows.Steep.Origin(), parabolas.FromLeft.Origin(),
                     parabolas.ToRight.Origin(), -2, cells + 3);
}

// Brings rows.Next to the new density, pressure and velocity of cells 1..n.
template <typename Float>
void UpdateGas(const StripState<Float>& strip, const StepConstants<Float>& constants,
               KestrelRows<Float>& rows) {
    const int n = strip.Cells;
    UpdateCells(strip, rows.StepPerWidth, rows.Fluxes, constants.Gamma, rows.Next, -1, n + 2);
    // Twice, since a first-order edge can be the ruin of the cell on its other side.
    for (int pass = 0; pass < 2; ++pass) {
        if (!MarkFailures(strip, rows.Next, rows.Failed, pass - 1, n + 2 - pass)) return;
        UseFirstOrderFluxes(strip, rows.SoundSpeed, rows.Failed, constants.Gamma, rows.Fluxes, pass,
                            n + 2 - pass);
        UpdateCells(strip, rows.StepPerWidth, rows.Fluxes, constants.Gamma, rows.Next, pass,
                    n + 1 - pass);
    }
}

template <typename Float>
void UpdateCarriedBy(const StripState<Float>& strip, const Float* a, KestrelRows<Float>& rows,
                     Float* result) {
    const int n = strip.Cells;
    Interpolate(a, rows.Carried, rows, n);
    UpdateCarried(strip, a, rows.Carried, rows.StepPerWidth, rows.Fluxes, rows.Next.Rho, rows.Edge,
                  result, 1, n);
}

template <typename Float>
Float AdvanceKestrelBlock(const StripState<Float>& strip, const StepConstants<Float>& constants,
                          const StripResult<Float>& result, KestrelRows<Float>& rows) {
    const int n = strip.Cells;
    const Float courant = PrepareCells(strip, constants, rows);
    Flattening(strip.P, strip.Ux, constants.Shkjmp, rows.Raw.Origin(), rows.Steep.Origin(), -2,
               n + 3);
    Interpolate(strip.Rho, rows.Rho, rows, n);
    Interpolate(strip.P, rows.P, rows, n);
    Interpolate(strip.Ux, rows.Ux, rows, n);
    TraceStates(strip, rows.Rho, rows.P, rows.Ux, rows.SoundSpeed, rows.StepPerWidth, rows.States,
                -2, n + 3);
    SolveRiemannProblems(rows.States, constants.Gamma, rows.Fluxes, -1, n + 3);
    UpdateGas(strip, constants, rows);
    UpdateCarriedBy(strip, strip.Uy, rows, result.Uy);
    if (strip.Smoke) UpdateCarriedBy(strip, strip.Smoke, rows, result.Smoke);
    return std::max(courant, HandOver(strip, rows.Next, result));
}

// Advances the strip by one step and returns its Courant number.
template <typename Float>
Float AdvanceKestrel(const StripState<Float>& strip, const StepConstants<Float>& constants,
                     const StripResult<Float>& result) {
    KestrelRows<Float> rows;
    Float courant = 0;
    for (int offset = 0; offset < strip.Cells; offset += BlockCells<Float>) {
        const int cells = std::min(BlockCells<Float>, strip.Cells - offset);
        courant = std::max(courant, AdvanceKestrelBlock(Block(strip, offset, cells), constants,
                                                        Block(result, offset), rows));
    }
    return courant;
}
