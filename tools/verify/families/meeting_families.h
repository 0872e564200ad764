// Families of waves that meet contacts, walls and each other, exact after the meeting.
#pragma once

#include "verify/families/draw.h"
#include "verify/families/family_problem.h"

FamilyProblem ShockMeetsContact(Draw& draw);
FamilyProblem ShockMeetsWall(Draw& draw);
FamilyProblem StreamMeetsWall(Draw& draw);
FamilyProblem ShocksMeet(Draw& draw);
FamilyProblem TubesMeet(Draw& draw);
