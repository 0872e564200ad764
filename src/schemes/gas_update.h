// From the fluxes to the new state of a block, mended where the scheme asks for too much.
#pragma once

#include <algorithm>

#include "schemes/positivity.h"

// Whether the gas of a block is the same in every cell, neighbours included. It then stays as it
// is, to the bit.
template <typename Float>
bool IsQuiet(StripState<Float> strip, WorkDone& work) {
    const int n = strip.Cells;
    const Float* rho = strip.Rho;
    const Float* p = strip.P;
    const Float* u = strip.Ux;
    const auto differs = [=](int i) {
        const Float waves = Max(Abs(p[i] - p[i - 1]), Abs(u[i] - u[i - 1]));
        return Max(waves, Abs(rho[i] - rho[i - 1])) > Float(0);
    };
    const int first = 2 - NeighbourCells;
    const int last = n + NeighbourCells;
    const int found = FirstChunkWhere<Float>(first, last, differs);
    work.Add(Work::QuietSearch, found + CellsAtOnce - first);
    return found > last;
}

// The outcome of a step for a quiet block, and the mass that passes through its edges 0..n+2.
template <typename Float>
void KeepGas(const StripState<Float>& strip, EdgeFluxes<Float>& fluxes, NewState<Float>& next) {
    const int n = strip.Cells;
    std::copy_n(strip.Rho + 1, n, &next.Rho[1]);
    std::copy_n(strip.P + 1, n, &next.P[1]);
    std::copy_n(strip.Ux + 1, n, &next.Ux[1]);
    for (int i = 0; i <= n + 2; ++i) fluxes.Mass[i] = strip.Rho[i] * strip.Ux[i];
}

// Brings `next` to the new density, pressure and velocity of cells 1..n. Returns whether failures
// had to be mended: twice at most, since a first-order edge can be the ruin of the cell on its
// other side.
//   failed   scratch
template <typename Float>
bool UpdateGas(const StripState<Float>& strip, const CellRows<Float>& cells, Float gamma,
               EdgeFluxes<Float>& fluxes, NewState<Float>& next, Row<Float>& failed,
               WorkDone& work) {
    const int n = strip.Cells;
    UpdateCells(strip, cells, fluxes, gamma, next, -1, PaddedLast(-1, n + 2));
    for (int pass = 0; pass < 2; ++pass) {
        if (!MarkFailures(strip, next, failed, pass - 1, n + 2 - pass, work)) return pass > 0;
        work.Add(Work::Mending, n);
        UseFirstOrderFluxes(strip, cells, failed, gamma, fluxes, pass, n + 2 - pass);
        UpdateCells(strip, cells, fluxes, gamma, next, pass, n + 1 - pass);
    }
    return true;
}
