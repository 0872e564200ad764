#include "integration/metronome.h"

#include <algorithm>

#include "display/control_values.h"
#include "display/controls.h"
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

// Stores the state that a plot time has brought, if there is room, and shows its number. A coarse
// grid, whose states come fast, repaints the picture only every so many states.
void StoreAtPlotTime(ExperimentState& state, Controls& controls) {
    if (!StoreHasRoom(state)) return;
    StoreState(state);
    PutBarRange(controls.vsbStoredStateNumber, 0, state.NStored - 1);
    PutText(controls.txtStoredStateNumber, GeneralNumber(state.StoredStateNumber));
    const int statesPerPaint = std::max(1000 / state.NGridCells, 1);
    if (state.NStored % statesPerPaint == 0) pctSpaceTime_Paint(state, controls);
}

// Runs the steps of the tick; the end of the run cuts them short.
void RunSteps(ExperimentState& state, Controls& controls) {
    TickArrays tick(state);
    const int steps = StepsOfTick(state);
    for (int step = 1; step <= steps; ++step) {
        const bool stepTaken = TakeTimeStep(state, tick);
        if (state.MeterOn > 0 && tick.Library.IsLoaded()) ShowMeter(state, controls, tick);
        if (!stepTaken) {
            state.Stopped = 1;
            return;
        }
        PutTime(controls.txtTime, state.Time);
        if (state.TimeToPlot > 0.0) continue;

        state.TimeToPlot += state.PlotInterval;  // the overshoot is carried
        SweepAxisRanges(state);
        StoreAtPlotTime(state, controls);
        if (state.Time >= state.TStop) {
            pctSpaceTime_Paint(state, controls);
            state.Stopped = 1;
            return;
        }
    }
}

}  // namespace

void tmrMetronome_Timer(ExperimentState& state, Controls& controls) {
    if (state.Stopped != 0) return;
    RunSteps(state, controls);
    FillBoundaryZones(state);
    SweepAxisRanges(state);
    state.MultiplePlots = 0;
    ClearAndPaintPlots(state, controls);
}
