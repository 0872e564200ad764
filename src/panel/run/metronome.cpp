#include "panel/run/metronome.h"

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/run/run.h"
#include "core/run/tick_arrays.h"
#include "loading/scheme_loader.h"
#include "panel/controls.h"
#include "panel/picture/space_time_view.h"
#include "panel/plots/experiment_caption.h"
#include "panel/plots/line_plots.h"
#include "panel/run/meter_display.h"
#include "panel/widgets/control_values.h"

namespace {

// While the run still goes on, so that the handlers of the bar and the boxes leave it alone.
void ShowProgress(const ExperimentState& state, Controls& controls, const TickResult& result) {
    PutTime(controls.txtTime, state.Time);
    if (!result.HasStored) return;
    PutBarRange(controls.vsbStoredStateNumber, 0, state.NStored - 1);
    PutText(controls.txtStoredStateNumber, GeneralNumber(state.StoredStateNumber));
}

}  // namespace

void tmrMetronome_Timer(ExperimentState& state, Controls& controls) {
    if (state.Stopped != 0) return;
    TickArrays tick(state, LoadSchemeLibrary(state.SchemeName));
    const TickResult result = AdvanceRun(state, tick);

    if (state.MeterOn > 0 && tick.Library.IsLoaded()) ShowMeter(state, controls, tick);
    ShowProgress(state, controls, result);
    if (!result.GoesOn) StopRun(state);
    if (state.Refusal) ShowRefusal(state, controls);
    PaintFirstStatesWhenSeen(state, controls, result.StatesOnPicture);
    state.MultiplePlots = 0;
    ClearAndPaintPlots(state, controls);
}
