#include "panel/problems/panel_fill.h"

#include <algorithm>

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "panel/controls.h"
#include "panel/entry/value_entry.h"
#include "panel/widgets/control_values.h"

namespace {

struct ValueControls {
    QScrollBar* Bar;
    QLineEdit* Box;
    QLineEdit* MinBox;
    QLineEdit* MaxBox;
    const char* Format;
};

// The value and its axis are read afresh for every put: a handler may have changed them.
void FillValue(const ValueControls& row, const double& value, const double& lo, const double& hi) {
    SetValueBarRange(row.Bar);
    PutBarValue(row.Bar, ValueBarPosition(row.Bar, value, lo, hi));
    PutText(row.Box, FormatNumber(value, row.Format));
    PutText(row.MinBox, FormatNumber(lo, "##0.0####"));
    PutText(row.MaxBox, FormatNumber(hi, "##0.0####"));
}

}  // namespace

void FillValueControls(ExperimentState& state, Controls& controls) {
    FillValue({controls.hsbDensity, controls.txtDensity, controls.txtDensityMin,
               controls.txtDensityMax, "##0.0####"},
              state.RhoSel, state.RhoMin, state.RhoMax);
    FillValue({controls.hsbPressure, controls.txtPressure, controls.txtPressureMin,
               controls.txtPressureMax, "##0.0####"},
              state.PSel, state.PMin, state.PMax);
    FillValue({controls.hsbVelocity, controls.txtVelocity, controls.txtVelocityMin,
               controls.txtVelocityMax, "#0.00####"},
              state.VxSel, state.VXMin, state.VXMax);
}

void FillCellControls(ExperimentState& state, Controls& controls) {
    const int m = state.MSelected;
    SetCellBarRange(state, controls);
    state.MSelected = m;
    PutText(controls.txtMSelected, FormatNumber(state.MSelected, "###0"));
    PutBarValue(controls.hsbMSelected, state.MSelected);
}

void FillRunControls(ExperimentState& state, Controls& controls) {
    state.MSecMin = 1;
    state.MSecMax = 2000;
    state.MSec = 5;
    PutText(controls.txtMSec, FormatNumber(state.MSec, "###0"));
    state.DTime = std::min(state.DTime, state.PlotInterval);
    state.DTime0 = state.DTime;
    PutTime(controls.txtTime, state.Time);
    PutBarRange(controls.vsbStoredStateNumber, 0, state.NStored);
    PutText(controls.txtCourantNumber, FormatNumber(state.CourantNumber, "#0.0##"));
}
