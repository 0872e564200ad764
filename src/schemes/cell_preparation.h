// What all kernels need to know about each cell.
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

// The Courant number of cells 1..n; the largest finite float if any cell's is NaN. The order of the
// comparisons does not show in the result.
template <typename Float>
Float CourantNumber(const CellRows<Float>& cells, int n) {
    Float largest = Float(0);
#pragma omp simd reduction(max : largest)
    for (int i = 1; i <= n; ++i) {
        const Float courant = cells.Signal[i] * cells.StepPerWidth[i];
        largest = Max(largest, Min(courant, Opaque(LargestFinite<Float>)));
    }
    return largest;
}

// Fills the rows for cells first..last and returns the Courant number of cells 1..n.
template <typename Float>
Float PrepareCells(StripState<Float> strip, Float timeStep, Float gamma, CellRows<Float>& cells,
                   int first, int last) {
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float width = strip.Edges[i + 1] - strip.Edges[i];
        const Float z = Sqrt(gamma * (strip.Rho[i] * strip.P[i]));
        const Float perBoth = Float(1) / (width * z);
        const Float perZ = perBoth * width;
        const Float ratio = timeStep * (perBoth * z);
        const Float c = gamma * (strip.P[i] * perZ);
        cells.StepPerWidth[i] = ratio;
        cells.StepPerMass[i] = ratio * (c * perZ);
        cells.SoundSpeed[i] = c;
        cells.Signal[i] = Abs(strip.Ux[i]) + c;
        cells.Impedance[i] = z;
        cells.PerImpedance[i] = perZ;
    }
    return CourantNumber(cells, strip.Cells);
}
