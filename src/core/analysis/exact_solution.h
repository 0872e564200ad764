// Which exact solution fits the present experiment, if one does.
#pragma once

#include <string>
#include <utility>
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

// A simple wave: one acoustic invariant and the entropy are uniform. The other one is
// amplitude * sin(2 pi frequency (x - left) / length) at time 0, shifted by twice `Offset`, on a
// background of density and sound speed 1; `side` is 1 for R+, which runs to the right, and -1 for
// R-.
struct SimpleWave {
    double Side = 1.0;
    double Amplitude = 0.0;
    int Frequency = 1;
    double Offset = 0.0;  // of the velocity: the set-up starts the sum of its changes at cell 1
    double U0 = 0.0;
    double Left = 0.0;
    double Length = 1.0;
    double Gamma = 1.4;

    double BreakingTime() const;
    // Before the breaking time; by iteration along the characteristic through x.
    GasState At(double x, double time) const;
};

// What is known of the present state: a solution, or one sentence for a student why there is none.
struct ExactSolution {
    std::vector<SeparateJumps> Tube;  // one or none
    std::vector<SimpleWave> Wave;     // one or none
    std::string WhyNot;               // a sentence, empty if there is a solution

    explicit operator bool() const { return WhyNot.empty(); }
};

// Judges by the control points, stored state 0, the ends and Time. Needs a run that has begun, or a
// problem that has just been set up. The points may have been typed or drawn.
ExactSolution FindExactSolution(const ExperimentState& state);

// Its averages over the cells at the present Time. Needs a solution.
ExactFields ExactFieldsOf(const ExactSolution& solution, const ExperimentState& state);
