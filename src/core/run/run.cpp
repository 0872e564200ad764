#include "core/run/run.h"

#include <algorithm>

#include "core/model/experiment_state.h"
#include "core/run/axis_ranges.h"
#include "core/run/boundary_zones.h"
#include "core/run/first_step.h"
#include "core/run/state_store.h"
#include "core/run/tick_arrays.h"
#include "core/run/time_step.h"

namespace {

// Makes the present fields stored state 0 of an empty store, and the axes those of this state.
void StoreInitialState(ExperimentState& state) {
    AllocateStore(state);
    TakeSnapshot(state, 0);
    state.StoreOffset = StoreStride(state);
    state.NStored = 1;
    ResetAxisRanges(state);
}

// Stores the state that a plot time has brought, if there is room. A coarse grid, whose states come
// fast, has its picture painted only every so many states.
void StoreAtPlotTime(ExperimentState& state, TickResult& result) {
    state.StoreOffset = StoreStride(state) * state.NStored;
    if (!StoreHasRoom(state)) return;
    StoreState(state);
    result.HasStored = true;
    const int statesPerPaint = std::max(1000 / state.NGridCells, 1);
    if (state.NStored % statesPerPaint == 0) result.StatesOnPicture = state.NStored;
}

}  // namespace

bool BeginRun(ExperimentState& state) {
    if (state.Time != 0.0) return false;
    state.Refusal = {};
    FirstBoundaryFill(state);
    StoreInitialState(state);
    state.DTime0 = state.DTime;
    state.Stopped = 0;
    return true;
}

bool ContinueRun(ExperimentState& state) {
    if (state.NStored < 1) return false;
    state.Refusal = {};
    const int last = state.NStored - 1;
    if (state.Stopped != 0 && state.StoredStateNumber != last && IsStored(state, last)) {
        LoadStoredState(state, last);
    }
    state.StoredStateNumber = last;
    state.Time = state.StoredT[last];
    state.Stopped = 0;
    return true;
}

void RestartRun(ExperimentState& state) {
    state.Refusal = {};
    state.TimeToPlot = state.PlotInterval;
    state.Time = 0.0;
    state.TotalMflop = 0.0;
    state.TotalSeconds = 0.0;
    state.Stopped = 1;

    if (IsStored(state, 0)) LoadStoredState(state, 0);
    state.DTime = std::min(FirstTimeStep(state), state.PlotInterval);
    state.DTime0 = state.DTime;
    StoreInitialState(state);
}

void StopRun(ExperimentState& state) {
    state.Stopped = 1;
}

TickResult AdvanceRun(ExperimentState& state, TickArrays& tick) {
    TickResult result;
    const int steps = StepsOfTick(state);
    for (int step = 1; result.GoesOn && step <= steps; ++step) {
        result.GoesOn = TakeTimeStep(state, tick);
        if (!result.GoesOn || state.TimeToPlot > 0.0) continue;

        state.TimeToPlot += state.PlotInterval;  // the overshoot is carried
        SweepAxisRanges(state);
        StoreAtPlotTime(state, result);
        if (state.Time >= state.TStop) {
            result.StatesOnPicture = state.NStored;
            result.GoesOn = false;
        }
    }
    FillBoundaryZones(state);
    SweepAxisRanges(state);
    return result;
}

bool RunToEnd(ExperimentState& state, TickArrays& tick, const std::function<bool()>& mayGoOn) {
    while (state.Stopped == 0 && (!mayGoOn || mayGoOn())) {
        if (AdvanceRun(state, tick).GoesOn) continue;
        StopRun(state);
        return !state.Refusal;
    }
    StopRun(state);
    return false;
}
