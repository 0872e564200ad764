// Sound waves, given in the characteristic invariants R+, R- and the entropy function.
#pragma once

#include <optional>

#include "core/model/offset_array.h"

struct ExperimentState;

// A sound wave on the cells of a grid.
struct SoundWaveFields {
    OffsetArray<double> Rho, P, Ux;     // cells 0..N+1; cells 0 and N+1 wrap around
    double RhoMin = 0.0, RhoMax = 0.0;  // extremes over cells 1..N and the background
    double PMin = 0.0, PMax = 0.0;
    double VXMin = 0.0, VXMax = 0.0;
    double ShortestCrossing = 0.0;  // least time in which a sound wave crosses a cell
};

// Integrates the waves of the record (amplitudes, whole waves across the domain, background
// velocity) over its grid: from cell to cell du = (dR+ + dR-)/2 and dp = Z (dR+ - dR-)/2, by a
// predictor-corrector of second order in the impedance Z; the density follows from the pressure and
// the cell's entropy function. The background has density, sound speed and impedance 1. Needs
// X[0]..X[N+1]. Empty if a frequency is below 1, or the pressure or the entropy function falls to
// 0 or below somewhere.
std::optional<SoundWaveFields> IntegrateSoundWave(const ExperimentState& state);

// The background without a wave.
SoundWaveFields QuietBackground(const ExperimentState& state);

// Makes it the present problem: fields, smoke, axes, clock and a first step of the full Courant
// target. The store is left alone.
void TakeSoundWave(ExperimentState& state, const SoundWaveFields& wave);
