// Hands the state of one time step to a scheme library, strip by strip, and gathers the result.
#pragma once

struct ExperimentState;
struct TickArrays;

// One attempt at a step of length tick.StepDT with tick.Library: fills tick.RhoOut, POut, UxOut and
// state.UyNew, FSmokeNew for cells 1..N and sets tick.StepCourant. The rest of the state is only
// read. The results have their floors: density and pressure are raised to theirs, and a velocity
// smaller than VFloor is 0. Needs fresh ghost zones. Without a library nothing happens. Every strip
// reads the state as it stood before the step, so that neither their order nor their number shows
// in the result. A cell that the library leaves without a result is NaN, and so is
// StepCourant once a strip has returned NaN. With the meter on every call is repeated with the same
// arguments and the strip loop is timed.
void AdvanceAllStrips(ExperimentState& state, TickArrays& tick);

// How often each library call is made: once, or for the meter as often as it takes to update 80000
// cells in a step whatever the grid.
int CallsPerStrip(const ExperimentState& state);
