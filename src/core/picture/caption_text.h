// The texts of the experiment's caption as pure functions of the set-up and of a refused run.
#pragma once

#include <string>

#include "core/model/refusal.h"

struct ExperimentState;
struct RiemannProblem;

// A date and a time in the short forms of the user's locale.
struct Moment {
    std::string Date;
    std::string Time;
};

// One line: the amplitudes, the background velocity, date, time and name.
std::string SoundWaveCaption(const ExperimentState& state, const Moment& now);

// Two lines: three states between two jumps, from the control points 2 to 5. Needs six points.
std::string SixPointCaption(const ExperimentState& state, const Moment& now);

// Two lines: two states and one jump, from the control points 2 to 5. Needs four points; entry 5
// then closes the list and repeats the last of them.
std::string FourPointCaption(const ExperimentState& state, const Moment& now);

// Two lines: the twelve numbers of a Riemann test.
std::string RiemannCaption(const ExperimentState& state, const RiemannProblem& problem,
                           const Moment& now);

// Why the run has stopped: as a clause, and as the two lines shown to the user.
std::string RefusalReason(const RunRefusal& refusal);
std::string RefusalCaption(const RunRefusal& refusal);
