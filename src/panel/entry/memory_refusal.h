// What does not fit into the memory is refused before anything is given up for it.
#pragma once

#include <string>

struct Controls;
struct ExperimentState;

// True if a grid of n cells with periods * plotsPerPeriod stored states finds memory beside the
// present one. If not, the caption says so, as it does when a run has stopped, and the refusal of
// `what` is noted; the caller leaves the experiment as it is.
bool FindsMemory(const ExperimentState& state, Controls& controls, const std::string& what, int n,
                 double periods, double plotsPerPeriod);

// The same for new arrays of the present sizes.
bool FindsMemory(const ExperimentState& state, Controls& controls, const std::string& what);
