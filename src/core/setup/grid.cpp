#include "core/setup/grid.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "core/model/experiment_state.h"
#include "core/model/limits.h"
#include "core/run/first_step.h"
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

bool HasMemoryFor(int n, int plots) {
    constexpr int spareBytes = 64 << 20;  // for strips, pictures, files and windows
    try {
        ExperimentState trial;
        trial.NGridCells = n;
        trial.NPlotsTotal = plots;
        AllocateFields(trial);
        AllocateStore(trial);
        ResizeControlPointLists(trial);
        const OffsetArray<char> spare(1, spareBytes);
        return spare.Last() == spareBytes;
    } catch (const std::bad_alloc&) {
        return false;
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

void SetInitialDTime(ExperimentState& state) {
    SetOuterEdges(state);
    state.DTime = std::min(FirstTimeStep(state), state.PlotInterval);
}

void ResizeControlPointLists(ExperimentState& state) {
    const int last = state.NGridCells + 2;
    state.MSelList.Resize(last);
    for (OffsetArray<double>* list :
         {&state.XSelList, &state.RhoSelList, &state.PSelList, &state.VxSelList}) {
        list->Resize(last);
    }
}
