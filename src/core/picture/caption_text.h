// The texts of the experiment's caption, pure functions of the set-up and of a refusal.
#pragma once

#include <string>

#include "core/model/refusal.h"

struct ExperimentState;
struct RiemannProblem;

// The present moment in the system's short forms.
struct Moment {
    std::string Date;
    std::string Time;
};

// One line: the amplitudes, the background velocity, when and by whom.
std::string SoundWaveCaption(const ExperimentState& state, const Moment& now);

// Two lines: three states between two jumps, from the control points 2 to 5. Needs six points.
std::string SixPointCaption(const ExperimentState& state, const Moment& now);

// Two lines: two states and one jump, from the control points 2 to 5. Needs four points; entry 5
// then closes the list and repeats the last point.
std::string FourPointCaption(const ExperimentState& state, const Moment& now);

// Two lines: the twelve numbers of a test.
std::string RiemannCaption(const ExperimentState& state, const RiemannProblem& problem,
                           const Moment& now);

// Why the run has stopped as part of a sentence, and the two lines that tell the user.
std::string RefusalReason(const RunRefusal& refusal);
std::string RefusalCaption(const RunRefusal& refusal);
