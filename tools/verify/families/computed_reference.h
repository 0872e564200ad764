// The reference of a problem that has no exact solution.
#pragma once

#include "verify/families/family_problem.h"

struct ComputedReference {
    std::vector<double> Density;  // averages over the cells of the problem's own grid
    double Error;                 // half of what the two schemes differ by, mean
};

// Runs the problem on cells `finer` times as small with two schemes that have nothing in common but
// the equations: steepened PPM and WENO-Z. The reference is half way between both.
ComputedReference ComputeReference(const FamilyProblem& problem, int finer);
