#include "core/setup/grid.h"

#include <algorithm>
#include <cmath>

#include "core/model/experiment_state.h"
#include "core/model/limits.h"
#include "core/run/state_store.h"

void AllocateFields(ExperimentState& state) {
    const int n = state.NGridCells;
    for (OffsetArray<double>* array : {&state.X, &state.Rho, &state.P, &state.Ux, &state.Uy,
                                       &state.FSmoke, &state.UyNew, &state.FSmokeNew}) {
        *array = OffsetArray<double>(FirstCell, 10 * (n / 3) + 7);
    }
    for (OffsetArray<double>* array : {&state.C2, &state.C}) {
        *array = OffsetArray<double>(FirstCell, n + 7);
    }
}

void LayGrid(ExperimentState& state, double left, double right) {
    const int n = state.NGridCells;
    state.NGridCellsD = n;
    state.DX = (right - left) / n;
    state.X[1] = left;
    state.X[n + 1] = right;
    for (int i = 2; i <= n; ++i) state.X[i] = state.X[i - 1] + state.DX;
}

void AllocateArrays(ExperimentState& state) {
    AllocateFields(state);
    SetNPlotsTotal(state);
    AllocateStore(state);

    const int n = state.NGridCells;
    state.NGridCellsD = n;
    state.DX = 1.0 / n;
    state.X[0] = -state.DX;
    state.X[1] = 0.0;
    for (int i = 2; i <= n + 2; ++i) state.X[i] = state.X[i - 1] + state.DX;
    state.X[n + 1] = 1.0;
}

void SetOuterEdges(ExperimentState& state) {
    const int n = state.NGridCells;
    state.X[0] = state.X[1] + state.X[1] - state.X[2];
    state.X[n + 2] = state.X[n + 1] + state.X[n + 1] - state.X[n];
}

double ShortestCrossingTime(ExperimentState& state, double bound) {
    const int count = state.NGridCells + 2;
    const double gamma = state.Gamma;
    const double* const x = state.X.At(0);
    const double* const rho = state.Rho.At(0);
    const double* const p = state.P.At(0);
    const double* const ux = state.Ux.At(0);
    double* const c2 = state.C2.At(0);
    double* const c = state.C.At(0);
    for (int i = 0; i < count; ++i) c2[i] = p[i] * gamma / rho[i];
    for (int i = 0; i < count; ++i) c[i] = std::sqrt(c2[i]);
    double shortest = bound;
    for (int i = 0; i < count; ++i) {
        const double speed = std::max(std::abs(ux[i] + c[i]), std::abs(ux[i] - c[i]));
        shortest = std::min(shortest, (x[i + 1] - x[i]) / speed);
    }
    return shortest;
}

void SetInitialDTime(ExperimentState& state) {
    SetOuterEdges(state);
    const double shortest =
        ShortestCrossingTime(state, (state.X[2] - state.X[1]) / state.SoundSpeed0);
    state.DTime = std::min((state.CourantNumber * 0.1) * shortest, state.PlotInterval);
}

void SetPeriodClock(ExperimentState& state) {
    state.PeriodTime = 1.0 / state.C[1];
    state.TStop = state.PeriodTime * state.Periods;
    state.PlotInterval = state.PeriodTime / state.NPlotsPerPeriod;
    state.TimeToPlot = state.PlotInterval;
    state.DTime = std::min(state.DTime, state.PlotInterval);
}

void ResizeControlPointLists(ExperimentState& state) {
    const int last = state.NGridCells + 2;
    state.MSelList.Resize(last);
    for (OffsetArray<double>* list :
         {&state.XSelList, &state.RhoSelList, &state.PSelList, &state.VxSelList}) {
        list->Resize(last);
    }
}
