#include "core/setup/riemann_problem.h"

#include <algorithm>
#include <cmath>

#include "core/model/experiment_state.h"
#include "core/model/limits.h"
#include "core/model/number_text.h"
#include "core/run/axis_ranges.h"
#include "core/run/first_step.h"
#include "core/run/state_store.h"
#include "core/setup/grid.h"
#include "core/setup/smoke.h"

namespace {

void FillEntries(OffsetArray<double>& list, int first, int last, double value) {
    for (int k = first; k <= last; ++k) list[k] = value;
}

void FillCells(OffsetArray<double>& field, int first, int last, double value) {
    for (int i = first; i <= last; ++i) field[i] = value;
}

void PlaceControlPoints(ExperimentState& state, const RiemannProblem& problem) {
    const int n = state.NGridCells;
    // A jump in the middle of a cell rounds down.
    const double jumpCell =
        ((problem.XJump - problem.XL) * state.NGridCellsD) / (problem.XR - problem.XL) - 1e-05;
    const int m = RoundToEven(jumpCell);
    state.MSelected = m;
    struct Entry {
        int Cell;
        double Position;
    };
    std::array<Entry, 6> entries{{{0, problem.XL - PositionSetBack},
                                  {1, problem.XL + PositionSetBack},
                                  {m, problem.XJump - PositionSetBack},
                                  {m + 1, problem.XJump + PositionSetBack},
                                  {n, problem.XR - PositionSetBack},
                                  {n + 1, problem.XR + PositionSetBack}}};
    state.NSelected = 4;
    if (m + 1 == n) {  // on 6 or 7 cells the right state can be a single cell: one point, not two
        std::copy(entries.begin() + 4, entries.end(), entries.begin() + 3);
        state.NSelected = 3;
    }
    for (int k = 0; k <= state.NSelected + 1; ++k) {
        const Entry& entry = entries[static_cast<std::size_t>(k)];
        state.MSelList[k] = entry.Cell;
        state.XSelList[k] = entry.Position;
    }
}

// Axis of density or pressure: five per cent above the larger and below the smaller of the two
// states, in terms of the upper end, and never below 0.
void SetPositiveAxis(double left, double right, double& lo, double& hi) {
    hi = left * 1.05;
    lo = left - hi * AxisMargin;
    hi = std::max(hi, right * 1.05);
    lo = std::max(std::min(lo, right - hi * AxisMargin), 0.0);
}

// Fills the two states of one variable into its list and its field; `sel` ends at the right one.
void FillStates(OffsetArray<double>& list, OffsetArray<double>& field, double& sel, int m,
                int lastCell, double left, double right) {
    FillEntries(list, 0, 2, left);
    FillCells(field, 0, m, left);
    FillEntries(list, 3, 5, right);
    FillCells(field, m + 1, lastCell, right);
    sel = right;
}

}  // namespace

void BuildRiemannProblem(ExperimentState& state, const RiemannProblem& problem) {
    const int n = state.NGridCells;
    AllocateFields(state);
    AllocateStore(state);
    ResizeControlPointLists(state);
    LayGrid(state, problem.XL, problem.XR);
    PlaceControlPoints(state, problem);
    const int m = state.MSelected;

    SetPositiveAxis(problem.RhoL, problem.RhoR, state.RhoMin, state.RhoMax);
    FillStates(state.RhoSelList, state.Rho, state.RhoSel, m, n + 1, problem.RhoL, problem.RhoR);
    SetPositiveAxis(problem.PL, problem.PR, state.PMin, state.PMax);
    FillStates(state.PSelList, state.P, state.PSel, m, n + 1, problem.PL, problem.PR);

    state.SoundSpeed0 =
        std::sqrt(std::max(problem.PL / problem.RhoL, problem.PR / problem.RhoR) * state.Gamma);
    const double margin = state.SoundSpeed0 * AxisMargin;
    state.VXMin = std::min(problem.UxL - margin, problem.UxR - margin);
    state.VXMax = std::max(problem.UxL + margin, problem.UxR + margin);
    FillStates(state.VxSelList, state.Ux, state.VxSel, m, n + 1, problem.UxL, problem.UxR);
    FillCells(state.Uy, 0, m, problem.UyL);
    FillCells(state.Uy, m + 1, n + 1, problem.UyR);

    SetOuterEdges(state);
    const double firstStep = FirstTimeStep(state);
    InitSmokePattern(state);
    TakeSnapshot(state, 0);
    state.DTime = std::min(firstStep, state.PlotInterval);
}

void SetRiemannClock(ExperimentState& state, double tStop) {
    // The fields may be those of a wave, laid after the sound speeds were worked out.
    SetClock(state, 1.0 / std::sqrt(state.P[1] * state.Gamma / state.Rho[1]), tStop);
}
