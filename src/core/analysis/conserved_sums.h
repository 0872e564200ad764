// What a run conserves.
#pragma once

#include <optional>

#include "core/run/step_observer.h"

struct ExperimentState;

// Sums over cells 1..N. The energy is the internal energy and that of the motion along the grid:
// transverse energy is carried along passively.
struct ConservedSums {
    double Mass = 0.0;
    double Momentum = 0.0;
    double TransverseMomentum = 0.0;
    double SmokeMass = 0.0;
    double Energy = 0.0;
};

ConservedSums SumsOf(const ExperimentState& state);

// Follows a run from where it stands and says what its sums have gained that did not come in
// through the ends. What passes an open end is worked out from the end cell at the start of each
// step: exact while no wave is there. Nothing passes joined ends, and walls let only momentum pass.
class Ledger {
public:
    explicit Ledger(const ExperimentState& state);

    // To be told of every accepted step.
    void Take(const ExperimentState& before, double stepDT);

    // Relative to the sum at the start, or to the largest amount of momentum or energy that a wave
    // could carry if that is larger. Empty where it cannot be told: momentum between walls.
    struct Drifts {
        std::optional<double> Mass, Momentum, Energy;
    };
    Drifts DriftsOf(const ExperimentState& now) const;

private:
    ConservedSums start_;
    ConservedSums crossed_;  // into the grid
    double momentumScale_;
    bool hasWall_;
};
