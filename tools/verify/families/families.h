// Families of problems drawn from seeds, as broad as what a student can draw.
#pragma once

#include <span>

#include "verify/families/draw.h"
#include "verify/families/family_problem.h"

struct Family {
    const char* Name;
    const char* What;
    FamilyProblem (*Make)(Draw& draw);
    bool Smooth = false;    // no jump anywhere, so that a scheme of fifth order is at home
    bool Computed = false;  // no exact solution: a third of the cases, as each takes seconds
};

std::span<const Family> AllFamilies();
