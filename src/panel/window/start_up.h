// From the program's entry to a window that is ready for Begin, and back.
#pragma once

struct Controls;
struct ExperimentState;

// Runs once, when the window has been made and before it is shown: makes the two rasters, gives the
// record its values at start, asks for the user's name and builds the default problem.
void Form_Initialize(ExperimentState& state, Controls& controls);

// Runs once, when the window closes: stops the experiment and gives the rasters up.
void Form_Unload(ExperimentState& state, Controls& controls);
