// Begin, Pause, Continue and Restart. A run is the flag Stopped at 0: the metronome ticks all the
// time, and its ticks advance the experiment only then. A press that is not allowed is ignored.
#pragma once

struct Controls;
struct ExperimentState;

// Prepares stored state 0 and starts the run. Only at Time = 0.
void cmdBegin_Click(ExperimentState& state, Controls& controls);

// Holds the run where it stands.
void cmdPause_Click(ExperimentState& state, Controls& controls);

// Continues the run with the time of the last stored state. The fields are brought back to that
// state only if the run is stopped and another one is on display; else they go on from the step
// that they had reached. Ignored before any state is stored.
void cmdContinue_Click(ExperimentState& state, Controls& controls);

// Stops the run, goes back to stored state 0 and Time 0, and gives up all other stored states. If
// nothing has been stored yet the fields stay as they are.
void cmdRestart_Click(ExperimentState& state, Controls& controls);
