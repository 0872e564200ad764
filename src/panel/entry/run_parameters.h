// The boxes of the run's parameters. Every keystroke runs the handler: half-typed text changes
// nothing and stays as typed. Where the present stage of the run locks a box, it shows the present
// value again over the typing.
#pragma once

struct Controls;
struct ExperimentState;

void txtCourantNumber_Change(ExperimentState& state, Controls& controls);    // at every stop
void txtMSec_Change(ExperimentState& state, Controls& controls);             // at any time
void txtNPeriods_Change(ExperimentState& state, Controls& controls);         // before a run
void txtNPlotsPerPeriod_Change(ExperimentState& state, Controls& controls);  // before a run
