// One run from its settings to its figures.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "batch/run_settings.h"
#include "core/analysis/cell_averages.h"
#include "core/model/experiment_state.h"
#include "core/run/scheme_library.h"

// What a run came to. Optional figures are absent where they do not apply.
struct RunFigures {
    std::string Problem, Scheme;
    int Cells = 0;
    double Courant = 0.0;
    double Time = 0.0;
    long Steps = 0, Rejected = 0, Floored = 0;
    int Stored = 0;
    std::optional<double> L1Density, L1Pressure, L1Velocity, Overshoot;
    std::optional<double> MassDrift, MomentumDrift, EnergyDrift;
    double Seconds = 0.0;
    double UpdatesPerSecond = 0.0;
    std::string Refusal;  // empty for a run that reached its end
};

struct RunResult {
    RunFigures Figures;
    ExperimentState State;             // at the end
    std::optional<ExactFields> Exact;  // at the end, where there is an exact solution
};

// Sets the run up and follows it to its end. Empty if `mayGoOn`, asked between ticks, said no.
std::optional<RunResult> RunOnce(const RunSettings& settings, const std::string& setUpText,
                                 const SchemeLibrary& scheme, const std::function<bool()>& mayGoOn);

// One line with the keys of the figures; null for what does not apply.
std::string JsonOf(const RunFigures& figures);
