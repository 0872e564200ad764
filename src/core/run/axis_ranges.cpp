#include "core/run/axis_ranges.h"

#include <algorithm>
#include <cmath>

#include "core/model/experiment_state.h"

namespace {

void GrowOver(ExperimentState& state, int first, int last) {
    for (int i = first; i <= last; ++i) {
        GrowAxisRange(state.Rho[i], state.RhoMin, state.RhoMax, /*clampAtZero=*/true);
        GrowAxisRange(state.P[i], state.PMin, state.PMax, /*clampAtZero=*/true);
        GrowAxisRange(state.Ux[i], state.VXMin, state.VXMax, /*clampAtZero=*/false);
    }
}

void WidenZeroSpan(double& lo, double& hi, double reference) {
    if (hi != lo) return;
    const double a = VisibleMargin(reference * AxisMargin, hi);
    hi += a;
    lo -= a;
}

}  // namespace

double VisibleMargin(double margin, double v) {
    constexpr double least = 1e-12;
    return std::max(margin, std::abs(v) * least);
}

void TakeIntoRange(double v, double& lo, double& hi) {
    hi = std::max(hi, v);
    lo = std::min(lo, v);
}

void GrowAxisRange(double v, double& lo, double& hi, bool clampAtZero) {
    // 1.05*v - 0.05*lo would be the same number on paper, but for a quarter of all v it misses v by
    // a rounding when lo == v.
    if (v >= hi) hi = v + AxisMargin * (v - lo);
    if (v <= lo) {
        const double pushed = v + AxisMargin * (v - hi);
        lo = clampAtZero ? std::max(pushed, 0.0) : pushed;
    }
}

void ResetAxisRanges(ExperimentState& state) {
    state.RhoMin = state.RhoMax = state.Rho[1];
    state.PMin = state.PMax = state.P[1];
    state.VXMin = state.VXMax = state.Ux[1];
    GrowOver(state, 0, state.NGridCells + 1);

    WidenZeroSpan(state.RhoMin, state.RhoMax, state.RhoMax);
    WidenZeroSpan(state.PMin, state.PMax, state.PMax);
    WidenZeroSpan(state.VXMin, state.VXMax, std::sqrt(state.P[1] * state.Gamma / state.Rho[1]));
}

void SweepAxisRanges(ExperimentState& state) {
    GrowOver(state, 1, state.NGridCells);
}
