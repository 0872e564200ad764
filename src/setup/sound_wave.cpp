#include "setup/sound_wave.h"

#include <algorithm>
#include <cmath>

#include "model/experiment_state.h"
#include "setup/smoke.h"

namespace {

// The cell means of one wave: amplitude times a sine with whole waves across the domain.
class WaveMean {
public:
    WaveMean(const ExperimentState& state, double amplitude, int frequency)
        : x_(state.X), amplitude_(amplitude) {
        const double pi = 4.0 * std::atan(1.0);
        const double w = pi / (x_[state.NGridCells + 1] - x_[1]);
        const double h = x_[2] - x_[1];
        k_ = frequency * w;
        // sin(x)/x turns the sine at the middle of a cell into its mean over the cell.
        mean_ = std::sin(h * k_) / (h * k_);
    }

    // The mean over cell i without the amplitude; the sum of the edges is twice the middle.
    double operator()(int i) const { return std::sin((x_[i + 1] + x_[i]) * k_) * mean_; }
    double Amplitude() const { return amplitude_; }

private:
    const OffsetArray<double>& x_;
    double amplitude_;
    double k_ = 0.0;
    double mean_ = 0.0;
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

void Widen(double v, double& lo, double& hi) {
    hi = std::max(hi, v);
    lo = std::min(lo, v);
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

}  // namespace

std::optional<SoundWaveFields> IntegrateSoundWave(const ExperimentState& state) {
    if (std::min({state.RPlusFreq, state.RMinusFreq, state.R0Freq}) < 1) return std::nullopt;
    const int n = state.NGridCells;
    const double gamma = state.Gamma;
    const double p0 = 1.0 / gamma;
    constexpr double soundSpeed0 = 1.0;
    const WaveMean plus(state, state.RPlusAmp, state.RPlusFreq);
    const WaveMean minus(state, state.RMinusAmp, state.RMinusFreq);
    const WaveMean entropy(state, state.R0Amp, state.R0Freq);

    SoundWaveFields wave{OffsetArray<double>(0, n + 1),
                         OffsetArray<double>(0, n + 1),
                         OffsetArray<double>(0, n + 1),
                         1.0,
                         1.0,
                         p0,
                         p0,
                         state.U0,
                         state.U0,
                         (state.X[2] - state.X[1]) / soundSpeed0};

    // Start in cell 0, then average its impedance with the background's over the half step.
    double plusHere = plus(1);
    double minusHere = minus(1);
    double dPlus = plus.Amplitude() * (plusHere - plus(0));
    double dMinus = (minusHere - minus(0)) * minus.Amplitude();
    wave.Ux[0] = state.U0 - (dPlus + dMinus) * 0.25;
    double e = entropy(0) * entropy.Amplitude() + p0;
    Gas gas = GasOf(p0 - (dPlus - dMinus) * 0.25, e, gamma);
    if (!IsPossible(gas, e)) return std::nullopt;
    gas = GasOf(p0 - (gas.Z + 1.0) * 0.125 * (dPlus - dMinus), e, gamma);
    if (!IsPossible(gas, e)) return std::nullopt;

    for (int i = 1; i <= n; ++i) {
        const Gas before = gas;
        e = entropy(i) * entropy.Amplitude() + p0;
        const double plusBefore = plusHere;
        plusHere = plus(i);
        dPlus = plus.Amplitude() * (plusHere - plusBefore);
        const double minusBefore = minusHere;
        minusHere = minus(i);
        dMinus = (minusHere - minusBefore) * minus.Amplitude();
        wave.Ux[i] = (dPlus + dMinus) * 0.5 + wave.Ux[i - 1];

        const Gas predicted = GasOf((dPlus - dMinus) * (before.Z * 0.5) + before.P, e, gamma);
        if (!IsPossible(predicted, e)) return std::nullopt;
        gas = GasOf((before.Z + predicted.Z) * 0.25 * (dPlus - dMinus) + before.P, e, gamma);
        if (!IsPossible(gas, e)) return std::nullopt;

        wave.Rho[i] = gas.Rho;
        wave.P[i] = gas.P;
        Widen(gas.Rho, wave.RhoMin, wave.RhoMax);
        Widen(gas.P, wave.PMin, wave.PMax);
        Widen(wave.Ux[i], wave.VXMin, wave.VXMax);
        const double c = gas.Z / gas.Rho;
        const double speed = std::max(std::abs(c + wave.Ux[i]), std::abs(wave.Ux[i] - c));
        wave.ShortestCrossing =
            std::min(wave.ShortestCrossing, (state.X[i + 1] - state.X[i]) / speed);
    }
    for (OffsetArray<double>* field : {&wave.Rho, &wave.P, &wave.Ux}) WrapAround(*field, n);
    return wave;
}

void TakeSoundWave(ExperimentState& state, const SoundWaveFields& wave) {
    const int n = state.NGridCells;
    state.SoundSpeed0 = 1.0;
    state.RhoSel = 1.0;
    state.PSel = 1.0 / state.Gamma;
    state.PeriodTime = 1.0;  // the time in which a sound wave crosses the domain
    state.PlotInterval = 1.0 / state.NPlotsPerPeriod;
    state.TimeToPlot = state.PlotInterval;
    state.TStop = state.Periods;

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
