// At which stage of an experiment its set-up is open.
#pragma once

struct ExperimentState;

// True while everything may be changed: stopped, and no step taken since start-up or the last
// Restart. Time is exactly 0 then.
bool IsBeforeRun(const ExperimentState& state);
