// The figures of a study as a table for people.
#pragma once

#include <iosfwd>
#include <vector>

#include "batch/run_result.h"

// One line a run. Runs of one problem and scheme that differ in their cells alone get the order of
// convergence of the density from each to the next.
void PrintFigures(std::ostream& out, const std::vector<RunFigures>& figures);
