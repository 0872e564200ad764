// The main loop: what happens whenever the metronome fires.
#pragma once

struct Controls;
struct ExperimentState;

// One tick. Unless the experiment is stopped it advances by a number of time steps, stores the
// states whose plot times have come, ends the run once TStop is reached at a plot time, and redraws
// the line plots once. A run whose scheme cannot take a step is stopped where it stands.
void tmrMetronome_Timer(ExperimentState& state, Controls& controls);
