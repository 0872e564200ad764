// One accepted time step: attempts, the Courant gate, acceptance with floors, the next step length.
#pragma once

struct ExperimentState;
struct TickArrays;

// Time steps that one tick runs, at least 1: N\30, so that a tick costs about as much on every
// grid; a weak sound wave advances by about 0.1 time units instead, unless that would keep the user
// waiting. Needs DTime above 0.
int StepsOfTick(const ExperimentState& state);

// Advances the state by one step: attempts it with ever shorter DTime until its Courant number is
// below 1, accepts it, moves Time and TimeToPlot, and follows the Courant number with DTime.
// False if no step could be taken: there is no scheme library, the Courant number is NaN or does
// not fall below 1 however short the step, or a result is missing or not finite. The state is then
// as it was, DTime included, and state.Refusal says why.
bool TakeTimeStep(ExperimentState& state, TickArrays& tick);

// Puts the results of the attempt, which have their floors, in the place of the fields; what the
// fields held before becomes room for the next results. The ghost cells are right only after the
// next FillBoundaryZones.
void AcceptStep(ExperimentState& state, TickArrays& tick);

// DTime for the next step: grows by 2.5 per cent, up to PlotInterval, while the step stays below 90
// per cent of the Courant target, and falls back to the target at once when it overshoots.
void ControlTimeStep(ExperimentState& state, double stepCourant);
