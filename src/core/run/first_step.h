// The time step and the clock with which a problem starts.
#pragma once

struct ExperimentState;

// Works out C2 and C of cells 0..N+1 and gives the shortest time in which a sound wave crosses a
// cell, at most `bound`. Needs X[0]..X[N+2].
double ShortestCrossingTime(ExperimentState& state, double bound);

// A tenth of the step that the Courant target allows; the time in which a wave of speed SoundSpeed0
// crosses cell 1 counts too. C2 and C are worked out on the way. Needs densities and pressures
// above 0. What sets DTime from it holds it to PlotInterval.
double FirstTimeStep(ExperimentState& state);

// The unit of time and the end of the run; the plot interval and its countdown follow.
void SetClock(ExperimentState& state, double periodTime, double tStop);

// The same where a run lasts Periods units of time, and DTime held to the plot interval.
void SetPeriodClock(ExperimentState& state, double periodTime);

// The entries of the three numbers that the clock is worked out from. The store follows the number
// of plots; what is stored stays. All need positive numbers, the plots at least 1.
void SetPeriods(ExperimentState& state, double periods);
void SetPlotsPerPeriod(ExperimentState& state, int plots);
