// The step of the lean scheme, in two stages. The predictor advances each cell's edges by itself;
// the corrector lets the predicted edges meet and takes the step with the fluxes between them.
#pragma once

#include "schemes/carried_quantity.h"
#include "schemes/hllc_flux.h"
#include "schemes/operation_counts.h"
#include "schemes/positivity.h"
#include "schemes/taylor_predictor.h"

namespace predictor_corrector {

// Cost of a cell in what every step does, and in what is done only for the chunks or blocks that
// need it: where there is a contact or a shock, where the transverse velocity varies, and where
// failures have to be mended and looked for once more.
constexpr CellCost GasCost = {131, 113, 5, 85, 3};
constexpr CellCost ContactCost = {19, 9, 1, 7, 0};
constexpr CellCost ShockCost = {2, 14, 0, 2, 0};
constexpr CellCost CarriedCost = {30, 26, 1, 23, 0};
constexpr CellCost MendingCost = {33, 26, 3, 5, 0};
constexpr CellCost SecondLookCost = {0, 2, 0, 6, 0};

// What the corrector works on once the states are predicted.
template <typename Float>
struct CorrectorRows {
    NewState<Float> Next;
    CarriedRows<Float> Carried;
};

template <typename Float>
struct StepRows {
    InputRows<Float> Inputs;
    CellRows<Float> Cells;
    Row<Float> Failed;
    EdgeStates<Float> States;
    EdgeFluxes<Float> Fluxes;
    union {  // one after the other, to spare the first-level cache
        PredictorRows<Float> Predictor;
        CorrectorRows<Float> Corrector;
    };

    StepRows() {}
};

// The first cell whose states at the edges are needed: what becomes of the neighbours of cell 1
// decides whether its fluxes have to be mended.
constexpr int FirstPredicted = -2;

// Predicted states beside the edges -1..n+3 from the cells around them.
template <typename Float>
void Predict(const StripState<Float>& strip, const StepConstants<Float>& constants,
             StepRows<Float>& rows, int last, int* counters) {
    const int n = strip.Cells;
    const int first = FirstPredicted;
    PredictorRows<Float>& predictor = rows.Predictor;
    InterpolateEdges(strip.Rho, predictor.Rho, first, n + 3);
    InterpolateEdges(strip.Ux, predictor.Ux, first, n + 3);
    InterpolateEdges(strip.P, predictor.P, first, n + 3);
    const int steepened = SteepenContacts(strip, constants.Gamma, predictor.Rho, first, last);
    CountOperations(ContactCost, std::min(steepened, n), counters);
    const int flattened =
        FlattenThinShocks(strip, predictor.Rho, predictor.Ux, predictor.P, first, last);
    CountOperations(ShockCost, std::min(flattened, n), counters);
    PredictEdgeStates(strip, rows.Cells, constants.Gamma, predictor, rows.States, first, last);
    // The last edge has no cell on its right here; no real cell asks for it.
    rows.States.RhoRight[last + 1] = rows.States.RhoLeft[last + 1];
    rows.States.PRight[last + 1] = rows.States.PLeft[last + 1];
    rows.States.UxRight[last + 1] = rows.States.UxLeft[last + 1];
}

// Brings rows.Corrector.Next to the new density, pressure and velocity of cells 1..n. Returns
// whether failures had to be mended: twice at most, since a first-order edge can be the ruin of the
// cell on its other side.
template <typename Float>
bool Correct(const StripState<Float>& strip, const StepConstants<Float>& constants,
             StepRows<Float>& rows, int lastEdge, int* counters) {
    const int n = strip.Cells;
    HllcFluxes(rows.States, constants.Gamma, rows.Fluxes, -1, lastEdge);
    UpdateCells(strip, rows.Cells, rows.Fluxes, constants.Gamma, rows.Corrector.Next, -1,
                PaddedLast(-1, n + 2));
    for (int pass = 0; pass < 2; ++pass) {
        if (pass > 0) CountOperations(SecondLookCost, n, counters);
        if (!MarkFailures(strip, rows.Corrector.Next, rows.Failed, pass - 1, n + 2 - pass))
            return pass > 0;
        CountOperations(MendingCost, n, counters);
        UseFirstOrderFluxes(strip, rows.Cells, rows.Failed, constants.Gamma, rows.Fluxes, pass,
                            n + 2 - pass);
        UpdateCells(strip, rows.Cells, rows.Fluxes, constants.Gamma, rows.Corrector.Next, pass,
                    n + 1 - pass);
    }
    CountOperations(SecondLookCost, n, counters);
    return true;
}

template <typename Float>
Float AdvanceBlock(const StripState<Float>& input, const StepConstants<Float>& constants,
                   const StripResult<Float>& result, StepRows<Float>& rows, int* counters) {
    const StripState<Float> strip = CopyStrip(input, rows.Inputs);
    const int n = strip.Cells;
    const int last = PaddedLast(FirstPredicted, n + 3);
    const Float courant = PrepareSignals(strip, constants.TimeStep, constants.Gamma, rows.Failed,
                                         rows.Cells, FirstPredicted, last);
    Predict(strip, constants, rows, last, counters);
    const bool mended = Correct(strip, constants, rows, last + 1, counters);
    CountOperations(GasCost, n, counters);
    const CarriedWork work =
        UpdateCarried<false>(strip, strip.Uy, rows.Cells, rows.Fluxes, rows.Corrector.Next.Rho,
                             rows.Corrector.Carried, result.Uy);
    CountOperations(CarriedCost, std::min(work.Varying, n), counters);
    return Most(courant, HandOver(strip, rows.Corrector.Next, mended, rows.Failed, result));
}

}  // namespace predictor_corrector

// Advances the strip by one step and returns its Courant number.
template <typename Float>
Float AdvancePredictorCorrector(const StripState<Float>& strip,
                                const StepConstants<Float>& constants,
                                const StripResult<Float>& result, int* counters) {
    predictor_corrector::StepRows<Float> rows;
    Float courant = Float(0);
    for (int offset = 0; offset < strip.Cells; offset += BlockCells<Float>) {
        const int cells = std::min(BlockCells<Float>, strip.Cells - offset);
        courant =
            Most(courant, predictor_corrector::AdvanceBlock(Block(strip, offset, cells), constants,
                                                            Block(result, offset), rows, counters));
    }
    return courant;
}
