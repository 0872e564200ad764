// Families without an exact solution: what they should end with is computed on a finer grid.
#pragma once

#include "verify/families/draw.h"
#include "verify/families/family_problem.h"

FamilyProblem ShockOnWave(Draw& draw);
FamilyProblem BlastWaves(Draw& draw);
FamilyProblem Pulse(Draw& draw);
