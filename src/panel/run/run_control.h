// Begin, Pause, Continue and Restart. A run is the flag Stopped at 0: the metronome ticks all the
// time, and its ticks advance the experiment only then. A press that is not allowed is ignored.
#pragma once

struct Controls;
struct ExperimentState;

// Prepares stored state 0 and starts the run. Only at Time = 0.
void cmdBegin_Click(ExperimentState& state, Controls& controls);

// Holds the run where it stands.
void cmdPause_Click(ExperimentState& state, Controls& controls);

// Continues the run from the last stored state; what was computed after it is computed again.
// Ignored before any state is stored.
void cmdContinue_Click(ExperimentState& state, Controls& controls);

// Stops the run, goes back to stored state 0 and Time 0, and gives up all other stored states. If
// nothing has been stored yet the fields stay as they are.
void cmdRestart_Click(ExperimentState& state, Controls& controls);
