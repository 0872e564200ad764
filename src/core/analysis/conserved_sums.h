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
// step: exact while the gas there is as it was, an estimate of first order in the time step once a
// wave has come. Nothing passes joined ends, and walls let only momentum pass.
class Ledger {
public:
    explicit Ledger(const ExperimentState& state);

    // To be told of every accepted step.
    void Take(const ExperimentState& before, double stepDT);

    const ConservedSums& Start() const { return start_; }
    // Into the grid. The momentum that a wall gives is not in it.
    const ConservedSums& ThroughLeft() const { return left_; }
    const ConservedSums& ThroughRight() const { return right_; }
    // No wave has come to an open end, so that the two are exact.
    bool IsExact() const { return isExact_; }

    // Relative to the sum at the start; momentum to the most that sound waves in the gas at the
    // start could carry. Empty where it cannot be told: everything once a wave has passed an open
    // end, and momentum where there is a wall.
    struct Drifts {
        std::optional<double> Mass, Momentum, Energy;
    };
    Drifts DriftsOf(const ExperimentState& now) const;

private:
    struct EndGas {
        double Rho, P, Ux;
    };
    bool HasChanged(const ExperimentState& state, int cell, const EndGas& former) const;

    ConservedSums start_;
    ConservedSums left_, right_;
    EndGas leftGas_, rightGas_;
    bool isExact_ = true;
    double momentumScale_ = 0.0;
    bool hasWall_;
};
