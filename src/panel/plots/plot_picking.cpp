#include "panel/plots/plot_picking.h"

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "panel/controls.h"
#include "panel/plots/line_plots.h"
#include "panel/widgets/control_values.h"
#include "panel/widgets/surface.h"

namespace {

void PickInPlot(ExperimentState& state, Controls& controls, const Surface& plot, float x) {
    const double length = state.X[state.NGridCells + 1] - state.X[1];
    const int m = CellAt(state, x / (plot.ScaleWidth() / length));
    if (m < 1) return;
    PickCell(state, controls, m);
    PaintPlots(state, controls);
}

}  // namespace

int CellAt(const ExperimentState& state, double position) {
    int m = 0;
    for (int i = 1; i <= state.NGridCells; ++i) {
        if (position >= state.X[i]) m = i;
    }
    return m;
}

void PickCell(ExperimentState& state, Controls& controls, int m) {
    state.MSelected = m;
    state.RhoSel = state.Rho[m];
    state.PSel = state.P[m];
    state.VxSel = state.Ux[m];
    PutText(controls.txtDensity, FormatNumber(state.RhoSel, "##0.0####"));
    PutText(controls.txtPressure, FormatNumber(state.PSel, "##0.0####"));
    PutText(controls.txtVelocity, FormatNumber(state.VxSel, "##0.0####"));
    PutText(controls.txtMSelected, FormatNumber(m, "###0"));
}

void pctDensityPlot_MouseDown(ExperimentState& state, Controls& controls, float x, float /*y*/) {
    PickInPlot(state, controls, *controls.pctDensityPlot, x);
}

void pctPressurePlot_MouseDown(ExperimentState& state, Controls& controls, float x, float /*y*/) {
    PickInPlot(state, controls, *controls.pctPressurePlot, x);
}

void pctVelocityPlot_MouseDown(ExperimentState& state, Controls& controls, float x, float /*y*/) {
    PickInPlot(state, controls, *controls.pctVelocityPlot, x);
}
