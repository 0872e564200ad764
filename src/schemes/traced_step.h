// The step of the full scheme: characteristic tracing of limited parabolas, with care for shocks
// and contacts, a Riemann problem at every edge, and a conservative update.
#pragma once

#include "schemes/carried_quantity.h"
#include "schemes/cell_preparation.h"
#include "schemes/gas_update.h"
#include "schemes/operation_counts.h"
#include "schemes/ripple_damping.h"
#include "schemes/shock_flattening.h"

// Cost of a cell in what every step does, in what is done unless the block is quiet, and in what is
// done only for the chunks that need it: where there is a shock, a slow one, where the gas is
// faster than sound, where there may be a contact and where there is one, and where an edge is not
// weak.
constexpr CellCost PreparationCost = {2, 11, 1, 2, 1};
constexpr CellCost GasCost = {157, 145, 2, 75, 0};
constexpr CellCost ShockSearchCost = {3, 1, 0, 2, 0};
constexpr CellCost ShockLossCost = {10, 8, 2, 16, 0};
constexpr CellCost FlatteningCost = {3, 6, 0, 6, 0};
constexpr CellCost SupersonicCost = {0, 0, 0, 4, 0};
constexpr CellCost ContactSearchCost = {1, 1, 0, 1, 0};
constexpr CellCost SuspicionCost = {11, 3, 0, 5, 0};
constexpr CellCost ContactCost = {31, 14, 5, 17, 0};
constexpr CellCost StrongEdgeCost = {32, 63, 5, 24, 6};

// What a block is worked on with: 40 or 48 kilobytes, about what a first-level cache holds.
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

// The first cell whose states at the edges are needed: what becomes of the neighbours of cell 1
// decides whether its fluxes have to be mended.
constexpr int FirstTraced = -2;

// States beside the edges -1..last+1 from the cells around them.
template <typename Float>
void Reconstruct(const StripState<Float>& strip, const StepConstants<Float>& constants,
                 StepRows<Float>& rows, int last, int* counters) {
    const int n = strip.Cells;
    const int first = FirstTraced;
    InterpolateCharacteristics(strip, rows.Cells, rows.Parabolas, first, last);
    const Float strength = FlatteningStrength(constants.Difcon);
    CountOperations(ShockSearchCost, n, counters);
    const ShockedCells shocked = FlattenShocks(strip, rows.Cells.Signal.Origin(), constants.Shkjmp,
                                               strength, rows.Failed, rows.Parabolas, first, last);
    CountOperations(ShockLossCost, std::min(shocked.InShock, n), counters);
    CountOperations(FlatteningCost, std::min(shocked.Flattened, n), counters);
    const int supersonic = TraceStates(strip, rows.Cells, rows.Parabolas, rows.States, first, last);
    CountOperations(SupersonicCost, std::min(supersonic, n), counters);
    const ContactWork contacts = SteepenContacts(strip, rows.Cells, rows.States, first, last);
    CountOperations(ContactSearchCost, n, counters);
    CountOperations(SuspicionCost, std::min(contacts.Suspect, n), counters);
    CountOperations(ContactCost, std::min(contacts.Steepened, n), counters);
    CloseEdge(rows.States, last + 1);
}

template <typename Float>
Float AdvanceBlock(const StripState<Float>& input, const StepConstants<Float>& constants,
                   const StripResult<Float>& result, StepRows<Float>& rows, int* counters) {
    const StripState<Float> strip = CopyStrip(input, rows.Inputs);
    const int n = strip.Cells;
    const int lastCell = PaddedLast(FirstTraced, n + 3);
    const int lastEdge = lastCell + 1;
    const Float courant = PrepareCells(strip, constants.TimeStep, constants.Gamma, rows.Cells,
                                       FirstTraced - 2, lastCell + 2);
    CountOperations(PreparationCost, n, counters);
    bool mended = false;
    if (IsQuiet(strip, counters)) {
        KeepGas(strip, rows.Fluxes, rows.After.Next);
        CountOperations(QuietCost, n, counters);
    } else {
        Reconstruct(strip, constants, rows, lastCell, counters);
        const int strong = SolveRiemannProblems(strip, rows.Cells, rows.States, constants.Gamma,
                                                rows.Fluxes, -1, lastEdge);
        CountOperations(StrongEdgeCost, std::min(strong, n), counters);
        DampRipples(strip, rows.Cells, RippleDamping(constants.Wavhaf), rows.Fluxes, -1, lastEdge);
        mended = UpdateGas(strip, rows.Cells, constants.Gamma, rows.Fluxes, rows.After.Next,
                           rows.Failed, counters);
        CountOperations(GasCost, n, counters);
    }
    UpdateBothCarried(strip, rows.Cells, rows.Fluxes, rows.After, result, counters);
    return Max(courant, HandOver(strip, rows.After.Next, mended, rows.Failed, result, counters));
}

// Advances the strip by one step and returns its Courant number.
template <typename Float>
Float AdvanceTraced(const StripState<Float>& strip, const StepConstants<Float>& constants,
                    const StripResult<Float>& result, int* counters) {
    StepRows<Float> rows;
    const auto advance = [&](const StripState<Float>& block,
                             const StripResult<Float>& blockResult) {
        return AdvanceBlock(block, constants, blockResult, rows, counters);
    };
    return AdvanceInBlocks(strip, result, advance);
}
