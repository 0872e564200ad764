#include "core/setup/smoke.h"

#include <algorithm>

#include "core/model/experiment_state.h"

void InitSmokePattern(ExperimentState& state) {
    const int n = state.NGridCells;
    const int period = std::min(std::max(n / 16, 4), n);
    const int stripe = period / 4;
    if (stripe <= 0) return;
    const int count = n / period;
    const int gapLeft = (period - stripe) / 2;

    for (int i = 1; i <= n; ++i) state.FSmoke[i] = 0.0;
    for (int k = 0; k < count; ++k) {
        const int first = k * period + gapLeft + 1;
        for (int i = first; i < first + stripe; ++i) state.FSmoke[i] = 1.0;
    }
}
