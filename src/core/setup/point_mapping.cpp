#include "core/setup/point_mapping.h"

#include <algorithm>

#include "core/model/experiment_state.h"

namespace {

// The last cell whose left edge lies below the position, at least 1.
int CellBelow(const ExperimentState& state, double position) {
    const double* edges = state.X.At(1);
    const double* end = edges + state.NGridCells;
    const auto below = std::lower_bound(edges, end, position) - edges;
    return std::max(1, static_cast<int>(below));
}

}  // namespace

void MapControlPoints(ExperimentState& state) {
    const int n = state.NGridCells;
    const bool byPosition = state.NSelected > 2;
    for (int k = 1; k <= state.NSelected; ++k) {
        const int cell = byPosition ? CellBelow(state, state.XSelList[k]) : state.MSelList[k];
        const int lastWithRoom = n - state.NSelected + k;
        state.MSelList[k] = std::max(std::min(cell, lastWithRoom), state.MSelList[k - 1] + 1);
    }
    state.MSelList[state.NSelected + 1] = n + 1;
}
