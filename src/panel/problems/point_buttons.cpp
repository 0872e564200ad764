#include "panel/problems/point_buttons.h"

#include <algorithm>
#include <optional>

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/model/run_stage.h"
#include "core/run/axis_ranges.h"
#include "core/setup/control_points.h"
#include "core/setup/point_replay.h"
#include "panel/controls.h"
#include "panel/entry/value_entry.h"
#include "panel/plots/experiment_caption.h"
#include "panel/plots/line_plots.h"
#include "panel/problems/busy_pointer.h"
#include "panel/widgets/control_values.h"

namespace {

PointValues ValuesOfBoxes(const ExperimentState& state, const Controls& controls) {
    const double rho = ValueIn(controls.txtDensity).value_or(state.RhoSel);
    const double p = ValueIn(controls.txtPressure).value_or(state.PSel);
    const double vx = ValueIn(controls.txtVelocity).value_or(state.VxSel);
    return {std::max(rho > 0.0 ? rho : state.RhoSel, state.RhoFloor), std::max(p, state.PFloor),
            vx};
}

void ShowPoint(Controls& controls, int cell, const PointValues& values) {
    PutText(controls.txtMSelected, GeneralNumber(cell));
    PutText(controls.txtDensity, GeneralNumber(values.Rho));
    PutText(controls.txtPressure, GeneralNumber(values.P));
    PutText(controls.txtVelocity, GeneralNumber(values.Vx));
}

// Takes a cell off the list if it is there, and shows what stands then. Cell 0 never is.
void DeselectCell(ExperimentState& state, Controls& controls, int cell) {
    DeselectPoint(state, cell);
    ComposeExperimentCaption(state, controls);
    ClearAndPaintPlots(state, controls);
}

}  // namespace

void cmdSelect_Click(ExperimentState& state, Controls& controls) {
    if (!IsBeforeRun(state)) return;
    const int m = state.MSelected;
    const PointValues values = ValuesOfBoxes(state, controls);
    TakeIntoRange(values.Rho, state.RhoMin, state.RhoMax);
    TakeIntoRange(values.P, state.PMin, state.PMax);
    TakeIntoRange(values.Vx, state.VXMin, state.VXMax);

    // A point is never edited in place: it is taken off and put on anew. Which one, the selected
    // cell tells: the box can still hold a text that was refused on a smaller grid.
    if (FindControlPoint(state, m) > 0) DeselectCell(state, controls, m);
    SelectPoint(state, m, values);
    ShowPoint(controls, m, values);
    ComposeExperimentCaption(state, controls);
    ClearAndPaintPlots(state, controls);
}

void cmdDeselect_Click(ExperimentState& state, Controls& controls) {
    const std::optional<int> cell = CellIn(state, controls.txtMSelected);
    if (cell) state.MSelected = *cell;
    DeselectCell(state, controls, cell.value_or(0));
}

void cmdReset_Click(ExperimentState& state, Controls& controls) {
    if (!IsBeforeRun(state)) return;
    const BusyPointer busy(state);
    {
        const PlotsUnseen unseen(controls);
        for (int k = state.NSelected - 1; k >= 2; --k) {
            PutText(controls.txtMSelected, GeneralNumber(state.MSelList[k]));
            cmdDeselect_Click(state, controls);
        }
    }
    ClearAndPaintPlots(state, controls);
}
