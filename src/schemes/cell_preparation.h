// What all kernels need to know of each cell.
#pragma once

#include "schemes/arithmetic.h"
#include "schemes/strip.h"

template <typename Float>
struct CellRows {
    Row<Float> StepPerWidth;
    Row<Float> StepPerMass;  // step over mass: the share of the cell that a mass flux takes
    Row<Float> SoundSpeed;
    Row<Float> Signal;     // speed of the fastest signal
    Row<Float> Impedance;  // density times sound speed
    Row<Float> PerImpedance;
};

// Fills the rows for cells first..last and returns the Courant number of cells 1..n.
//   scratch   cells 1..n
template <typename Float>
Float PrepareCells(StripState<Float> strip, Float timeStep, Float gamma, Row<Float>& scratch,
                   CellRows<Float>& cells, int first, int last) {
    const int n = strip.Cells;
    const Float perGamma = Float(1) / gamma;
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float width = strip.Edges[i + 1] - strip.Edges[i];
        const Float both = strip.Rho[i] * strip.P[i];
        const Float perAll = Float(1) / (width * both);
        const Float ratio = timeStep * (perAll * both);
        const Float perBoth = perAll * width;
        const Float perRho = perBoth * strip.P[i];
        const Float c = Root(gamma * (strip.P[i] * perRho));
        cells.StepPerWidth[i] = ratio;
        cells.StepPerMass[i] = ratio * perRho;
        cells.SoundSpeed[i] = c;
        cells.Signal[i] = Size(strip.Ux[i]) + c;
        cells.Impedance[i] = strip.Rho[i] * c;
        cells.PerImpedance[i] = perGamma * (c * (perBoth * strip.Rho[i]));
    }
#pragma omp simd
    for (int i = 1; i <= n; ++i) scratch[i] = cells.Signal[i] * cells.StepPerWidth[i];
    return Largest(scratch.Origin(), 1, n);
}
