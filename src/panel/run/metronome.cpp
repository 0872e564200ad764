#include "panel/run/metronome.h"

#include <algorithm>
#include <string>

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/run/axis_ranges.h"
#include "core/run/boundary_zones.h"
#include "core/run/state_store.h"
#include "core/run/tick_arrays.h"
#include "core/run/time_step.h"
#include "panel/controls.h"
#include "panel/picture/space_time_view.h"
#include "panel/plots/experiment_caption.h"
#include "panel/plots/line_plots.h"
#include "panel/run/meter_display.h"
#include "panel/widgets/control_values.h"

namespace {

// What a tick has to show at its end: nobody sees the screen meanwhile.
struct TickOutcome {
    bool HasStored = false;
    int StatesOnPicture = 0;  // on the last picture that falls into the tick, 0 if none does
};

// Stores the state that a plot time has brought, if there is room. A coarse grid, whose states come
// fast, repaints the picture only every so many states.
void StoreAtPlotTime(ExperimentState& state, TickOutcome& outcome) {
    state.StoreOffset = (state.NGridCells + 2) * state.NStored;
    if (!StoreHasRoom(state)) return;
    StoreState(state);
    outcome.HasStored = true;
    const int statesPerPaint = std::max(1000 / state.NGridCells, 1);
    if (state.NStored % statesPerPaint == 0) outcome.StatesOnPicture = state.NStored;
}

// While the run still goes on, so that the handlers of the bar and the boxes leave it alone.
void ShowProgress(const ExperimentState& state, Controls& controls, const TickOutcome& outcome) {
    PutTime(controls.txtTime, state.Time);
    if (!outcome.HasStored) return;
    PutBarRange(controls.vsbStoredStateNumber, 0, state.NStored - 1);
    PutText(controls.txtStoredStateNumber, GeneralNumber(state.StoredStateNumber));
}

// In the place of the experiment's caption, as the meter's figures: a box would wait for an answer
// in the middle of the tick.
void SayWhyNoStep(ExperimentState& state, Controls& controls, const TickArrays& tick) {
    ShowStopMessage(state, controls,
                    "The run has stopped: " + tick.Refusal +
                        ".\r\nPress Restart, then choose a scheme by the red button below.");
}

// Runs the steps of the tick; the end of the run cuts them short.
TickOutcome RunSteps(ExperimentState& state, Controls& controls) {
    TickArrays tick(state);
    TickOutcome outcome;
    bool goesOn = true;
    bool stepTaken = true;
    const int steps = StepsOfTick(state);
    for (int step = 1; goesOn && step <= steps; ++step) {
        stepTaken = TakeTimeStep(state, tick);
        if (state.MeterOn > 0 && tick.Library.IsLoaded()) ShowMeter(state, controls, tick);
        goesOn = stepTaken;
        if (!stepTaken || state.TimeToPlot > 0.0) continue;

        state.TimeToPlot += state.PlotInterval;  // the overshoot is carried
        SweepAxisRanges(state);
        StoreAtPlotTime(state, outcome);
        if (state.Time >= state.TStop) {
            outcome.StatesOnPicture = state.NStored;
            goesOn = false;
        }
    }
    ShowProgress(state, controls, outcome);
    if (!goesOn) state.Stopped = 1;
    if (!stepTaken) SayWhyNoStep(state, controls, tick);
    return outcome;
}

}  // namespace

void tmrMetronome_Timer(ExperimentState& state, Controls& controls) {
    if (state.Stopped != 0) return;
    const TickOutcome outcome = RunSteps(state, controls);
    PaintFirstStatesWhenSeen(state, controls, outcome.StatesOnPicture);

    FillBoundaryZones(state);
    SweepAxisRanges(state);
    state.MultiplePlots = 0;
    ClearAndPaintPlots(state, controls);
}
