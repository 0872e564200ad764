#include "panel/problems/set_up_replay.h"

#include <tuple>

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/run/state_store.h"
#include "core/setup/point_replay.h"
#include "panel/controls.h"
#include "panel/entry/run_parameters.h"
#include "panel/entry/value_entry.h"
#include "panel/plots/experiment_caption.h"
#include "panel/plots/line_plots.h"
#include "panel/problems/point_buttons.h"
#include "panel/widgets/control_values.h"

namespace {

// A box step of the replay: the handler runs even if the text was there already.
template <typename Change>
void PutAndRun(ExperimentState& state, Controls& controls, QLineEdit* box, const std::string& text,
               Change change) {
    PutText(box, text);
    change(state, controls);
}

// Through the boxes, as if the user had entered the point.
void ReplayThroughBoxes(ExperimentState& state, Controls& controls, int k,
                        PointExtremes& extremes) {
    state.MSelected = state.MSelList[k];
    PutAndRun(state, controls, controls.txtMSelected, FormatNumber(state.MSelected, "###0"),
              txtMSelected_Change);
    EnterPoint(state, k, extremes);
    PutAndRun(state, controls, controls.txtPressure, FormatNumber(state.PSel, "0.0000##"),
              txtPressure_Change);
    PutAndRun(state, controls, controls.txtDensity, FormatNumber(state.RhoSel, "#0.0000##"),
              txtDensity_Change);
    PutAndRun(state, controls, controls.txtVelocity, FormatNumber(state.VxSel, "#0.0000##"),
              txtVelocity_Change);
    cmdSelect_Click(state, controls);
}

// What the boxes make of a point is known, and nothing is shown in between: only the last one has
// to go through them.
void ReplayPoints(ExperimentState& state, Controls& controls) {
    const int count = state.NSelected;
    if (count == 0) return;
    PointExtremes extremes(state);
    ReplayFirstPoints(state, count - 1, extremes);
    ReplayThroughBoxes(state, controls, count, extremes);
    PutAndRun(state, controls, controls.txtNPeriods, GeneralNumber(state.Periods),
              txtNPeriods_Change);
    PutAndRun(state, controls, controls.txtNPlotsPerPeriod, GeneralNumber(state.NPlotsPerPeriod),
              txtNPlotsPerPeriod_Change);
}

// Shows a grid without points, which no Select has shown, on the axes as they are: those of a file,
// perhaps. A paint that puts another value into a box widens its axis, so the boxes come first.
void ShowBareGrid(ExperimentState& state, Controls& controls) {
    auto axes =
        std::tie(state.RhoMin, state.RhoMax, state.PMin, state.PMax, state.VXMin, state.VXMax);
    const std::tuple<double, double, double, double, double, double> former = axes;
    {
        const PlotsUnseen unseen(controls);
        PaintPlots(state, controls);
    }
    axes = former;
    ClearAndPaintPlots(state, controls);
}

}  // namespace

void ApplySetUp(ExperimentState& state, Controls& controls) {
    LayBareGrid(state);
    PutText(controls.txtCourantNumber, FormatNumber(state.CourantNumber, "#0.0#"));
    // Another grid size runs that box's handler, which lays the bar of the cells and calls back
    // here. Away from Time 0 it does neither, and the bar would keep the range of another grid.
    PutText(controls.txtNGridCells, GeneralNumber(state.NGridCells));
    if (BarMaximum(controls.hsbMSelected) != state.NGridCells) SetCellBarRange(state, controls);

    state.MSelected = state.NGridCells / 2;
    state.NGridCellsD = state.NGridCells;
    state.Stopped = 1;
    EmptyStore(state);
    state.MultiplePlots = 0;
    ReplayPoints(state, controls);

    FinishReplay(state);
    state.Refusal = {};
    ComposeExperimentCaption(state, controls);
    if (state.NSelected == 0) ShowBareGrid(state, controls);
}
