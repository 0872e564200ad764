#include "core/setup/sound_wave.h"

#include <algorithm>
#include <cmath>

#include "core/model/experiment_state.h"
#include "core/run/axis_ranges.h"
#include "core/run/first_step.h"
#include "core/setup/smoke.h"

namespace {

// One of the three waves: amplitude times a sine with whole waves across the domain, cell by cell.
class Wave {
public:
    Wave(const ExperimentState& state, double amplitude, int frequency)
        : x_(state.X), amplitude_(amplitude) {
        const double pi = 4.0 * std::atan(1.0);
        const double w = pi / (x_[state.NGridCells + 1] - x_[1]);
        const double h = x_[2] - x_[1];
        k_ = frequency * w;
        // sin(x)/x turns the sine at the middle of a cell into its mean over the cell.
        mean_ = std::sin(h * k_) / (h * k_);
        here_ = SineMean(1);
    }

    double Mean(int i) const { return SineMean(i) * amplitude_; }

    // The change from cell 0 to cell 1, where the integration starts.
    double FirstChange() const { return amplitude_ * (here_ - SineMean(0)); }

    // The change since the cell that was asked for last, at first cell 1.
    double ChangeTo(int i) {
        const double before = here_;
        here_ = SineMean(i);
        return amplitude_ * (here_ - before);
    }

private:
    // The sum of the edges is twice the middle of the cell.
    double SineMean(int i) const { return std::sin((x_[i + 1] + x_[i]) * k_) * mean_; }

    const OffsetArray<double>& x_;
    double amplitude_;
    double k_ = 0.0;
    double mean_ = 0.0;
    double here_ = 0.0;
};

// Pressure, density and impedance at one place; density and impedance follow from the entropy
// function e = p / rho^gamma.
struct Gas {
    double P;
    double Rho;
    double Z;
};

Gas GasOf(double p, double e, double gamma) {
    const double rho = std::pow(p / e, 1.0 / gamma);
    return {p, rho, std::sqrt(p * gamma * rho)};
}

bool IsPossible(const Gas& gas, double e) {
    return e > 0.0 && gas.P > 0.0 && gas.Rho > 0.0;
}

// The gas of cell 0, `dp` being the difference of the invariants' first changes: its impedance is
// averaged with the background's 1 over the half step.
std::optional<Gas> FirstGas(double p0, double dp, double e, double gamma) {
    const Gas gas = GasOf(p0 - dp * 0.25, e, gamma);
    if (!IsPossible(gas, e)) return std::nullopt;
    const Gas averaged = GasOf(p0 - (gas.Z + 1.0) * 0.125 * dp, e, gamma);
    return IsPossible(averaged, e) ? std::optional(averaged) : std::nullopt;
}

// The gas of the cell after `before`, by a predictor and a corrector in the impedance.
std::optional<Gas> NextGas(const Gas& before, double dp, double e, double gamma) {
    const Gas predicted = GasOf(dp * (before.Z * 0.5) + before.P, e, gamma);
    if (!IsPossible(predicted, e)) return std::nullopt;
    const Gas corrected = GasOf((before.Z + predicted.Z) * 0.25 * dp + before.P, e, gamma);
    return IsPossible(corrected, e) ? std::optional(corrected) : std::nullopt;
}

void WrapAround(OffsetArray<double>& field, int n) {
    field[0] = field[n];
    field[n + 1] = field[1];
}

void OpenZeroSpan(double& lo, double& hi) {
    if (hi != lo) return;
    hi = hi * 1.05;
    lo = lo * 0.95;
}

// Enters cell i, `width` wide, into the fields and the extremes; its velocity is there already.
void TakeCell(SoundWaveFields& wave, int i, const Gas& gas, double width) {
    wave.Rho[i] = gas.Rho;
    wave.P[i] = gas.P;
    TakeIntoRange(gas.Rho, wave.RhoMin, wave.RhoMax);
    TakeIntoRange(gas.P, wave.PMin, wave.PMax);
    TakeIntoRange(wave.Ux[i], wave.VXMin, wave.VXMax);
    const double c = gas.Z / gas.Rho;
    const double speed = std::max(std::abs(c + wave.Ux[i]), std::abs(wave.Ux[i] - c));
    wave.ShortestCrossing = std::min(wave.ShortestCrossing, width / speed);
}

// No cells yet; the extremes start from the background.
SoundWaveFields EmptyWave(const ExperimentState& state, double p0) {
    constexpr double soundSpeed = 1.0;
    const int n = state.NGridCells;
    SoundWaveFields wave;
    for (OffsetArray<double>* field : {&wave.Rho, &wave.P, &wave.Ux}) {
        *field = OffsetArray<double>(0, n + 1);
    }
    wave.RhoMin = wave.RhoMax = 1.0;
    wave.PMin = wave.PMax = p0;
    wave.VXMin = wave.VXMax = state.U0;
    wave.ShortestCrossing = (state.X[2] - state.X[1]) / soundSpeed;
    return wave;
}

}  // namespace

