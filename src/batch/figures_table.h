// The figures of a study as a table for people.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "batch/run_result.h"

struct TableLine {
    RunFigures Figures;
    std::string Series;  // the same for runs that differ in their cells alone
};

// One line a run. Neighbours of one series get the order of convergence of the density from the one
// to the next.
void PrintFigures(std::ostream& out, const std::vector<TableLine>& lines);
