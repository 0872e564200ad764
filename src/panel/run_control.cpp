#include "panel/run_control.h"

#include <algorithm>

#include "display/control_values.h"
#include "display/controls.h"
#include "display/experiment_caption.h"
#include "display/line_plots.h"
#include "integration/axis_ranges.h"
#include "integration/boundary_zones.h"
#include "integration/state_store.h"
#include "model/experiment_state.h"
#include "model/number_text.h"
#include "setup/grid.h"

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
