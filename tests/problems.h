// Small experiments for the tests.
#pragma once

#include <cmath>

#include "core/model/experiment_state.h"
#include "core/setup/grid.h"

// n cells on 0 to 1 with arrays for `plots` stored states; a smooth flow without symmetry in every
// field of cells 0..n+1.
inline ExperimentState WavyProblem(int n, int plots = 3) {
    ExperimentState state;
    state.NGridCells = n;
    state.NPlotsPerPeriod = plots;
    state.Periods = 1.0;
    AllocateArrays(state);
    for (int i = 0; i <= n + 1; ++i) {
        const double x = 6.0 * i / n;
        state.Rho[i] = 1.0 + 0.3 * std::sin(x);
        state.P[i] = 1.0 + 0.2 * std::cos(2.0 * x);
        state.Ux[i] = 0.5 * std::sin(x + 1.0);
        state.Uy[i] = 0.1 * std::cos(x);
        state.FSmoke[i] = i % 5 == 0 ? 1.0 : 0.0;
    }
    return state;
}

// The same with every field constant in space.
inline ExperimentState UniformProblem(int n, double rho, double p, double ux) {
    ExperimentState state = WavyProblem(n);
    for (int i = 0; i <= n + 1; ++i) {
        state.Rho[i] = rho;
        state.P[i] = p;
        state.Ux[i] = ux;
        state.Uy[i] = 0.0;
    }
    return state;
}

// Whether the control points lie in rising cells, between the entries of the two bounding cells.
inline bool PointsAreInOrder(const ExperimentState& state) {
    const int last = state.NSelected + 1;
    bool inOrder = state.MSelList[0] == 0 && state.MSelList[last] == state.NGridCells + 1;
    for (int k = 1; k <= last; ++k) inOrder &= state.MSelList[k - 1] < state.MSelList[k];
    return inOrder;
}
