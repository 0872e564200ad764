// The step that all four schemes are made of: characteristic tracing of limited parabolas, a
// Riemann problem at every edge, and a conservative update. They differ in the parts that they
// take.
#pragma once

#include "schemes/carried_quantity.h"
#include "schemes/cell_preparation.h"
#include "schemes/operation_counts.h"
#include "schemes/positivity.h"
#include "schemes/ripple_damping.h"
#include "schemes/shock_flattening.h"

// What a scheme takes beyond the parts that every one has.
struct StepParts {
    bool FlattensShocks;
    bool SteepensJumps;
};

// Cost of a cell in what every step does, and in what only some do: where there is a contact, where
// a carried quantity varies, where it has a jump, and where failures have to be mended and looked
// for once more.
constexpr CellCost GasCost = {166, 200, 8, 116, 7};
constexpr CellCost FlatteningCost = {4, 3, 1, 8, 0};
constexpr CellCost JumpSearchCost = {9, 1, 1, 5, 0};
constexpr CellCost ContactCost = {23, 18, 4, 13, 0};
constexpr CellCost CarriedCost = {29, 25, 1, 29, 0};
constexpr CellCost CarriedJumpCost = {8, 3, 2, 9, 0};
constexpr CellCost MendingCost = {33, 26, 3, 5, 0};
constexpr CellCost SecondLookCost = {0, 2, 0, 6, 0};

template <typename Float>
struct StepRows {
    InputRows<Float> Inputs;
    CellRows<Float> Cells;
    Row<Float> Steepness, Jump, Failed;
    CharacteristicParabolas<Float> Parabolas;
    EdgeStates<Float> States;
    EdgeFluxes<Float> Fluxes;
    NewState<Float> Next;
    CarriedRows<Float> Carried;
};

// States beside the edges -1..n+3 from the cells around them.
template <StepParts Parts, typename Float>
void Reconstruct(const StripState<Float>& strip, const StepConstants<Float>& constants,
                 StepRows<Float>& rows, int* counters) {
    const int first = -2;
    const int last = PaddedLast(first, strip.Cells + 3);
    if constexpr (Parts.FlattensShocks) {
        const Float strength = Least(Float(0.1) * constants.Difcon, Float(1));
        FlattenShocks(strip, constants.Shkjmp, strength, rows.Failed, rows.Steepness, first, last);
        CountOperations(FlatteningCost, strip.Cells, counters);
    } else {
        for (int i = first; i <= last; ++i) rows.Steepness[i] = Float(1);
    }
    InterpolateCharacteristics(strip, rows.Cells, rows.Parabolas, first, last);
    TraceStates(strip, rows.Cells, rows.Steepness, rows.Parabolas, rows.States, first, last);
    if constexpr (Parts.SteepensJumps) {
        CountOperations(JumpSearchCost, strip.Cells, counters);
        if (!FindJumps(strip.Rho, rows.Jump, first, last)) return;
        CountOperations(ContactCost, strip.Cells, counters);
        KeepContacts(strip, constants.Gamma, rows.Jump, first, last);
        SteepenContacts(strip, rows.Cells, rows.Jump, rows.States, first, last);
    }
}

// Brings rows.Next to the new density, pressure and velocity of cells 1..n. Returns whether
// failures had to be mended: twice at most, since a first-order edge can be the ruin of the cell on
// its other side.
template <typename Float>
bool UpdateGas(const StripState<Float>& strip, const StepConstants<Float>& constants,
               StepRows<Float>& rows, int* counters) {
    const int n = strip.Cells;
    UpdateCells(strip, rows.Cells, rows.Fluxes, constants.Gamma, rows.Next, -1,
                PaddedLast(-1, n + 2));
    for (int pass = 0; pass < 2; ++pass) {
        if (pass > 0) CountOperations(SecondLookCost, n, counters);
        if (!MarkFailures(strip, rows.Next, rows.Failed, pass - 1, n + 2 - pass)) return pass > 0;
        CountOperations(MendingCost, n, counters);
        UseFirstOrderFluxes(strip, rows.Cells, rows.Failed, constants.Gamma, rows.Fluxes, pass,
                            n + 2 - pass);
        UpdateCells(strip, rows.Cells, rows.Fluxes, constants.Gamma, rows.Next, pass, n + 1 - pass);
    }
    CountOperations(SecondLookCost, n, counters);
    return true;
}

template <StepParts Parts, typename Float>
Float AdvanceBlock(const StripState<Float>& input, const StepConstants<Float>& constants,
                   const StripResult<Float>& result, StepRows<Float>& rows, int* counters) {
    const StripState<Float> strip = CopyStrip(input, rows.Inputs);
    const int n = strip.Cells;
    const int lastEdge = PaddedLast(-1, n + 3);
    const Float courant =
        PrepareCells(strip, constants.TimeStep, constants.Gamma, rows.Failed, rows.Cells);
    Reconstruct<Parts>(strip, constants, rows, counters);
    SolveRiemannProblems(rows.States, constants.Gamma, rows.Fluxes, -1, lastEdge);
    const Float damping = Float(0.3) * constants.Wavhaf / (constants.Wavhaf + Float(0.2));
    DampRipples(strip, rows.Cells, damping, rows.Fluxes, -1, lastEdge);
    const bool mended = UpdateGas(strip, constants, rows, counters);
    CountOperations(GasCost, n, counters);
    const auto updateCarried = [&](const Float* carried, Float* newCarried) {
        const CarriedWork work = UpdateCarried<Parts.SteepensJumps>(
            strip, carried, rows.Cells, rows.Fluxes, rows.Next.Rho, rows.Carried, newCarried);
        if (work.Varies) CountOperations(CarriedCost, n, counters);
        if (work.Varies && Parts.SteepensJumps) CountOperations(JumpSearchCost, n, counters);
        if (work.Jumps) CountOperations(CarriedJumpCost, n, counters);
    };
    updateCarried(strip.Uy, result.Uy);
    if (strip.Smoke) updateCarried(strip.Smoke, result.Smoke);
    return Most(courant, HandOver(strip, rows.Next, mended, rows.Failed, result));
}

// Advances the strip by one step and returns its Courant number.
template <StepParts Parts, typename Float>
Float AdvanceTraced(const StripState<Float>& strip, const StepConstants<Float>& constants,
                    const StripResult<Float>& result, int* counters) {
    StepRows<Float> rows;
    Float courant = Float(0);
    for (int offset = 0; offset < strip.Cells; offset += BlockCells<Float>) {
        const int cells = std::min(BlockCells<Float>, strip.Cells - offset);
        courant = Most(courant, AdvanceBlock<Parts>(Block(strip, offset, cells), constants,
                                                    Block(result, offset), rows, counters));
    }
    return courant;
}
