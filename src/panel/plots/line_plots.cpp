#include "panel/plots/line_plots.h"

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/picture/line_plot.h"
#include "panel/controls.h"
#include "panel/widgets/control_values.h"
#include "panel/widgets/surface.h"

namespace {

// A plot on the panel: its surface, and the boxes of its limits if it may write them now.
struct Plot {
    LinePlot Kind;
    Surface& Picture;
    QLineEdit* MinBox;
    QLineEdit* MaxBox;
    bool HasBoxes;
};

void ShowSelectedCell(ExperimentState& state, Controls& controls) {
    if (BarValue(controls.hsbMSelected) != state.MSelected) {
        PutBarValue(controls.hsbMSelected, state.MSelected);
    }
    ShowSelectedValues(state, controls);
}

// `lo` and `hi` are read again when the boxes are written: the selected cell's boxes come first,
// and their handlers can widen an axis.
void PaintValues(ExperimentState& state, Controls& controls, const Plot& plot,
                 const OffsetArray<double>& values, const double& lo, const double& hi) {
    if (!plot.Picture.IsUnseen()) {
        const PlotSize size{plot.Picture.ScaleWidth(), plot.Picture.ScaleHeight()};
        DrawPlot(state, values, {lo, hi}, size, plot.Picture.Drawing());
    }
    ShowSelectedCell(state, controls);
    if (!plot.HasBoxes) return;
    const char* format = state.SoundWaveMode == 0 ? "##0.0####" : "##0.0######";
    PutText(plot.MinBox, FormatNumber(lo, format));
    PutText(plot.MaxBox, FormatNumber(hi, format));
}

void PaintPlot(ExperimentState& state, Controls& controls, const Plot& plot) {
    if (state.SoundWaveMode == 0) {
        const PlotQuantity shown = QuantityOf(plot.Kind);
        PaintValues(state, controls, plot, state.*shown.Values, state.*shown.Lo, state.*shown.Hi);
        return;
    }
    const PlotCurve curve = BuildSoundWaveCurve(state, plot.Kind);
    if (plot.Kind == LinePlot::Velocity) {
        state.RMinusMin = curve.Limits.Lo;
        state.RMinusMax = curve.Limits.Hi;
    }
    PaintValues(state, controls, plot, curve.Values, curve.Limits.Lo, curve.Limits.Hi);
}

void SetUnseen(const Controls& controls, bool isUnseen) {
    controls.pctDensityPlot->SetUnseen(isUnseen);
    controls.pctPressurePlot->SetUnseen(isUnseen);
    controls.pctVelocityPlot->SetUnseen(isUnseen);
}

}  // namespace

// Every put can run a handler, which may rewrite the value from the text, so each value is taken
// right before its own put.
void ShowSelectedValues(ExperimentState& state, Controls& controls) {
    state.PSel = state.P[state.MSelected];
    PutText(controls.txtPressure, FormatNumber(state.PSel, "0.0000##"));
    state.RhoSel = state.Rho[state.MSelected];
    PutText(controls.txtDensity, FormatNumber(state.RhoSel, "#0.00####"));
    state.VxSel = state.Ux[state.MSelected];
    PutText(controls.txtVelocity, FormatNumber(state.VxSel, "#0.00####"));
}

PlotsUnseen::PlotsUnseen(Controls& controls)
    : controls_(controls), wereUnseen_(controls.pctDensityPlot->IsUnseen()) {
    SetUnseen(controls_, true);
}

PlotsUnseen::~PlotsUnseen() {
    SetUnseen(controls_, wereUnseen_);
}

void pctDensityPlot_Paint(ExperimentState& state, Controls& controls) {
    PaintPlot(state, controls,
              {LinePlot::Density, *controls.pctDensityPlot, controls.txtDensityMin,
               controls.txtDensityMax, true});
}

void pctPressurePlot_Paint(ExperimentState& state, Controls& controls) {
    PaintPlot(state, controls,
              {LinePlot::Pressure, *controls.pctPressurePlot, controls.txtPressureMin,
               controls.txtPressureMax, true});
}

void pctVelocityPlot_Paint(ExperimentState& state, Controls& controls) {
    // While the space-time picture is big, the two boxes under it belong to it.
    const bool hasBoxes = state.SpaceTimeBig == 0;
    PaintPlot(state, controls,
              {LinePlot::Velocity, *controls.pctVelocityPlot, controls.txtVelocityMin,
               controls.txtVelocityMax, hasBoxes});
}

void PaintPlots(ExperimentState& state, Controls& controls) {
    pctDensityPlot_Paint(state, controls);
    pctPressurePlot_Paint(state, controls);
    pctVelocityPlot_Paint(state, controls);
}

void ClearAndPaintPlots(ExperimentState& state, Controls& controls) {
    controls.pctDensityPlot->Cls();
    pctDensityPlot_Paint(state, controls);
    controls.pctPressurePlot->Cls();
    pctPressurePlot_Paint(state, controls);
    controls.pctVelocityPlot->Cls();
    pctVelocityPlot_Paint(state, controls);
}

void RepaintPlots(ExperimentState& state, Controls& controls) {
    if (state.MultiplePlots == 0) {
        controls.pctDensityPlot->Cls();
        controls.pctPressurePlot->Cls();
        controls.pctVelocityPlot->Cls();
    }
    PaintPlots(state, controls);
}
