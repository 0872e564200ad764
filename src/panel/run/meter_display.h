// The panel as the meter's display.
#pragma once

struct Controls;
struct ExperimentState;
struct TickArrays;

// Shows the figures of the last attempt in five of the test buttons and in lblStudentID, where they
// stay until something else writes there.
void ShowMeter(const ExperimentState& state, Controls& controls, const TickArrays& tick);
