// The predictor of the two-stage step: what each cell holds at its edges, in the mean over the time
// step, from the equations of motion inside the cell alone.
#pragma once

#include "schemes/cell_preparation.h"
#include "schemes/characteristic_tracing.h"
#include "schemes/primitive_parabolas.h"

// The share of a cell's density and pressure that its edge values keep at least. Found by trial.
template <typename Float>
constexpr Float LeastAtEdge = Float(0.05);

// Fills what this step reads of the rows for cells first..last (StepPerWidth, StepPerMass, Signal)
// and returns the Courant number of cells 1..n.
template <typename Float>
Float PrepareSignals(StripState<Float> strip, Float timeStep, Float gamma, CellRows<Float>& cells,
                     int first, int last) {
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float width = strip.Edges[i + 1] - strip.Edges[i];
        const Float perBoth = Float(1) / (width * strip.Rho[i]);
        cells.StepPerWidth[i] = timeStep * (perBoth * strip.Rho[i]);
        cells.StepPerMass[i] = timeStep * perBoth;
        cells.Signal[i] = Abs(strip.Ux[i]) + Sqrt(gamma * (strip.P[i] * (perBoth * width)));
    }
    return CourantNumber(cells, strip.Cells);
}

// Changes across a cell, or of a cell during a step.
template <typename Float>
struct Changes {
    Float Rho, Ux, P;
};

// The matrix of the equations of motion in density, velocity and pressure, times the step over the
// width of the cell.
template <typename Float>
struct Motion {
    Float Drift;      // from the velocity
    Float Density;    // from the density
    Float PerMass;    // step over mass
    Float Stiffness;  // from the pressure times gamma
};
template <typename Float>
[[gnu::always_inline]] inline Changes<Float> Apply(const Motion<Float>& motion,
                                                   const Changes<Float>& across) {
    return {motion.Drift * across.Rho + motion.Density * across.Ux,
            motion.Drift * across.Ux + motion.PerMass * across.P,
            motion.Drift * across.P + motion.Stiffness * across.Ux};
}

// The parabolas of the three quantities in the making.
template <typename Float>
struct PredictorRows {
    RoughParabolas<Float> Rho, Ux, P;
};

// States at the edges of cells first..last, the mean over the step: the right faces give the left
// states of edges first+1..last+1, the left faces the right states of edges first..last. With M the
// matrix of motion, the parabola at its faces is, from the Taylor series of q(x - M t),
//     q + above + M (bend - above - M bend)    on the right, with bend = below - above,
//     q - below - M (bend + below + M bend)    on the left,
// below and above being its rises on either side of the average. For one kind of wave this is just
// the average over the part of the cell that the wave sweeps. Edge values keep at least LeastAtEdge
// of the cell's density and pressure.
template <typename Float>
void PredictEdgeStates(StripState<Float> strip, const CellRows<Float>& cells, Float gamma,
                       const PredictorRows<Float>& rows, EdgeStates<Float>& states, int first,
                       int last) {
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float rho = strip.Rho[i];
        const Float u = strip.Ux[i];
        const Float p = strip.P[i];
        const Float ratio = cells.StepPerWidth[i];

        Changes<Float> below, above;
        ParabolaOf(rows.Rho, i, below.Rho, above.Rho);
        ParabolaOf(rows.Ux, i, below.Ux, above.Ux);
        ParabolaOf(rows.P, i, below.P, above.P);

        const Motion<Float> motion = {ratio * u, ratio * rho, cells.StepPerMass[i],
                                      ratio * (gamma * p)};
        const Changes<Float> bend = {below.Rho - above.Rho, below.Ux - above.Ux, below.P - above.P};
        const Changes<Float> bent = Apply(motion, bend);
        const Changes<Float> rightGain =
            Apply(motion, {(bend.Rho - above.Rho) - bent.Rho, (bend.Ux - above.Ux) - bent.Ux,
                           (bend.P - above.P) - bent.P});
        const Changes<Float> leftLoss =
            Apply(motion, {(bend.Rho + below.Rho) + bent.Rho, (bend.Ux + below.Ux) + bent.Ux,
                           (bend.P + below.P) + bent.P});
        states.RhoLeft[i + 1] = Max(rho + (above.Rho + rightGain.Rho), LeastAtEdge<Float> * rho);
        states.UxLeft[i + 1] = u + (above.Ux + rightGain.Ux);
        states.PLeft[i + 1] = Max(p + (above.P + rightGain.P), LeastAtEdge<Float> * p);
        states.RhoRight[i] = Max(rho - (below.Rho + leftLoss.Rho), LeastAtEdge<Float> * rho);
        states.UxRight[i] = u - (below.Ux + leftLoss.Ux);
        states.PRight[i] = Max(p - (below.P + leftLoss.P), LeastAtEdge<Float> * p);
    }
}
