// The step of the lean scheme, in two stages. The predictor advances each cell's edges by itself;
// the corrector lets the predicted edges meet and takes the step with the fluxes between them.
#pragma once

#include "schemes/carried_quantity.h"
#include "schemes/gas_update.h"
#include "schemes/hllc_flux.h"
#include "schemes/operation_counts.h"
#include "schemes/taylor_predictor.h"

namespace predictor_corrector {

// Cost of a cell in what every step does, in what is done unless the block is quiet, and in what is
// done only for the chunks that need it: where there may be a contact, where there is one, and
// where there is a shock.
constexpr CellCost PreparationCost = {2, 8, 1, 2, 1};
constexpr CellCost GasCost = {126, 102, 5, 75, 2};
constexpr CellCost SuspicionCost = {11, 6, 0, 5, 0};
constexpr CellCost ContactCost = {20, 9, 1, 8, 0};
constexpr CellCost ShockCost = {7, 16, 0, 8, 0};

template <typename Float>
struct StepRows {
    InputRows<Float> Inputs;
    CellRows<Float> Cells;
    Row<Float> Failed;
    EdgeStates<Float> States;
    EdgeFluxes<Float> Fluxes;
    union {  // one after the other, to spare the first-level cache
        PredictorRows<Float> Predictor;
        UpdateRows<Float> Corrector;
    };

    StepRows() {}
};

// The first cell whose states at the edges are needed: what becomes of the neighbours of cell 1
// decides whether its fluxes have to be mended.
constexpr int FirstPredicted = -2;

// Predicted states beside the edges -1..last+1 from the cells around them.
template <typename Float>
void Predict(const StripState<Float>& strip, const StepConstants<Float>& constants,
             StepRows<Float>& rows, int last, int* counters) {
    const int n = strip.Cells;
    const int first = FirstPredicted;
    PredictorRows<Float>& predictor = rows.Predictor;
    InterpolateEdges(strip.Rho, predictor.Rho, first, n + 3);
    InterpolateEdges(strip.Ux, predictor.Ux, first, n + 3);
    InterpolateEdges(strip.P, predictor.P, first, n + 3);
    const ContactWork contacts =
        SteepenContacts(strip, constants.Gamma, predictor.Rho, first, last);
    CountOperations(SuspicionCost, std::min(contacts.Suspect, n), counters);
    CountOperations(ContactCost, std::min(contacts.Steepened, n), counters);
    const int flattened =
        FlattenShocks(strip, predictor.Rho, predictor.Ux, predictor.P, first, last);
    CountOperations(ShockCost, std::min(flattened, n), counters);
    PredictEdgeStates(strip, rows.Cells, constants.Gamma, predictor, rows.States, first, last);
    CloseEdge(rows.States, last + 1);
}

// Whether the transverse velocity is the same everywhere. Only then may a quiet block be left as it
// is: the mass that the fluxes of an even flow carry is off in the last bit, which shows in a
// transverse velocity that varies, and in nothing else.
template <typename Float>
bool IsEven(const Float* transverse, int n) {
    const VaryingCells varying = FindVarying(transverse, n);
    return varying.Last < varying.First;
}

template <typename Float>
Float AdvanceBlock(const StripState<Float>& input, const StepConstants<Float>& constants,
                   const StripResult<Float>& result, StepRows<Float>& rows, int* counters) {
    const StripState<Float> strip = CopyStrip(input, rows.Inputs);
    const int n = strip.Cells;
    const int last = PaddedLast(FirstPredicted, n + 3);
    const Float courant = PrepareSignals(strip, constants.TimeStep, constants.Gamma, rows.Cells,
                                         FirstPredicted, last);
    CountOperations(PreparationCost, n, counters);
    bool mended = false;
    if (IsQuiet(strip, counters) && IsEven(strip.Uy, n)) {
        KeepGas(strip, rows.Fluxes, rows.Corrector.Next);
        CountOperations(QuietCost, n, counters);
    } else {
        Predict(strip, constants, rows, last, counters);
        HllcFluxes(rows.States, constants.Gamma, rows.Fluxes, -1, last + 1);
        mended = UpdateGas(strip, rows.Cells, constants.Gamma, rows.Fluxes, rows.Corrector.Next,
                           rows.Failed, counters);
        CountOperations(GasCost, n, counters);
    }
    UpdateCarried<false>(strip, strip.Uy, rows.Cells, rows.Fluxes, rows.Corrector.Next.Rho,
                         rows.Corrector.Carried, result.Uy, counters);
    return Max(courant,
               HandOver(strip, rows.Corrector.Next, mended, rows.Failed, result, counters));
}

}  // namespace predictor_corrector

// Advances the strip by one step and returns its Courant number.
template <typename Float>
Float AdvancePredictorCorrector(const StripState<Float>& strip,
                                const StepConstants<Float>& constants,
                                const StripResult<Float>& result, int* counters) {
    predictor_corrector::StepRows<Float> rows;
    const auto advance = [&](const StripState<Float>& block,
                             const StripResult<Float>& blockResult) {
        return predictor_corrector::AdvanceBlock(block, constants, blockResult, rows, counters);
    };
    return AdvanceInBlocks(strip, result, advance);
}
