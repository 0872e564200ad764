// Which exact solution fits the present experiment, if one does.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/analysis/cell_averages.h"
#include "core/analysis/exact_riemann.h"

struct ExperimentState;

// Uniform states with jumps between them, each of which breaks up by itself until its waves meet
// others or reach an end of the grid.
struct SeparateJumps {
    struct Jump {
        double Position;
        ExactRiemann Solution;
    };
    std::vector<Jump> Jumps;  // from left to right, at least one

    GasState At(double x, double time) const;
    std::vector<double> Breaks(double time) const;
    // From the first jump to another: the time at which two waves meet; infinite if never.
    double FirstMeeting() const;
};

// A wave of one family on a background of density and sound speed 1 that moves with U0, as the
// sound-wave set-up lays it: amplitude * sin(2 pi frequency x / length) at time 0, for a sound wave
// shifted by a constant. The amplitude is
// that of the invariant R+ for Side 1, which runs to the right, of R- for Side -1, and of the
// entropy function P/Rho^gamma for Side 0, which the gas carries along.
struct SimpleWave {
    double Side = 1.0;
    double Amplitude = 0.0;
    int Frequency = 1;
    double Offset = 0.0;  // of the velocity: the set-up starts the sum of its changes at cell 1
    double U0 = 0.0;
    double Length = 1.0;
    double Gamma = 1.4;

    double BreakingTime() const;  // infinite for an entropy wave
    // Before the breaking time; constant along the characteristic through x.
    GasState At(double x, double time) const;
};

// What is known of the present state: a solution, or one sentence for a student why there is none.
struct ExactSolution {
    std::optional<SeparateJumps> Tube;
    std::optional<SimpleWave> Wave;
    std::string WhyNot;  // a sentence, empty if there is a solution

    explicit operator bool() const { return WhyNot.empty(); }
};

// Judges by the control points or the waves of the record, the fields at Time 0 (later: stored
// state 0), the ends and Time. The points may have been typed or drawn.
ExactSolution FindExactSolution(const ExperimentState& state);

// Its averages over the cells at the present Time. Needs a solution.
ExactFields ExactFieldsOf(const ExactSolution& solution, const ExperimentState& state);
