// The uniform grid, the arrays on it, and the first estimate of the time step.
#pragma once

struct ExperimentState;

// Allocates the state and work arrays for N cells, all zero.
void AllocateFields(ExperimentState& state);

// Whether there is memory for the arrays of a grid of n cells with `plots` stored states, beside
// those that the experiment has and some for all else. Changes nothing.
bool HasMemoryFor(int n, int plots);

// Lays N equal cells from left to right: DX, NGridCellsD and X[1]..X[N+1], by repeated addition
// but for the two ends. Needs the arrays.
void LayGrid(ExperimentState& state, double left, double right);

// Allocates all arrays for NGridCells cells and NPlotsPerPeriod*Periods stored states, all zero,
// and lays the grid from 0 to 1, edges X[0] to X[N+2]. Control points, axes and all other scalars
// stay.
void AllocateArrays(ExperimentState& state);

// Sets the outer edges X[0] and X[N+2] as mirror images.
void SetOuterEdges(ExperimentState& state);

// DTime before the first step: a tenth of what the Courant target allows, at most PlotInterval.
// Sets the outer edges, C2 and C on the way. Needs densities and pressures above 0.
void SetInitialDTime(ExperimentState& state);

// The lists of control points with room for N+2, contents kept as far as they fit.
void ResizeControlPointLists(ExperimentState& state);
