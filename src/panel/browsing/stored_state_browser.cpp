#include "panel/browsing/stored_state_browser.h"

#include <optional>

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/run/state_store.h"
#include "panel/controls.h"
#include "panel/plots/line_plots.h"
#include "panel/widgets/control_values.h"

void vsbStoredStateNumber_Change(ExperimentState& state, Controls& controls) {
    if (state.Stopped == 0) return;
    const int s = BarValue(controls.vsbStoredStateNumber);
    if (!IsStored(state, s)) return;

    state.StoredStateNumber = s;
    PutText(controls.txtStoredStateNumber, FormatNumber(s, "###0"));
    PutTime(controls.txtTime, state.StoredT[s]);
    state.StoreOffset = StoreStride(state) * s;
    LoadStoredState(state, s);
    RepaintPlots(state, controls);
}

void vsbStoredStateNumber_Scroll(ExperimentState& state, Controls& controls) {
    vsbStoredStateNumber_Change(state, controls);
}

void txtStoredStateNumber_Change(ExperimentState& state, Controls& controls) {
    if (state.Stopped == 0) return;
    const std::optional<double> number = ReadNumber(TextOf(controls.txtStoredStateNumber));
    if (!number || *number < 0.0) return;
    const int s = RoundToEven(*number);
    if (s > BarMaximum(controls.vsbStoredStateNumber) || !IsStored(state, s)) return;

    state.StoredStateNumber = s;
    if (BarValue(controls.vsbStoredStateNumber) != s) PutBarValue(controls.vsbStoredStateNumber, s);
    PutText(controls.txtTime, "t=" + FormatNumber(state.StoredT[s], "#0.####"));
}
