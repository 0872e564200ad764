// Carrying the control points to another grid.
#pragma once

struct ExperimentState;

// Finds the cell of every control point on the grid whose edges stand in X[1]..X[N+1], by position,
// and closes the list at N+1. Points never share a cell and keep their order: where several
// positions fall into one cell the later ones move on, and where the grid ends the earlier ones
// make room. A list of two points or fewer keeps its cells as far as they lie on the grid.
// Needs NSelected <= N and lists with room for the grid.
void MapControlPoints(ExperimentState& state);
