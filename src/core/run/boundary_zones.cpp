#include "core/run/boundary_zones.h"

#include "core/model/boundary_types.h"
#include "core/model/experiment_state.h"

namespace {

// The five fields of cell `to` become those of cell `from`, Ux times `sign`.
void CopyCell(ExperimentState& state, int from, int to, double sign) {
    state.Rho[to] = state.Rho[from];
    state.P[to] = state.P[from];
    state.Ux[to] = sign * state.Ux[from];
    state.Uy[to] = state.Uy[from];
    state.FSmoke[to] = state.FSmoke[from];
}

void FillPeriodic(ExperimentState& state) {
    const int n = state.NGridCells;
    const double length = state.X[n + 1] - state.X[1];
    for (int k = 1; k <= state.NBDY; ++k) {
        state.X[1 - k] = state.X[n + 1 - k] - length;
        state.X[n + 1 + k] = length + state.X[1 + k];
        CopyCell(state, k, n + k, 1.0);
        CopyCell(state, n + 1 - k, 1 - k, 1.0);
    }
}

void FillLeft(ExperimentState& state) {
    for (int k = 1; k <= state.NBDY; ++k) {
        if (state.MnBdry == ReflectingBoundary) {
            state.X[1 - k] = state.X[1] + state.X[1] - state.X[1 + k];
            CopyCell(state, k, 1 - k, -1.0);
        } else {
            state.X[1 - k] = state.X[2 - k] - state.X[2] + state.X[1];
            CopyCell(state, 1, 1 - k, 1.0);
        }
    }
}

void FillRight(ExperimentState& state) {
    const int n = state.NGridCells;
    for (int k = 1; k <= state.NBDY; ++k) {
        if (state.MxBdry == ReflectingBoundary) {
            state.X[n + 1 + k] = state.X[n + 1] + state.X[n + 1] - state.X[n + 1 - k];
            CopyCell(state, n + 1 - k, n + k, -1.0);
        } else {
            state.X[n + 1 + k] = state.X[n + k] + state.X[n + 1] - state.X[n];
            CopyCell(state, n, n + k, 1.0);
        }
    }
}

}  // namespace

void FillBoundaryZones(ExperimentState& state) {
    if (state.MnBdry == PeriodicBoundary) {
        FillPeriodic(state);
    } else {
        FillLeft(state);
        FillRight(state);
    }
}

void FirstBoundaryFill(ExperimentState& state) {
    const int n = state.NGridCells;
    if (state.SoundWaveMode == 0) {
        CopyCell(state, 1, 0, -1.0);
        CopyCell(state, n, n + 1, -1.0);
    } else {
        CopyCell(state, n, 0, 1.0);
        CopyCell(state, 1, n + 1, 1.0);
    }
}
