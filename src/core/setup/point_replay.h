// Building a problem from its control points, one after the other, as a user would enter them.
#pragma once

#include "core/setup/control_points.h"

struct ExperimentState;

// The least and the greatest value so far of one quantity of the control points.
struct Extremes {
    double Lo;
    double Hi;

    void TakeIn(double v);
    // The axis that shows them; `noSpan` is its margin when they are equal.
    void SetAxis(double noSpan, double& lo, double& hi) const;
};

// Of the points that have been entered; starts from the first.
struct PointExtremes {
    explicit PointExtremes(const ExperimentState& state);
    Extremes Rho, P, Vx;
};

// Fresh arrays for NGridCells cells from 0 to 1, filled with the values of the first two entries of
// the list of control points. Points beyond the grid are mapped to it by their positions.
void LayBareGrid(ExperimentState& state);

// Makes the point of entry k the selected values and puts them into its cell; the axes become those
// of the points so far.
void EnterPoint(ExperimentState& state, int k, PointExtremes& extremes);

// The values of entry k as the boxes give them back: with six decimals, at least the floors. A
// density that rounds to 0 keeps its value.
PointValues ValuesAsShown(const ExperimentState& state, int k);

// Enters and selects points 1 to `last`, all but the last of the list at most. The cells behind the
// last of them are left to what follows. Away from Time 0 nothing is selected and only the bare
// points show.
void ReplayFirstPoints(ExperimentState& state, int last, PointExtremes& extremes);

// Enters and selects the last point of the list.
void ReplayLastPoint(ExperimentState& state, PointExtremes& extremes);

// Puts a point with these values into cell m: one that is there already is taken off first. The
// first time step and the smoke follow.
void SelectPoint(ExperimentState& state, int m, const PointValues& values);

// Takes cell m off the list if it is on it. The first time step and the smoke follow.
void DeselectPoint(ExperimentState& state, int m);

// The first time step, the clock and stored state 0 of the problem that has been laid.
void FinishReplay(ExperimentState& state);
