// The problem with which the program comes up.
#pragma once

struct Controls;
struct ExperimentState;

// Builds the interacting blast waves and fills the panel from them. The put of the grid-size box
// runs that box's handler, since the box still shows the text of the design: it rebuilds the
// problem from its control points, and what the panel shows is the work of both passes.
void InitDefaultProblem(ExperimentState& state, Controls& controls);
