// Runs to an exact time, as the published errors of other codes ask for.
#pragma once

#include <string>

#include "core/run/scheme_library.h"
#include "core/run/step_observer.h"

struct ExperimentState;

// The library of a scheme; a folder takes the place of the program's search path. Throws
// std::runtime_error if there is none.
SchemeLibrary LoadOrThrow(const std::string& schemeName, const std::string& folder = "");

struct TrialCounts {
    StepCounts Of;
    bool CameToItsEnd = false;  // else state.Refusal says why not
};

// Advances the experiment by the program's own steps, the last of them cut so that Time ends at
// `time` but for a rounding. Nothing is stored.
TrialCounts RunTo(ExperimentState& state, const SchemeLibrary& library, double time);
