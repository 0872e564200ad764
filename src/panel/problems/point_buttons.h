// Select, Deselect and Reset: problems drawn by hand.
#pragma once

struct Controls;
struct ExperimentState;

// Makes the selected cell a control point with the values of the boxes. Only before a run. Text
// that is no number, and a density at or below 0, count as the value that the panel holds; density
// and pressure are raised to their floors.
void cmdSelect_Click(ExperimentState& state, Controls& controls);

// Takes the cell in the box off the list, at any time, also from the fields of a run. A cell that
// is not on the list, or a text that is no cell, changes neither list nor fields; the first time
// step and the smoke are worked out anew all the same.
void cmdDeselect_Click(ExperimentState& state, Controls& controls);

// Takes off all points but the first and the last. Only before a run.
void cmdReset_Click(ExperimentState& state, Controls& controls);
