// Families of two uniform states with a jump between them.
#pragma once

#include "verify/families/draw.h"
#include "verify/families/family_problem.h"

FamilyProblem MildJump(Draw& draw);
FamilyProblem StrongJump(Draw& draw);
FamilyProblem PartingStreams(Draw& draw);
FamilyProblem CollidingStreams(Draw& draw);
FamilyProblem CarriedCollision(Draw& draw);
FamilyProblem SlowShock(Draw& draw);
FamilyProblem SlowContact(Draw& draw);
FamilyProblem NearVacuum(Draw& draw);
FamilyProblem LargeRatios(Draw& draw);
FamilyProblem MovingFrame(Draw& draw);
FamilyProblem AnyCourant(Draw& draw);
FamilyProblem AnyGamma(Draw& draw);
FamilyProblem UnevenJump(Draw& draw);
FamilyProblem MovingBox(Draw& draw);
