// Building a problem from its control points.
#pragma once

struct Controls;
struct ExperimentState;

// Lays a fresh grid of NGridCells cells from 0 to 1 and replays the control points on it through
// the panel's boxes and Select, as if the user had entered them: the values come out with the six
// decimals of the boxes. Ends stopped, with state 0 stored and the store otherwise empty. Time
// stays; away from 0 Select refuses, and only the bare points show until a Restart. The axes become
// those of the points; without points showing the grid leaves them alone.
void ApplySetUp(ExperimentState& state, Controls& controls);
