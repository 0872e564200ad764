// The life of a run: it is begun, advanced tick by tick, and stops; it can be continued from its
// last stored state, and restarted. A run is the flag Stopped at 0.
#pragma once

#include <functional>

struct ExperimentState;
struct TickArrays;

// Fills the bounding cells, makes the present state stored state 0 of a new store, and starts. Only
// at Time 0: false, and nothing is changed, otherwise.
bool BeginRun(ExperimentState& state);

// Goes on from the last stored state, which is brought back if another one is on display. False,
// and nothing is changed, before any state is stored.
bool ContinueRun(ExperimentState& state);

// Stops, goes back to stored state 0 and Time 0, gives up all other stored states and works out the
// first time step anew. If nothing has been stored yet the fields stay as they are.
void RestartRun(ExperimentState& state);

// Halts the run where it stands.
void StopRun(ExperimentState& state);

// What a tick has to show.
struct TickResult {
    bool HasStored = false;   // at least one state
    int StatesOnPicture = 0;  // on the last picture that falls into the tick, 0 if none does
    bool GoesOn = true;       // false at the end of the run, or when state.Refusal says why not
};

// Advances the run by the steps of one tick; the end of the run cuts them short. The ghost cells
// are fresh afterwards and the axes hold the present state. A run that does not go on is still to
// be stopped: what the caller shows before that is shown of a run in progress. Arrays of the
// present grid and scheme can serve any number of ticks.
TickResult AdvanceRun(ExperimentState& state, TickArrays& tick);

// Advances the run until it stops, or until `mayGoOn`, asked between two ticks, says no; it is then
// stopped as by StopRun. True if the run has come to its end.
bool RunToEnd(ExperimentState& state, TickArrays& tick, const std::function<bool()>& mayGoOn = {});
