#include "core/analysis/conserved_sums.h"

#include <algorithm>
#include <cmath>

#include "core/model/boundary_types.h"
#include "core/model/experiment_state.h"

namespace {

// A change of the gas at an open end by less than this share is rounding, in single precision too.
constexpr double Quiet = 1e-6;

double EnergyDensity(const ExperimentState& state, int i) {
    return state.P[i] / (state.Gamma - 1.0) + 0.5 * state.Rho[i] * state.Ux[i] * state.Ux[i];
}

// Adds what the gas of cell i carries to the right through its face in time dt.
void AddFlow(const ExperimentState& state, int i, double dt, ConservedSums& flow) {
    const double mass = state.Rho[i] * state.Ux[i] * dt;
    flow.Mass += mass;
    flow.Momentum += mass * state.Ux[i] + state.P[i] * dt;
    flow.TransverseMomentum += mass * state.Uy[i];
    flow.SmokeMass += mass * state.FSmoke[i];
    flow.Energy += (EnergyDensity(state, i) + state.P[i]) * state.Ux[i] * dt;
}

}  // namespace

ConservedSums SumsOf(const ExperimentState& state) {
    ConservedSums sums;
    for (int i = 1; i <= state.NGridCells; ++i) {
        const double width = state.X[i + 1] - state.X[i];
        const double mass = width * state.Rho[i];
        sums.Mass += mass;
        sums.Momentum += mass * state.Ux[i];
        sums.TransverseMomentum += mass * state.Uy[i];
        sums.SmokeMass += mass * state.FSmoke[i];
        sums.Energy += width * EnergyDensity(state, i);
    }
    return sums;
}

Ledger::Ledger(const ExperimentState& state)
    : start_(SumsOf(state)),
      leftGas_{state.Rho[1], state.P[1], state.Ux[1]},
      rightGas_{state.Rho[state.NGridCells], state.P[state.NGridCells], state.Ux[state.NGridCells]},
      hasWall_(state.MnBdry == ReflectingBoundary ||
               (state.MnBdry != PeriodicBoundary && state.MxBdry == ReflectingBoundary)) {
    for (int i = 1; i <= state.NGridCells; ++i) {
        const double c = std::sqrt(state.Gamma * state.P[i] / state.Rho[i]);
        momentumScale_ +=
            (state.X[i + 1] - state.X[i]) * state.Rho[i] * (std::abs(state.Ux[i]) + c);
    }
}

bool Ledger::HasChanged(const ExperimentState& state, int cell, const EndGas& former) const {
    const double c = std::sqrt(state.Gamma * former.P / former.Rho);
    return std::abs(state.Rho[cell] - former.Rho) > Quiet * former.Rho ||
           std::abs(state.P[cell] - former.P) > Quiet * former.P ||
           std::abs(state.Ux[cell] - former.Ux) > Quiet * (std::abs(former.Ux) + c);
}

void Ledger::Take(const ExperimentState& before, double stepDT) {
    if (before.MnBdry == PeriodicBoundary) return;
    const int n = before.NGridCells;
    if (before.MnBdry != ReflectingBoundary) {
        AddFlow(before, 1, stepDT, left_);
        if (HasChanged(before, 1, leftGas_)) isExact_ = false;
    }
    if (before.MxBdry != ReflectingBoundary) {
        AddFlow(before, n, -stepDT, right_);
        if (HasChanged(before, n, rightGas_)) isExact_ = false;
    }
}

Ledger::Drifts Ledger::DriftsOf(const ExperimentState& now) const {
    Drifts drifts;
    if (!isExact_) return drifts;
    const ConservedSums sums = SumsOf(now);
    drifts.Mass = (sums.Mass - start_.Mass - left_.Mass - right_.Mass) / start_.Mass;
    drifts.Energy = (sums.Energy - start_.Energy - left_.Energy - right_.Energy) / start_.Energy;
    if (!hasWall_) {
        drifts.Momentum =
            (sums.Momentum - start_.Momentum - left_.Momentum - right_.Momentum) / momentumScale_;
    }
    return drifts;
}
