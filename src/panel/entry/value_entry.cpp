#include "panel/entry/value_entry.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "core/model/experiment_state.h"
#include "core/model/limits.h"
#include "core/model/number_text.h"
#include "core/run/axis_ranges.h"
#include "panel/controls.h"
#include "panel/plots/line_plots.h"
#include "panel/widgets/control_values.h"

namespace {

// A box and a bar that show one quantity on one axis.
struct ValuePair {
    QLineEdit* Box;
    QScrollBar* Bar;
    int& BoxBusy;
    int& BarBusy;
    double& Quantity;
    double& Lo;
    double& Hi;
    bool ClampAtZero;
};

ValuePair Density(ExperimentState& state, const Controls& controls) {
    return {controls.txtDensity, controls.hsbDensity, state.txtDensityBusy, state.hsbDensityBusy,
            state.RhoSel,        state.RhoMin,        state.RhoMax,         true};
}

ValuePair Pressure(ExperimentState& state, const Controls& controls) {
    return {controls.txtPressure,
            controls.hsbPressure,
            state.txtPressureBusy,
            state.hsbPressureBusy,
            state.PSel,
            state.PMin,
            state.PMax,
            true};
}

ValuePair Velocity(ExperimentState& state, const Controls& controls) {
    return {
        controls.txtVelocity, controls.hsbVelocity, state.txtVelocityBusy, state.hsbVelocityBusy,
        state.VxSel,          state.VXMin,          state.VXMax,           false};
}

// The box's side: the quantity takes the number, its axis follows, and the bar moves unless it is
// the bar that wrote the box, or a run is going.
void TakeNumber(const ExperimentState& state, const ValuePair& pair, double number) {
    pair.BoxBusy = 1;
    pair.Quantity = number;
    GrowAxisRange(pair.Quantity, pair.Lo, pair.Hi, pair.ClampAtZero);
    if (pair.BarBusy == 0 && state.Stopped == 1) {
        PutBarValue(pair.Bar, ValueBarPosition(pair.Bar, pair.Quantity, pair.Lo, pair.Hi));
    }
    pair.BoxBusy = 0;
}

// The bar's side. The box's handler takes the quantity back from the text, which rounds it to what
// is shown; where the text stays the same the quantity keeps the bar's finer value.
void TakeBar(const ValuePair& pair) {
    pair.BarBusy = 1;
    if (pair.BoxBusy == 0) {
        const double low = BarMinimum(pair.Bar);
        const double part = (BarValue(pair.Bar) - low) / (BarMaximum(pair.Bar) - low);
        pair.Quantity = (pair.Hi - pair.Lo) * part + pair.Lo;
        PutText(pair.Box, FormatNumber(pair.Quantity, "##0.0####"));
    }
    pair.BarBusy = 0;
}

}  // namespace

std::optional<double> ValueIn(const QLineEdit* box) {
    const std::optional<double> number = ReadNumber(TextOf(box));
    if (!number || std::abs(*number) > LargestValue) return std::nullopt;
    return number;
}

std::optional<int> CellIn(const ExperimentState& state, const QLineEdit* box) {
    const std::optional<double> number = ReadNumber(TextOf(box));
    if (!number || *number <= 0.0) return std::nullopt;
    const int cell = RoundToEven(*number);
    if (cell < 1 || cell > state.NGridCells) return std::nullopt;
    return cell;
}

int ValueBarPosition(const QScrollBar* bar, double v, double lo, double hi) {
    const double part = (v - lo) / (hi - lo);
    const double low = BarMinimum(bar);
    return RoundToEven((BarMaximum(bar) - low) * part + low);
}

void SetValueBarRange(QScrollBar* bar) {
    PutBarRange(bar, -10000, 10000);
    PutBarSteps(bar, 10, 50);
}

void SetCellBarRange(const ExperimentState& state, Controls& controls) {
    const int n = state.NGridCells;
    PutBarSteps(controls.hsbMSelected, 1, std::max(1, RoundToEven(n / 25.0)));
    PutBarRange(controls.hsbMSelected, 1, n);
}

void txtDensity_Change(ExperimentState& state, Controls& controls) {
    const std::optional<double> number = ValueIn(controls.txtDensity);
    if (!number || *number <= 0.0) return;
    TakeNumber(state, Density(state, controls), std::max(*number, state.RhoFloor));
}

void txtPressure_Change(ExperimentState& state, Controls& controls) {
    const std::optional<double> number = ValueIn(controls.txtPressure);
    if (!number) return;
    TakeNumber(state, Pressure(state, controls), std::max(*number, state.PFloor));
}

void txtVelocity_Change(ExperimentState& state, Controls& controls) {
    const std::optional<double> number = ValueIn(controls.txtVelocity);
    if (!number) return;
    TakeNumber(state, Velocity(state, controls), std::abs(*number) < state.VFloor ? 0.0 : *number);
}

void hsbDensity_Change(ExperimentState& state, Controls& controls) {
    TakeBar(Density(state, controls));
}

void hsbPressure_Change(ExperimentState& state, Controls& controls) {
    TakeBar(Pressure(state, controls));
}

void hsbVelocity_Change(ExperimentState& state, Controls& controls) {
    TakeBar(Velocity(state, controls));
}

void hsbMSelected_Change(ExperimentState& state, Controls& controls) {
    state.hsbMSelectedBusy = 1;
    // The bar can still have the range of another grid.
    state.MSelected = std::clamp(BarValue(controls.hsbMSelected), 1, state.NGridCells);
    if (state.txtMSelectedBusy == 0) {
        PutText(controls.txtMSelected, FormatNumber(state.MSelected, "###0"));
    }
    state.RhoSel = state.Rho[state.MSelected];
    PutText(controls.txtDensity, FormatNumber(state.RhoSel, "##0.0####"));
    state.PSel = state.P[state.MSelected];
    PutText(controls.txtPressure, FormatNumber(state.PSel, "##0.0####"));
    state.VxSel = state.Ux[state.MSelected];
    PutText(controls.txtVelocity, FormatNumber(state.VxSel, "##0.0####"));
    state.hsbMSelectedBusy = 0;
}

void txtMSelected_Change(ExperimentState& state, Controls& controls) {
    const std::optional<int> cell = CellIn(state, controls.txtMSelected);
    if (!cell) return;

    state.txtMSelectedBusy = 1;
    state.MSelected = *cell;
    if (state.hsbMSelectedBusy == 0 && BarValue(controls.hsbMSelected) != state.MSelected) {
        PutBarValue(controls.hsbMSelected, state.MSelected);
    }
    ShowSelectedValues(state, controls);
    RepaintPlots(state, controls);
    state.txtMSelectedBusy = 0;
}

void hsbDensity_Scroll(ExperimentState& state, Controls& controls) {
    hsbDensity_Change(state, controls);
}

void hsbPressure_Scroll(ExperimentState& state, Controls& controls) {
    hsbPressure_Change(state, controls);
}

void hsbVelocity_Scroll(ExperimentState& state, Controls& controls) {
    hsbVelocity_Change(state, controls);
}

void hsbMSelected_Scroll(ExperimentState& state, Controls& controls) {
    hsbMSelected_Change(state, controls);
}
