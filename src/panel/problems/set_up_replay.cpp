#include "panel/problems/set_up_replay.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "core/model/experiment_state.h"
#include "core/model/gas.h"
#include "core/model/number_text.h"
#include "core/run/axis_ranges.h"
#include "core/run/first_step.h"
#include "core/run/state_store.h"
#include "core/setup/grid.h"
#include "core/setup/smoke.h"
#include "panel/controls.h"
#include "panel/entry/run_parameters.h"
#include "panel/entry/value_entry.h"
#include "panel/plots/experiment_caption.h"
#include "panel/plots/line_plots.h"
#include "panel/problems/busy_pointer.h"
#include "panel/problems/point_buttons.h"
#include "panel/widgets/control_values.h"

namespace {

// Least and greatest value so far of one quantity of the control points.
struct Extremes {
    double Least;
    double Greatest;

    void TakeIn(double v) {
        Least = std::min(Least, v);
        Greatest = std::max(Greatest, v);
    }

    // The axis that shows them; `noSpan` is its margin when they are equal.
    void SetAxis(double noSpan, double& lo, double& hi) const {
        const double span = (Greatest - Least) * AxisMargin;
        const double d = span > 0.0 ? span : VisibleMargin(noSpan, Greatest);
        hi = Greatest + d;
        lo = Least - d;
    }
};

struct ExtremesOfPoints {
    Extremes Rho, P, Vx;
};

void FillFromList(ExperimentState& state) {
    const int n = state.NGridCells;
    for (int i = 0; i <= n + 1; ++i) {
        const int entry = i < n ? 0 : 1;
        state.Rho[i] = state.RhoSelList[entry];
        state.P[i] = state.PSelList[entry];
        state.Ux[i] = state.VxSelList[entry];
        state.Uy[i] = 0.0;
        state.FSmoke[i] = 0.0;
        RefreshSoundSpeed(state, i);
    }
}

// A box step of the replay: the handler runs even if the text was there already.
template <typename Change>
void PutAndRun(ExperimentState& state, Controls& controls, QLineEdit* box, const std::string& text,
               Change change) {
    PutText(box, text);
    change(state, controls);
}

void ReplayPoint(ExperimentState& state, Controls& controls, int k, ExtremesOfPoints& extremes) {
    state.MSelected = state.MSelList[k];
    PutAndRun(state, controls, controls.txtMSelected, FormatNumber(state.MSelected, "###0"),
              txtMSelected_Change);
    state.PSel = state.PSelList[k];
    state.P[state.MSelected] = state.PSel;
    extremes.P.TakeIn(state.PSel);
    extremes.P.SetAxis(extremes.P.Greatest * AxisMargin, state.PMin, state.PMax);

    state.VxSel = state.VxSelList[k];
    state.Ux[state.MSelected] = state.VxSel;
    extremes.Vx.TakeIn(state.VxSel);
    const double soundSpeed = std::sqrt(state.P[1] * state.Gamma / state.Rho[1]);
    extremes.Vx.SetAxis(AxisMargin * soundSpeed, state.VXMin, state.VXMax);
    state.Uy[state.MSelected] = 0.0;
    state.FSmoke[state.MSelected] = 0.0;
    state.NGridCellsD = state.NGridCells;

    state.RhoSel = state.RhoSelList[k];
    state.Rho[state.MSelected] = state.RhoSel;
    extremes.Rho.TakeIn(state.RhoSel);
    extremes.Rho.SetAxis(extremes.Rho.Greatest * AxisMargin, state.RhoMin, state.RhoMax);

    PutAndRun(state, controls, controls.txtPressure, FormatNumber(state.PSel, "0.0000##"),
              txtPressure_Change);
    PutAndRun(state, controls, controls.txtDensity, FormatNumber(state.RhoSel, "#0.0000##"),
              txtDensity_Change);
    PutAndRun(state, controls, controls.txtVelocity, FormatNumber(state.VxSel, "#0.0000##"),
              txtVelocity_Change);
    cmdSelect_Click(state, controls);
}

void ReplayPoints(ExperimentState& state, Controls& controls) {
    ExtremesOfPoints extremes{{state.RhoSelList[1], state.RhoSelList[1]},
                              {state.PSelList[1], state.PSelList[1]},
                              {state.VxSelList[1], state.VxSelList[1]}};
    const int count = state.NSelected;
    if (count == 0) return;
    {
        // Every pass clears the plots before it paints them, and nothing is shown in between: only
        // what the last one draws is ever seen.
        const PlotsUnseen unseen(controls);
        for (int k = 1; k < count; ++k) ReplayPoint(state, controls, k, extremes);
    }
    ReplayPoint(state, controls, count, extremes);
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
    const BusyPointer busy(state);
    AllocateArrays(state);
    InitSmokePattern(state);
    FillFromList(state);
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

    state.DTime = FirstTimeStep(state);
    SetPeriodClock(state, 1.0 / state.C[1]);
    TakeSnapshot(state, 0);
    ComposeExperimentCaption(state, controls);
    if (state.NSelected == 0) ShowBareGrid(state, controls);
}
