// What every built-in problem writes into the panel.
#pragma once

struct Controls;
struct ExperimentState;

// Bars, value boxes and Min and Max boxes of density, pressure and velocity, for the selected
// values on the present axes. Their handlers run.
void FillValueControls(ExperimentState& state, Controls& controls);

// The bar and box of the selected cell, which stays selected whatever the bar's new range does.
void FillCellControls(ExperimentState& state, Controls& controls);

// MSec with its limits, the first time step, the clock, the browser's bar and the Courant number,
// in this order.
void FillRunControls(ExperimentState& state, Controls& controls);
