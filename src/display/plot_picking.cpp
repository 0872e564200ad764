#include "display/plot_picking.h"

#include "display/control_values.h"
#include "display/controls.h"
#include "display/line_plots.h"
#include "display/surface.h"
#include "model/experiment_state.h"
#include "model/number_text.h"

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
