#include "core/model/gas.h"

#include <cmath>

#include "core/model/experiment_state.h"

double AcousticImpedance(const ExperimentState& state, int i) {
    return std::sqrt(state.P[i] * state.Gamma * state.Rho[i]);
}

void RefreshSoundSpeed(ExperimentState& state, int i) {
    state.C2[i] = state.P[i] * state.Gamma / state.Rho[i];
    state.C[i] = std::sqrt(state.C2[i]);
}
