// What a scheme, and the published schemes beside it, make of the problems with known solutions.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "core/analysis/error_norms.h"
#include "core/model/experiment_state.h"
#include "verify/scheme_kind.h"
#include "verify/trial_problems.h"
#include "verify/trial_run.h"

constexpr std::array<int, 4> Sizes = {100, 200, 400, 800};

// Problems 0 to 7 are the shock tubes, 8 the blast waves.
constexpr std::size_t ProblemCount = 9;
constexpr std::size_t BlastWaves = 8;
std::string ProblemName(std::size_t problem);
// The reference solution of the blast waves has 400 cells.
bool HasSolution(std::size_t problem, int cells);

struct Measured {
    ExperimentState State;  // at the end
    ExactFields Exact;
    TrialCounts Counts;
    ErrorNorms Rho, P, Ux, Uy;
};

// Needs a solution. referenceFile is that of the blast waves.
Measured Measure(const SchemeLibrary& library, std::size_t problem, int cells,
                 const std::string& referenceFile);

// The mean density error of a moving (0) or standing (1) sound wave after one unit of time.
double SoundWaveError(const SchemeLibrary& library, std::size_t wave, int cells);

// The least mean density error of the classic schemes in peers/.
double BestPeerError(std::size_t problem, int cells, const std::string& referenceFile);
