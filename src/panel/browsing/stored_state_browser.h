// Stepping through the stored states while the run is stopped. The bar and the box drive each
// other: a put that changes nothing runs no handler, which ends their chain.
#pragma once

struct Controls;
struct ExperimentState;

// The chosen state is loaded into the state arrays and shown with its time; Time itself stays. A
// state that was never stored is not loaded and changes nothing.
void vsbStoredStateNumber_Change(ExperimentState& state, Controls& controls);
void vsbStoredStateNumber_Scroll(ExperimentState& state, Controls& controls);

// Text that is no number, or the number of no stored state, changes nothing.
void txtStoredStateNumber_Change(ExperimentState& state, Controls& controls);
