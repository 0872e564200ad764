// A press on a line plot selects the cell under the pointer, also during a run.
#pragma once

struct Controls;
struct ExperimentState;

// The cell whose left edge is the last one at or left of `position`, 1..N; 0 if there is none.
int CellAt(const ExperimentState& state, double position);

// x and y in the surface's own unit; only x counts.
void pctDensityPlot_MouseDown(ExperimentState& state, Controls& controls, float x, float y);
void pctPressurePlot_MouseDown(ExperimentState& state, Controls& controls, float x, float y);
void pctVelocityPlot_MouseDown(ExperimentState& state, Controls& controls, float x, float y);

// Makes cell m the selected one and shows its values, the cell number last: its handler repaints.
void PickCell(ExperimentState& state, Controls& controls, int m);
