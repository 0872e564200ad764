// The sound-wave experiment.
#pragma once

struct Controls;
struct ExperimentState;

// Asks for the three waves and the background velocity and makes them the problem, with periodic
// boundaries and plots of the invariants. Only before a run. An answer that is no number, or a
// frequency below 1, keeps the former value; waves that would drive the pressure or the entropy
// function to 0, and Cancel at the first question, leave the former experiment standing.
void cmdSoundWave_Click(ExperimentState& state, Controls& controls);

// Builds the waves of the record on the present grid and shows them; nothing outside sound-wave
// mode. A grid on which they are not possible gets the quiet background instead.
void InitSoundWave(ExperimentState& state, Controls& controls);
