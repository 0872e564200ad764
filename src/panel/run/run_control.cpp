#include "panel/run/run_control.h"

#include <algorithm>

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/run/axis_ranges.h"
#include "core/run/boundary_zones.h"
#include "core/run/state_store.h"
#include "core/setup/grid.h"
#include "panel/controls.h"
#include "panel/plots/experiment_caption.h"
#include "panel/plots/line_plots.h"
#include "panel/widgets/control_values.h"

namespace {

// Makes the present fields stored state 0 of an empty store, and the axes those of this state.
void StoreInitialState(ExperimentState& state) {
    AllocateStore(state);
    TakeSnapshot(state, 0);
    state.StoreOffset = state.NGridCells + 2;
    ResetAxisRanges(state);
}

}  // namespace

void cmdBegin_Click(ExperimentState& state, Controls& controls) {
    if (state.Time != 0.0) return;
    FirstBoundaryFill(state);
    StoreInitialState(state);
    state.DTime0 = state.DTime;
    PutCaption(controls.cmdNumericalScheme, state.SchemeName);
    ComposeExperimentCaption(state, controls);
    state.NStored = 1;
    state.Stopped = 0;
}

void cmdPause_Click(ExperimentState& state, Controls& /*controls*/) {
    state.Stopped = 1;
}

void cmdContinue_Click(ExperimentState& state, Controls& controls) {
    if (state.NStored < 1) return;
    TakeStopMessageAway(state, controls);
    state.StoredStateNumber = state.NStored - 1;
    state.Time = state.StoredT[state.NStored - 1];
    // Still stopped, if it was: the box's handler then brings the last state back after browsing.
    PutText(controls.txtStoredStateNumber, GeneralNumber(state.StoredStateNumber));
    state.Stopped = 0;
}

void cmdRestart_Click(ExperimentState& state, Controls& controls) {
    TakeStopMessageAway(state, controls);
    state.TimeToPlot = state.PlotInterval;
    state.Time = 0.0;
    state.TotalMflop = 0.0;
    state.TotalSeconds = 0.0;
    state.Stopped = 1;

    if (IsStored(state, 0)) LoadStoredState(state, 0);
    const double crossing =
        ShortestCrossingTime(state, (state.X[2] - state.X[1]) / state.SoundSpeed0);
    state.DTime = (state.CourantNumber * 0.1) * crossing;
    StoreInitialState(state);
    state.NStored = 1;
    state.DTime = std::min(state.DTime, state.PlotInterval);
    state.DTime0 = state.DTime;

    PutTime(controls.txtTime, state.Time);
    PutBarRange(controls.vsbStoredStateNumber, 0, state.NStored - 1);
    PutText(controls.txtCourantNumber, FormatNumber(state.CourantNumber, "#0.0##"));
    ClearAndPaintPlots(state, controls);
}