std::optional<SoundWaveFields> IntegrateSoundWave(const ExperimentState& state) {
    if (std::min({state.RPlusFreq, state.RMinusFreq, state.R0Freq}) < 1) return std::nullopt;
    const double gamma = state.Gamma;
    const double p0 = 1.0 / gamma;
    Wave plus(state, state.RPlusAmp, state.RPlusFreq);
    Wave minus(state, state.RMinusAmp, state.RMinusFreq);
    const Wave entropy(state, state.R0Amp, state.R0Freq);
    SoundWaveFields wave = EmptyWave(state, p0);

    double dPlus = plus.FirstChange();
    double dMinus = minus.FirstChange();
    wave.Ux[0] = state.U0 - (dPlus + dMinus) * 0.25;
    std::optional<Gas> gas = FirstGas(p0, dPlus - dMinus, entropy.Mean(0) + p0, gamma);
    for (int i = 1; gas && i <= state.NGridCells; ++i) {
        dPlus = plus.ChangeTo(i);
        dMinus = minus.ChangeTo(i);
        wave.Ux[i] = (dPlus + dMinus) * 0.5 + wave.Ux[i - 1];
        gas = NextGas(*gas, dPlus - dMinus, entropy.Mean(i) + p0, gamma);
        if (gas) TakeCell(wave, i, *gas, state.X[i + 1] - state.X[i]);
    }
    if (!gas) return std::nullopt;
    for (OffsetArray<double>* field : {&wave.Rho, &wave.P, &wave.Ux}) {
        WrapAround(*field, state.NGridCells);
    }
    return wave;
}

SoundWaveFields QuietBackground(const ExperimentState& state) {
    const int n = state.NGridCells;
    const Gas gas = GasOf(1.0 / state.Gamma, 1.0 / state.Gamma, state.Gamma);
    SoundWaveFields wave = EmptyWave(state, gas.P);
    for (int i = 1; i <= n; ++i) {
        wave.Ux[i] = state.U0;
        TakeCell(wave, i, gas, state.X[i + 1] - state.X[i]);
    }
    for (OffsetArray<double>* field : {&wave.Rho, &wave.P, &wave.Ux}) WrapAround(*field, n);
    return wave;
}

void TakeSoundWave(ExperimentState& state, const SoundWaveFields& wave) {
    const int n = state.NGridCells;
    state.SoundSpeed0 = 1.0;
    state.RhoSel = 1.0;
    state.PSel = 1.0 / state.Gamma;
    SetClock(state, 1.0, state.Periods);  // a sound wave crosses the domain in 1 unit of time

    for (int i = 0; i <= n + 1; ++i) {
        state.Rho[i] = wave.Rho[i];
        state.P[i] = wave.P[i];
        state.Ux[i] = wave.Ux[i];
        state.Uy[i] = 0.0;
        state.FSmoke[i] = 0.0;
    }
    InitSmokePattern(state);
    WrapAround(state.FSmoke, n);

    state.DTime = std::min(wave.ShortestCrossing * state.CourantNumber, state.PlotInterval);
    state.DTime0 = state.DTime;

    state.RhoMin = wave.RhoMin;
    state.RhoMax = wave.RhoMax;
    state.PMin = wave.PMin;
    state.PMax = wave.PMax;
    state.VXMin = wave.VXMin;
    state.VXMax = wave.VXMax;
    OpenZeroSpan(state.RhoMin, state.RhoMax);
    OpenZeroSpan(state.PMin, state.PMax);
    if (state.VXMax == state.VXMin) {
        state.VXMax = state.VXMax + 0.05;
        state.VXMin = state.VXMin - 0.05;
    }
}
