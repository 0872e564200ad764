// From the fluxes to the new state of a block, mended where the scheme asks for too much.
#pragma once

#include "schemes/operation_counts.h"
#include "schemes/positivity.h"

// Cost of a cell where failures have to be mended, and where they are looked for once more.
constexpr CellCost MendingCost = {33, 26, 3, 5, 0};
constexpr CellCost SecondLookCost = {0, 2, 0, 6, 0};

// Brings `next` to the new density, pressure and velocity of cells 1..n. Returns whether failures
// had to be mended: twice at most, since a first-order edge can be the ruin of the cell on its
// other side.
//   failed   scratch
template <typename Float>
bool UpdateGas(const StripState<Float>& strip, const CellRows<Float>& cells, Float gamma,
               EdgeFluxes<Float>& fluxes, NewState<Float>& next, Row<Float>& failed,
               int* counters) {
    const int n = strip.Cells;
    UpdateCells(strip, cells, fluxes, gamma, next, -1, PaddedLast(-1, n + 2));
    for (int pass = 0; pass < 2; ++pass) {
        if (pass > 0) CountOperations(SecondLookCost, n, counters);
        if (!MarkFailures(strip, next, failed, pass - 1, n + 2 - pass)) return pass > 0;
        CountOperations(MendingCost, n, counters);
        UseFirstOrderFluxes(strip, cells, failed, gamma, fluxes, pass, n + 2 - pass);
        UpdateCells(strip, cells, fluxes, gamma, next, pass, n + 1 - pass);
    }
    CountOperations(SecondLookCost, n, counters);
    return true;
}
