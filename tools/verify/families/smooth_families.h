// Families of sound waves, and of ramps, bumps and waves of density that the flow carries along.
#pragma once

#include "verify/families/draw.h"
#include "verify/families/family_problem.h"

FamilyProblem SmallSoundWave(Draw& draw);
FamilyProblem FiniteSoundWave(Draw& draw);
FamilyProblem CarriedRamp(Draw& draw);
FamilyProblem CarriedBump(Draw& draw);
FamilyProblem CarriedWave(Draw& draw);
FamilyProblem FastWave(Draw& draw);
FamilyProblem UnevenSmooth(Draw& draw);
