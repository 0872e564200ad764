#include "integration/metronome.h"

#include <algorithm>
#include <string>

#include "display/control_values.h"
#include "display/controls.h"
#include "display/experiment_caption.h"
#include "display/line_plots.h"
#include "display/space_time_view.h"
#include "integration/axis_ranges.h"
#include "integration/boundary_zones.h"
#include "integration/meter_display.h"
#include "integration/state_store.h"
#include "integration/tick_arrays.h"
#include "integration/time_step.h"
#include "model/experiment_state.h"
#include "model/number_text.h"

namespace {

// Stores the state that a plot time has brought, if there is room, and shows its number. True if
// the picture is to be repainted: a coarse grid, whose states come fast, repaints it only every so
// many states.
bool StoreAtPlotTime(ExperimentState& state, Controls& controls) {
    state.StoreOffset = (state.NGridCells + 2) * state.NStored;
    if (!StoreHasRoom(state)) return false;
    StoreState(state);
    PutBarRange(controls.vsbStoredStateNumber, 0, state.NStored - 1);
    PutText(controls.txtStoredStateNumber, GeneralNumber(state.StoredStateNumber));
    const int statesPerPaint = std::max(1000 / state.NGridCells, 1);
    return state.NStored % statesPerPaint == 0;
}

// In the place of the experiment's caption, as the meter's figures: a box would wait for an answer
// in the middle of the tick.
void SayWhyNoStep(ExperimentState& state, Controls& controls, const TickArrays& tick) {
    ShowStopMessage(state, controls,
                    "The run has stopped: " + tick.Refusal +
                        ".\r\nPress Restart, then choose a scheme by the red button below.");
}

// Runs the steps of the tick; the end of the run cuts them short. Gives the number of states on the
// last picture that falls into the tick, 0 if none does.
int RunSteps(ExperimentState& state, Controls& controls) {
    TickArrays tick(state);
    int statesOnPicture = 0;
    const int steps = StepsOfTick(state);
    for (int step = 1; step <= steps; ++step) {
        const bool stepTaken = TakeTimeStep(state, tick);
        if (state.MeterOn > 0 && tick.Library.IsLoaded()) ShowMeter(state, controls, tick);
        if (!stepTaken) {
            state.Stopped = 1;
            SayWhyNoStep(state, controls, tick);
            break;
        }
        PutTime(controls.txtTime, state.Time);
        if (state.TimeToPlot > 0.0) continue;

        state.TimeToPlot += state.PlotInterval;  // the overshoot is carried
        SweepAxisRanges(state);
        if (StoreAtPlotTime(state, controls)) statesOnPicture = state.NStored;
        if (state.Time >= state.TStop) {
            statesOnPicture = state.NStored;
            state.Stopped = 1;
            break;
        }
    }
    return statesOnPicture;
}

}  // namespace

void tmrMetronome_Timer(ExperimentState& state, Controls& controls) {
    if (state.Stopped != 0) return;
    // Nobody sees the screen during a tick: of several pictures only the last is worth its paint.
    const int statesOnPicture = RunSteps(state, controls);
    PaintFirstStates(state, controls, statesOnPicture);

    FillBoundaryZones(state);
    SweepAxisRanges(state);
    state.MultiplePlots = 0;
    ClearAndPaintPlots(state, controls);
}
