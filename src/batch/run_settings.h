// What one run is made of.
#pragma once

#include <optional>
#include <string>

#include "core/setup/problems.h"

struct ExperimentState;

// A setting that is not given keeps what the problem brings, or what the program comes up with.
struct RunSettings {
    std::string Problem;  // "test1" to "test8", "default", "wave", or the path of a set-up file
    std::string Scheme = "Kestrel";
    std::optional<int> Cells;
    std::optional<double> Courant, Periods;
    std::optional<int> PlotsPerPeriod;
    std::optional<int> Left, Right;  // boundary types
    std::optional<double> difcon, shkjmp, wavhaf;
    std::optional<SoundWaves> Wave;

    bool IsFile() const;
    // The problem's name in tables and file names: a set-up file's without folder and ending.
    std::string Name() const;
};

// Builds the problem as the panel would from these entries, in this order: scheme and constants;
// cells, Courant target and plots per period; the problem; periods; ends. A set-up file brings its
// own numbers, so that the entries come after it. Empty, or why it cannot be, in a sentence.
std::string SetUpRun(ExperimentState& state, const RunSettings& settings,
                     const std::string& setUpText);
