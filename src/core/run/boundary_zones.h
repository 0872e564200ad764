// The ghost cells beyond both ends of the grid.
#pragma once

struct ExperimentState;

// Rewrites the NBDY ghost cells at either end of X, Rho, P, Ux, Uy and FSmoke from the real cells,
// by the boundary types MnBdry and MxBdry. X is extended by one edge more on the right; X[1] and
// X[N+1] are not touched. MnBdry 4 makes both ends periodic; else 1 reflects (Ux changes sign) and
// any other value continues the end cell outward. Needs N >= NBDY. A second fill changes nothing.
void FillBoundaryZones(ExperimentState& state);

// The fill before the first snapshot of a run: only cells 0 and N+1 of the five fields, X is left
// alone. It wraps around in sound-wave mode and reflects otherwise, whatever the boundary types.
void FirstBoundaryFill(ExperimentState& state);
