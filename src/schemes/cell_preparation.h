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
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float width = strip.Edges[i + 1] - strip.Edges[i];
        const Float z = Root(gamma * (strip.Rho[i] * strip.P[i]));
        const Float perBoth = Float(1) / (width * z);
        const Float perZ = perBoth * width;
        const Float ratio = timeStep * (perBoth * z);
        const Float c = gamma * (strip.P[i] * perZ);
        cells.StepPerWidth[i] = ratio;
        cells.StepPerMass[i] = ratio * (c * perZ);
        cells.SoundSpeed[i] = c;
        cells.Signal[i] = Size(strip.Ux[i]) + c;
        cells.Impedance[i] = z;
        cells.PerImpedance[i] = perZ;
    }
#pragma omp simd
    for (int i = 1; i <= n; ++i) scratch[i] = cells.Signal[i] * cells.StepPerWidth[i];
    return Largest(scratch.Origin(), 1, n);
}
