// The ordered list of control points and the straight ramps that it draws between them.
#pragma once

struct ExperimentState;

// The state of one control point.
struct PointValues {
    double Rho;
    double P;
    double Vx;
};

// The entry of `cell` on the list, 1..NSelected; 0 if it is not there.
int FindControlPoint(const ExperimentState& state, int cell);

// Makes cell m, not yet on the list, a control point with these values, all above 0 but Vx. The
// cells up to either neighbour on the list become ramps, linear in cell number, their transverse
// velocity and smoke 0. An empty list starts with the two end cells as well, so that the whole grid
// is filled; on an end cell the bounding cell beyond it follows.
void InsertControlPoint(ExperimentState& state, int m, const PointValues& values);

// Takes entry k off the list and puts its cell on it anew with these values, but leaves the cells
// towards the next point to that point. Entries k+1.. are to follow in their order. Needs two
// points or more.
void ReplaceControlPoint(ExperimentState& state, int k, const PointValues& values);

// Takes entry k off the list and closes the gap with a ramp between its former neighbours, from
// the fields as they stand. The last point of all leaves the fields alone.
void RemoveControlPoint(ExperimentState& state, int k);
