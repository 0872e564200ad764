#include "core/run/first_step.h"

#include <algorithm>
#include <cmath>

#include "core/model/experiment_state.h"
#include "core/run/state_store.h"

double ShortestCrossingTime(ExperimentState& state, double bound) {
    const int count = state.NGridCells + 2;
    const double gamma = state.Gamma;
    const double* const x = state.X.At(0);
    const double* const rho = state.Rho.At(0);
    const double* const p = state.P.At(0);
    const double* const ux = state.Ux.At(0);
    double* const c2 = state.C2.At(0);
    double* const c = state.C.At(0);
    for (int i = 0; i < count; ++i) c2[i] = p[i] * gamma / rho[i];
    for (int i = 0; i < count; ++i) c[i] = std::sqrt(c2[i]);
    double shortest = bound;
    for (int i = 0; i < count; ++i) {
        const double speed = std::max(std::abs(ux[i] + c[i]), std::abs(ux[i] - c[i]));
        shortest = std::min(shortest, (x[i + 1] - x[i]) / speed);
    }
    return shortest;
}

double FirstTimeStep(ExperimentState& state) {
    const double crossing =
        ShortestCrossingTime(state, (state.X[2] - state.X[1]) / state.SoundSpeed0);
    return (state.CourantNumber * 0.1) * crossing;
}

void SetClock(ExperimentState& state, double periodTime, double tStop) {
    state.PeriodTime = periodTime;
    state.TStop = tStop;
    state.PlotInterval = state.PeriodTime / state.NPlotsPerPeriod;
    state.TimeToPlot = state.PlotInterval;
}

void SetPeriodClock(ExperimentState& state, double periodTime) {
    SetClock(state, periodTime, periodTime * state.Periods);
    state.DTime = std::min(state.DTime, state.PlotInterval);
}

void SetPeriods(ExperimentState& state, double periods) {
    state.Periods = periods;
    state.TStop = state.Periods * state.PeriodTime;
    SetNPlotsTotal(state);
    ResizeStore(state);
}

void SetPlotsPerPeriod(ExperimentState& state, int plots) {
    state.NPlotsPerPeriod = plots;
    SetNPlotsTotal(state);
    ResizeStore(state);
    state.PlotInterval = state.PeriodTime / state.NPlotsPerPeriod;
    state.TimeToPlot = state.PlotInterval;
    state.DTime = std::min(state.DTime, state.PlotInterval);
}
