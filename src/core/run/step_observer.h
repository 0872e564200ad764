// Lets others follow a run step by step.
#pragma once

#include <functional>

struct ExperimentState;
struct TickArrays;

// Either function may be empty. A run without an observer pays nothing for them.
struct StepObserver {
    // Right before an attempt is accepted: `before` are the fields with fresh ghost cells, step has
    // the new state of cells 1..N with its floors, StepDT and StepCourant.
    std::function<void(const ExperimentState& before, const TickArrays& step)> Accepts = {};
    // An attempt whose Courant number was 1 or more.
    std::function<void(const ExperimentState& before, const TickArrays& step)> Rejects = {};
};

// What the steps of a run came to.
struct StepCounts {
    long Steps = 0;     // accepted
    long Rejected = 0;  // attempts thrown away
    long Floored = 0;   // results of accepted steps below the floor of density or pressure, cell by
                        // cell; counted for an observer only
};
