#include "panel/run/run_control.h"

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/run/run.h"
#include "panel/controls.h"
#include "panel/entry/memory_refusal.h"
#include "panel/plots/experiment_caption.h"
#include "panel/plots/line_plots.h"
#include "panel/widgets/control_values.h"

void cmdBegin_Click(ExperimentState& state, Controls& controls) {
    if (state.Time != 0.0 || !FindsMemory(state, controls, "Begin") || !BeginRun(state)) return;
    PutCaption(controls.cmdNumericalScheme, state.SchemeName);
    ComposeExperimentCaption(state, controls);
}

void cmdPause_Click(ExperimentState& state, Controls& /*controls*/) {
    StopRun(state);
}

void cmdContinue_Click(ExperimentState& state, Controls& controls) {
    if (state.NStored < 1) return;
    HideRefusal(controls);
    // Still stopped, if it was: the box's handler then brings the last state back after browsing.
    state.StoredStateNumber = state.NStored - 1;
    PutText(controls.txtStoredStateNumber, GeneralNumber(state.StoredStateNumber));
    state.StoredStateNumber = state.NStored - 1;
    ContinueRun(state);
}

void cmdRestart_Click(ExperimentState& state, Controls& controls) {
    if (!FindsMemory(state, controls, "Restart")) return;
    HideRefusal(controls);
    RestartRun(state);
    PutTime(controls.txtTime, state.Time);
    PutBarRange(controls.vsbStoredStateNumber, 0, state.NStored - 1);
    PutText(controls.txtCourantNumber, FormatNumber(state.CourantNumber, "#0.0##"));
    ClearAndPaintPlots(state, controls);
}
