#include "core/setup/blast_waves.h"

#include <algorithm>

#include "core/model/boundary_types.h"
#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/run/axis_ranges.h"
#include "core/run/first_step.h"
#include "core/run/state_store.h"
#include "core/setup/grid.h"
#include "core/setup/smoke.h"

namespace {

struct Region {
    int FirstEntry, LastEntry;  // on the list of control points
    int FirstCell, LastCell;
    double P;
};

void PlacePoints(ExperimentState& state, int m1, int m2) {
    const int n = state.NGridCells;
    const int cells[] = {0, 1, m1, m1 + 1, m2, m2 + 1, n, n + 1};
    // The positions belong to the problem, not to the grid.
    const double positions[] = {-1e-07,    1e-07,     0.0999999, 0.1000001,
                                0.8999999, 0.9000001, 0.9999999, 1.0000001};
    for (int k = 0; k <= 7; ++k) {
        state.MSelList[k] = cells[k];
        state.XSelList[k] = positions[k];
    }
    state.NSelected = 6;
}

void FillRegion(ExperimentState& state, const Region& region) {
    state.RhoSel = 1.0;
    state.PSel = region.P;
    state.VxSel = 0.0;
    for (int k = region.FirstEntry; k <= region.LastEntry; ++k) {
        state.RhoSelList[k] = state.RhoSel;
        state.PSelList[k] = state.PSel;
        state.VxSelList[k] = state.VxSel;
    }
    for (int i = region.FirstCell; i <= region.LastCell; ++i) {
        state.Rho[i] = state.RhoSel;
        state.P[i] = state.PSel;
        state.Ux[i] = state.VxSel;
    }
}

// The lower ends of the axes follow the last region, the upper ends the first.
void SetAxes(ExperimentState& state) {
    state.RhoMax = 1.05;
    state.PMax = 1050.0;
    state.VXMax = std::max(state.SoundSpeed0, 0.0) * 1.05;
    state.RhoMin = std::max(state.RhoSel - state.RhoMax * AxisMargin, 0.0);
    state.PMin = std::max(state.PSel - state.PMax * AxisMargin, 0.0);
    state.VXMin = std::min(-state.VXMax, 0.0);
}

}  // namespace

void BuildBlastWaves(ExperimentState& state) {
    AllocateFields(state);
    AllocateStore(state);
    ResizeControlPointLists(state);
    state.MnBdry = ReflectingBoundary;
    state.MxBdry = ReflectingBoundary;
    LayGrid(state, 0.0, 1.0);

    const int n = state.NGridCells;
    const int m1 = RoundToEven(n / 10.0);
    const int m2 = RoundToEven(9.0 * n / 10.0);
    PlacePoints(state, m1, m2);
    FillRegion(state, {0, 2, 0, m1, 1000.0});
    FillRegion(state, {3, 4, RoundToEven(n / 10.0 + 1.0), m2, 0.01});
    FillRegion(state, {5, 7, m2 + 1, n + 1, 100.0});
    SetAxes(state);
    state.MSelected = m2;

    SetOuterEdges(state);
    state.DTime = FirstTimeStep(state);
    InitSmokePattern(state);
    TakeSnapshot(state, 0);
    SetPeriodClock(state, 1.0 / state.C[1]);
}
