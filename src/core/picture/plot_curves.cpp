#include "core/picture/plot_curves.h"

#include <cmath>
#include <utility>

#include "core/model/experiment_state.h"
#include "core/model/gas.h"
#include "core/model/number_text.h"
#include "core/run/axis_ranges.h"

namespace {

double EntropyFunction(const ExperimentState& state, int i) {
    return state.P[i] / std::pow(state.Rho[i], state.Gamma);
}

}  // namespace

PlotScale::PlotScale(const ExperimentState& state, double width, double height, AxisLimits limits)
    : Sx(width / (state.X[state.NGridCells + 1] - state.X[1])),
      Hx(Sx * 0.5),
      Sy(height / (limits.Hi - limits.Lo)),
      Hi(limits.Hi) {}

int PlotScale::X(const ExperimentState& state, int cell) const {
    return RoundToEven((state.X[cell + 1] + state.X[cell]) * Hx);
}

int PlotScale::Edge(double position) const {
    return RoundToEven(Sx * position);
}

int PlotScale::Y(double value) const {
    return RoundToEven((Hi - value) * Sy);
}

PlotCurve BuildInvariantCurve(const ExperimentState& state, double sign) {
    const int n = state.NGridCells;
    OffsetArray<double> curve(0, n + 1);  // curve[0] = 0
    double sum = 0.0;
    double zBefore = AcousticImpedance(state, 0);
    for (int i = 1; i <= n + 1; ++i) {
        const double z = AcousticImpedance(state, i);
        const double q =
            (state.P[i] - state.P[i - 1] + state.P[i] - state.P[i - 1]) / (z + zBefore);
        curve[i] = curve[i - 1] + state.Ux[i] - state.Ux[i - 1] + sign * q;
        sum += curve[i];
        zBefore = z;
    }
    const double mean = (sum - curve[n + 1]) / n;
    curve[0] -= mean;
    AxisLimits limits{curve[0], curve[0]};
    for (int i = 1; i <= n + 1; ++i) {
        curve[i] -= mean;
        GrowAxisRange(curve[i], limits.Lo, limits.Hi, /*clampAtZero=*/false);
    }
    if (limits.Hi == limits.Lo) limits.Hi = limits.Lo + state.PFloor;
    return {std::move(curve), limits};
}

PlotCurve BuildEntropyCurve(const ExperimentState& state) {
    const int n = state.NGridCells;
    OffsetArray<double> curve(0, n + 1);
    curve[0] = EntropyFunction(state, 0);
    AxisLimits limits{curve[0], curve[0]};
    for (int i = 1; i <= n + 1; ++i) {
        curve[i] = EntropyFunction(state, i);
        GrowAxisRange(curve[i], limits.Lo, limits.Hi, /*clampAtZero=*/true);
    }
    if (limits.Hi == limits.Lo) limits.Hi = limits.Lo * 1.05;
    return {std::move(curve), limits};
}
