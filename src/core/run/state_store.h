// The history of a run: one snapshot of the grid per plot time.
#pragma once

struct ExperimentState;

// Elements from one stored state to the next.
int StoreStride(const ExperimentState& state);

// Allocates the eight store arrays anew, all zero, for NPlotsTotal states, and sets StoreCapacity.
// There is always room for state 0 and never for more states than StoredT has times, so that the
// store stays bounded whatever was typed.
void AllocateStore(ExperimentState& state);

// The same with a new NPlotsTotal; what is stored stays as far as it fits.
void ResizeStore(ExperimentState& state);

// NPlotsTotal from NPlotsPerPeriod and Periods.
void SetNPlotsTotal(ExperimentState& state);

// Forgets all stored states and sets the time of state 0 to the present Time. The arrays stay.
void EmptyStore(ExperimentState& state);

// Writes the present fields of cells 0..N+1 to elements base..base+N+1 of the store, with what
// follows from them: the entropy function P/Rho^Gamma and the acoustic invariants R+ and R-, which
// are integrated along the grid cell by cell and freed of their mean over cells 1..N. The caller
// sees to cells 0 and N+1 and to the counters of the store.
void TakeSnapshot(ExperimentState& state, int base);

// True if the store has room for one state more.
bool StoreHasRoom(const ExperimentState& state);

// Appends the present state with its time, ghost cells filled, and counts it. Needs room.
void StoreState(ExperimentState& state);

// True if state s has been written since the store was allocated. NStored alone cannot tell: a
// problem that is set up over an old run leaves the counters of that run in place.
bool IsStored(const ExperimentState& state, int s);

// Brings the fields of cells 0..N+1 of stored state s back into the state arrays. Needs IsStored.
void LoadStoredState(ExperimentState& state, int s);
