#include "core/run/time_step.h"

#include <algorithm>
#include <cassert>
#include <chrono>
#include <cmath>
#include <string>
#include <utility>

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/run/boundary_zones.h"
#include "core/run/operation_meter.h"
#include "core/run/strip_driver.h"
#include "core/run/tick_arrays.h"

namespace {

// 0.9^300 is 2e-14: a scheme that still reports 1 or more by then never will report less.
constexpr int MaxAttempts = 300;

// Nor is one whose failed attempts have taken so long, and the window waits for it. No step of the
// program's own schemes has been seen to need a hundredth of this.
constexpr std::chrono::seconds LongestTrial(2);

// Limit on the cell updates of a tick, so that it returns in a fraction of a second; more with the
// meter on. Only a weak sound wave would take more, and without the meter only one whose step is
// far below what its sound speed allows.
constexpr int MaxCellUpdates = 6'500'000;
constexpr int MaxMeteredUpdates = 25'000'000;

bool Refuse(ExperimentState& state, RefusalKind kind, const std::string& trouble = {}) {
    state.Refusal = {kind, state.SchemeName, trouble};
    return false;
}

// True once an attempt has come in under the Courant gate. Every failed one shortens the step; if
// all fail, state.Refusal says how.
bool PassCourantGate(ExperimentState& state, TickArrays& tick) {
    const auto start = std::chrono::steady_clock::now();
    const auto mayTryAgain = [&] {
        return std::chrono::steady_clock::now() - start < LongestTrial;
    };
    for (int attempt = 0; attempt == 0 || (attempt < MaxAttempts && mayTryAgain()); ++attempt) {
        tick.StepDT = state.DTime;
        tick.StepCourant = 0.0;
        FillBoundaryZones(state);
        AdvanceAllStrips(state, tick);
        if (state.MeterOn > 0) CountOperations(state, tick);
        if (std::isnan(tick.StepCourant)) {
            return Refuse(state, RefusalKind::CourantNotANumber);
        }
        if (tick.StepCourant < 1.0) return true;
        tick.Counts.Rejected += 1;
        if (tick.Observer != nullptr && tick.Observer->Rejects) tick.Observer->Rejects(state, tick);
        state.DTime *= 0.9;
    }
    return Refuse(state, RefusalKind::CourantTooLarge);
}

}  // namespace

int StepsOfTick(const ExperimentState& state) {
    constexpr double weakWaveDensity = 1.08;
    int steps = state.NGridCells / 30;
    if (state.SoundWaveMode == 1 && state.RhoMax < weakWaveDensity) {
        steps = RoundToEven(0.1 / state.DTime);
    }
    const int updates = state.MeterOn > 0 ? MaxMeteredUpdates : MaxCellUpdates;
    return std::clamp(steps, 1, updates / (state.NGridCells * CallsPerStrip(state)));
}

void AcceptStep(ExperimentState& state, TickArrays& tick) {
    assert(tick.RhoOut.Last() == state.Rho.Last() && state.UyNew.Last() == state.Uy.Last());
    std::swap(state.Rho, tick.RhoOut);
    std::swap(state.P, tick.POut);
    std::swap(state.Ux, tick.UxOut);
    std::swap(state.Uy, state.UyNew);
    std::swap(state.FSmoke, state.FSmokeNew);
    if (!tick.Library.CarriesSmoke() && !tick.SmokeIsGone) {
        std::fill_n(state.FSmokeNew.At(1), state.NGridCells, 0.0);
        tick.SmokeIsGone = true;
    }
}

void ControlTimeStep(ExperimentState& state, double stepCourant) {
    if (state.CourantNumber * 0.9 > stepCourant) {
        state.DTime = std::min(state.DTime * 1.025, state.PlotInterval);
    } else if (stepCourant > state.CourantNumber) {
        state.DTime = (state.CourantNumber / stepCourant) * state.DTime;
    }
}

bool TakeTimeStep(ExperimentState& state, TickArrays& tick) {
    if (!tick.Library.IsLoaded()) {
        return Refuse(state, RefusalKind::SchemeMissing, tick.Library.Trouble);
    }
    const double stepBefore = state.DTime;
    bool mayAccept = PassCourantGate(state, tick);
    if (mayAccept && !tick.ResultsAreFinite) {
        mayAccept = Refuse(state, RefusalKind::ResultNotFinite);
    }
    if (!mayAccept) {
        state.DTime = stepBefore;
        return false;
    }
    if (tick.Observer != nullptr && tick.Observer->Accepts) tick.Observer->Accepts(state, tick);
    tick.Counts.Steps += 1;
    tick.Counts.Floored += tick.FlooredNow;
    AcceptStep(state, tick);
    state.Time += state.DTime;
    state.TimeToPlot -= state.DTime;
    ControlTimeStep(state, tick.StepCourant);
    return true;
}
