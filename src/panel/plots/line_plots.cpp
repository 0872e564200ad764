#include "panel/plots/line_plots.h"

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/picture/plot_curves.h"
#include "panel/controls.h"
#include "panel/widgets/control_values.h"
#include "panel/widgets/surface.h"

namespace {

constexpr float MarkSize = 100.0F;  // twips
constexpr float MarkHalf = MarkSize / 2.0F;

// One of the three plots: its surface, the boxes of its limits, and whether these are its own now.
struct Plot {
    Surface& Picture;
    QLineEdit* MinBox;
    QLineEdit* MaxBox;
    bool HasBoxes;
};

using Values = OffsetArray<double>;

float Coordinate(int whole) {
    return static_cast<float>(whole);
}

void DrawCurve(const ExperimentState& state, const PlotScale& scale, const Values& v,
               Surface& picture) {
    const int n = state.NGridCells;
    picture.LineFrom(0.0F, Coordinate(scale.Y((v[1] + v[0]) * 0.5)), Coordinate(scale.X(state, 1)),
                     Coordinate(scale.Y(v[1])));
    for (int i = 2; i <= n; ++i) {
        picture.LineOn(Coordinate(scale.X(state, i)), Coordinate(scale.Y(v[i])));
    }
    picture.LineOn(Coordinate(scale.Edge(state.X[n + 1])),
                   Coordinate(scale.Y((v[n + 1] + v[n]) * 0.5)));
}

void DrawMarks(const ExperimentState& state, const PlotScale& scale, const Values& v,
               Surface& picture) {
    const auto left = [&](int m) { return Coordinate(scale.X(state, m)) - MarkHalf; };
    const auto top = [&](int m) { return Coordinate(scale.Y(v[m])) - MarkHalf; };
    if (state.SoundWaveMode == 0 && state.Stopped == 1 && state.StoredStateNumber == 0) {
        for (int k = 1; k <= state.NSelected; ++k) {
            const int m = state.MSelList[k];
            picture.BoxFilled(left(m), top(m), MarkSize, MarkSize);
        }
    }
    const int m = state.MSelected;
    picture.BoxOutline(left(m), top(m), MarkSize, MarkSize);
}

void ShowSelectedCell(ExperimentState& state, Controls& controls) {
    if (BarValue(controls.hsbMSelected) != state.MSelected) {
        PutBarValue(controls.hsbMSelected, state.MSelected);
    }
    ShowSelectedValues(state, controls);
}

// `lo` and `hi` are read again when the boxes are written: the selected cell's boxes come first,
// and their handlers can widen an axis.
void PaintPlot(ExperimentState& state, Controls& controls, const Plot& plot, const Values& v,
               const double& lo, const double& hi) {
    if (!plot.Picture.IsUnseen()) {
        const PlotScale scale(state, plot.Picture.ScaleWidth(), plot.Picture.ScaleHeight(),
                              {lo, hi});
        DrawCurve(state, scale, v, plot.Picture);
        DrawMarks(state, scale, v, plot.Picture);
    }
    ShowSelectedCell(state, controls);
    if (!plot.HasBoxes) return;
    const char* format = state.SoundWaveMode == 0 ? "##0.0####" : "##0.0######";
    PutText(plot.MinBox, FormatNumber(lo, format));
    PutText(plot.MaxBox, FormatNumber(hi, format));
}

void PaintCurve(ExperimentState& state, Controls& controls, const Plot& plot,
                const PlotCurve& curve) {
    PaintPlot(state, controls, plot, curve.Values, curve.Limits.Lo, curve.Limits.Hi);
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
    const Plot plot{*controls.pctDensityPlot, controls.txtDensityMin, controls.txtDensityMax, true};
    if (state.SoundWaveMode == 0) {
        PaintPlot(state, controls, plot, state.Rho, state.RhoMin, state.RhoMax);
    } else {
        PaintCurve(state, controls, plot, BuildInvariantCurve(state, +1.0));
    }
}

void pctPressurePlot_Paint(ExperimentState& state, Controls& controls) {
    const Plot plot{*controls.pctPressurePlot, controls.txtPressureMin, controls.txtPressureMax,
                    true};
    if (state.SoundWaveMode == 0) {
        PaintPlot(state, controls, plot, state.P, state.PMin, state.PMax);
    } else {
        PaintCurve(state, controls, plot, BuildEntropyCurve(state));
    }
}

void pctVelocityPlot_Paint(ExperimentState& state, Controls& controls) {
    // While the space-time picture is big, the two boxes under it belong to it.
    const Plot plot{*controls.pctVelocityPlot, controls.txtVelocityMin, controls.txtVelocityMax,
                    state.SpaceTimeBig == 0};
    if (state.SoundWaveMode == 0) {
        PaintPlot(state, controls, plot, state.Ux, state.VXMin, state.VXMax);
    } else {
        const PlotCurve curve = BuildInvariantCurve(state, -1.0);
        state.RMinusMin = curve.Limits.Lo;
        state.RMinusMax = curve.Limits.Hi;
        PaintCurve(state, controls, plot, curve);
    }
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
