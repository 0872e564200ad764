// The step of the full scheme: characteristic tracing of limited parabolas, with care for shocks
// and contacts, a Riemann problem at every edge, and a conservative update.
#pragma once

#include "schemes/carried_quantity.h"
#include "schemes/cell_preparation.h"
#include "schemes/gas_update.h"
#include "schemes/operation_counts.h"
#include "schemes/ripple_damping.h"
#include "schemes/shock_flattening.h"

namespace traced {

// Scratch rows of one block: 40 or 48 kilobytes, about what a first-level cache holds.
template <typename Float>
struct StepRows {
    InputRows<Float> Inputs;
    CellRows<Float> Cells;
    Row<Float> Failed;
    EdgeStates<Float> States;
    EdgeFluxes<Float> Fluxes;
    union {
        CharacteristicParabolas<Float> Parabolas;  // until the states are traced
        UpdateRows<Float> After;
    };

    StepRows() {}
};

// The first cell whose edge states are needed: the new state of cell 1's neighbours decides whether
// its fluxes have to be mended.
constexpr int FirstTraced = -2;

// Steps 1 to 4: states beside the edges -1..last+1 from the cells around them.
template <typename Float>
void Reconstruct(const StripState<Float>& strip, const StepConstants<Float>& constants,
                 StepRows<Float>& rows, int last, WorkDone& work) {
    const int first = FirstTraced;
    // 1. Characteristic parabolas.
    InterpolateCharacteristics(strip, rows.Cells, rows.Parabolas, first, last, work);
    // 2. Flattening.
    FlattenShocks(strip, rows.Cells.Signal.Origin(), constants.Shkjmp,
                  FlatteningStrength(constants.Difcon), rows.Failed, rows.Parabolas, first, last,
                  work);
    // 3. Tracing.
    TraceStates(strip, rows.Cells, rows.Parabolas, rows.States, first, last, work);
    // 4. Jumps of the density.
    SteepenContacts(strip, rows.Cells, rows.States, first, last, work);
    CloseEdge(rows.States, last + 1);
    work.Add(Work::ShockSearch, strip.Cells);
    work.Add(Work::ContactSearch, strip.Cells);
}

template <typename Float>
Float AdvanceBlock(const StripState<Float>& input, const StepConstants<Float>& constants,
                   const StripResult<Float>& result, StepRows<Float>& rows, WorkDone& work) {
    const StripState<Float> strip = CopyStrip(input, rows.Inputs);
    const int n = strip.Cells;
    const int lastCell = PaddedLast(FirstTraced, n + 3);
    const int lastEdge = lastCell + 1;
    const Float courant = PrepareCells(strip, constants.TimeStep, constants.Gamma, rows.Cells,
                                       FirstTraced - 2, lastCell + 2);
    work.Add(Work::Preparation, n);
    bool mended = false;
    if (IsQuiet(strip, work)) {
        KeepGas(strip, rows.Fluxes, rows.After.Next);
        work.Add(Work::Quiet, n);
    } else {
        Reconstruct(strip, constants, rows, lastCell, work);
        // 5. Riemann problem.
        SolveRiemannProblems(strip, rows.Cells, rows.States, constants.Gamma, rows.Fluxes, -1,
                             lastEdge, work);
        // 6. Ripple damping.
        DampRipples(strip, rows.Cells, RippleDamping(constants.Wavhaf), rows.Fluxes, -1, lastEdge);
        // 7. Update, and 8. positivity.
        mended = UpdateGas(strip, rows.Cells, constants.Gamma, rows.Fluxes, rows.After.Next,
                           rows.Failed, work);
        work.Add(Work::Gas, n);
    }
    UpdateBothCarried(strip, rows.Cells, rows.Fluxes, rows.After, result, work);
    return Max(courant, HandOver(strip, rows.After.Next, mended, rows.Failed, result, work));
}

}  // namespace traced

// Advances the strip by one step and returns its Courant number. The steps are numbered as in
// docs/schemes.md.
template <typename Float>
Float AdvanceTraced(const StripState<Float>& strip, const StepConstants<Float>& constants,
                    const StripResult<Float>& result, int* counters) {
    traced::StepRows<Float> rows;
    const auto advance = [&](const StripState<Float>& block, const StripResult<Float>& blockResult,
                             WorkDone& work) {
        return traced::AdvanceBlock(block, constants, blockResult, rows, work);
    };
    return AdvanceInBlocks(strip, result, TracedCosts, counters, advance);
}
