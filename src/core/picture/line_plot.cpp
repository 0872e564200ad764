#include "core/picture/line_plot.h"

#include "core/model/experiment_state.h"
#include "core/picture/drawing_list.h"

namespace {

constexpr float MarkSize = 100.0F;  // twips
constexpr float MarkHalf = MarkSize / 2.0F;

using Values = OffsetArray<double>;

float Coordinate(int whole) {
    return static_cast<float>(whole);
}

void DrawCurve(const ExperimentState& state, const PlotScale& scale, const Values& v,
               DrawingList& list) {
    const int n = state.NGridCells;
    list.LineFrom(0.0F, Coordinate(scale.Y((v[1] + v[0]) * 0.5)), Coordinate(scale.X(state, 1)),
                  Coordinate(scale.Y(v[1])));
    for (int i = 2; i <= n; ++i) {
        list.LineOn(Coordinate(scale.X(state, i)), Coordinate(scale.Y(v[i])));
    }
    list.LineOn(Coordinate(scale.Edge(state.X[n + 1])),
                Coordinate(scale.Y((v[n + 1] + v[n]) * 0.5)));
}

void DrawMarks(const ExperimentState& state, const PlotScale& scale, const Values& v,
               DrawingList& list) {
    const auto left = [&](int m) { return Coordinate(scale.X(state, m)) - MarkHalf; };
    const auto top = [&](int m) { return Coordinate(scale.Y(v[m])) - MarkHalf; };
    if (state.SoundWaveMode == 0 && state.Stopped == 1 && state.StoredStateNumber == 0) {
        for (int k = 1; k <= state.NSelected; ++k) {
            const int m = state.MSelList[k];
            list.BoxFilled(left(m), top(m), MarkSize, MarkSize);
        }
    }
    const int m = state.MSelected;
    list.BoxOutline(left(m), top(m), MarkSize, MarkSize);
}

}  // namespace

PlotQuantity QuantityOf(LinePlot plot) {
    using State = ExperimentState;
    switch (plot) {
        case LinePlot::Density:
            break;
        case LinePlot::Pressure:
            return {&State::P, &State::PMin, &State::PMax};
        case LinePlot::Velocity:
            return {&State::Ux, &State::VXMin, &State::VXMax};
    }
    return {&State::Rho, &State::RhoMin, &State::RhoMax};
}

PlotCurve BuildSoundWaveCurve(const ExperimentState& state, LinePlot plot) {
    if (plot == LinePlot::Pressure) return BuildEntropyCurve(state);
    return BuildInvariantCurve(state, plot == LinePlot::Density ? +1.0 : -1.0);
}

void DrawPlot(const ExperimentState& state, const Values& values, AxisLimits limits, PlotSize size,
              DrawingList& list) {
    const PlotScale scale(state, size.Width, size.Height, limits);
    DrawCurve(state, scale, values, list);
    DrawMarks(state, scale, values, list);
}

AxisLimits DrawPlot(const ExperimentState& state, LinePlot plot, PlotSize size, DrawingList& list) {
    if (state.SoundWaveMode != 0) {
        const PlotCurve curve = BuildSoundWaveCurve(state, plot);
        DrawPlot(state, curve.Values, curve.Limits, size, list);
        return curve.Limits;
    }
    const PlotQuantity quantity = QuantityOf(plot);
    const AxisLimits limits{state.*quantity.Lo, state.*quantity.Hi};
    DrawPlot(state, state.*quantity.Values, limits, size, list);
    return limits;
}
