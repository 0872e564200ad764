// The step of the lean scheme, in two stages. The predictor advances each cell's edges by itself;
// the corrector lets the predicted edges meet and takes the step with the fluxes between them.
#pragma once

#include "schemes/carried_quantity.h"
#include "schemes/gas_update.h"
#include "schemes/hllc_flux.h"
#include "schemes/taylor_predictor.h"

namespace predictor_corrector {

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

// The first cell whose edge states are needed: the new state of cell 1's neighbours decides whether
// its fluxes have to be mended.
constexpr int FirstPredicted = -2;

// Steps 1 to 4: predicted states beside the edges -1..last+1 from the cells around them.
template <typename Float>
void Predict(const StripState<Float>& strip, const StepConstants<Float>& constants,
             StepRows<Float>& rows, int last, WorkDone& work) {
    const int first = FirstPredicted;
    PredictorRows<Float>& predictor = rows.Predictor;
    // 1. Parabolas.
    InterpolateEdges(strip.Rho, predictor.Rho, first, strip.Cells + 3);
    InterpolateEdges(strip.Ux, predictor.Ux, first, strip.Cells + 3);
    InterpolateEdges(strip.P, predictor.P, first, strip.Cells + 3);
    // 2. Contacts.
    SteepenContacts(strip, constants.Gamma, predictor.Rho, first, last, work);
    // 3. Shocks.
    FlattenShocks(strip, predictor.Rho, predictor.Ux, predictor.P, first, last, work);
    // 4. Predictor.
    PredictEdgeStates(strip, rows.Cells, constants.Gamma, predictor, rows.States, first, last);
    CloseEdge(rows.States, last + 1);
}

// Whether the transverse velocity is the same everywhere. Only then may a quiet block be left as it
// is: the mass flux of an even flow is off in the last bit, which shows in a transverse velocity
// that varies, and in nothing else.
template <typename Float>
bool IsEven(const Float* transverse, int n) {
    return FindVarying(transverse, n).Count() == 0;
}

template <typename Float>
Float AdvanceBlock(const StripState<Float>& input, const StepConstants<Float>& constants,
                   const StripResult<Float>& result, StepRows<Float>& rows, WorkDone& work) {
    const StripState<Float> strip = CopyStrip(input, rows.Inputs);
    const int n = strip.Cells;
    const int lastCell = PaddedLast(FirstPredicted, n + 3);
    const int lastEdge = lastCell + 1;
    const Float courant = PrepareSignals(strip, constants.TimeStep, constants.Gamma, rows.Cells,
                                         FirstPredicted, lastCell);
    work.Add(Work::Preparation, n);
    bool mended = false;
    if (IsQuiet(strip, work) && IsEven(strip.Uy, n)) {
        KeepGas(strip, rows.Fluxes, rows.Corrector.Next);
        work.Add(Work::Quiet, n);
    } else {
        Predict(strip, constants, rows, lastCell, work);
        // 5. Corrector.
        HllcFluxes(rows.States, constants.Gamma, rows.Fluxes, -1, lastEdge);
        // 6. Update and positivity.
        mended = UpdateGas(strip, rows.Cells, constants.Gamma, rows.Fluxes, rows.Corrector.Next,
                           rows.Failed, work);
        work.Add(Work::Gas, n);
    }
    UpdateCarried<false>(strip, strip.Uy, rows.Cells, rows.Fluxes, rows.Corrector.Next.Rho,
                         rows.Corrector.Carried, result.Uy, work);
    return Max(courant, HandOver(strip, rows.Corrector.Next, mended, rows.Failed, result, work));
}

}  // namespace predictor_corrector

// Advances the strip by one step and returns its Courant number. The steps are numbered as in
// docs/schemes.md.
template <typename Float>
Float AdvancePredictorCorrector(const StripState<Float>& strip,
                                const StepConstants<Float>& constants,
                                const StripResult<Float>& result, int* counters) {
    predictor_corrector::StepRows<Float> rows;
    const auto advance = [&](const StripState<Float>& block, const StripResult<Float>& blockResult,
                             WorkDone& work) {
        return predictor_corrector::AdvanceBlock(block, constants, blockResult, rows, work);
    };
    return AdvanceInBlocks(strip, result, PredictorCorrectorCosts, counters, advance);
}
