// The one place where the families meet the instrument's schemes and its step control.
#pragma once

#include "core/run/scheme_library.h"
#include "verify/families/family_problem.h"

// Takes the problem to its time. The density holds NaN if the run broke down.
GasCells RunScheme(const SchemeLibrary& scheme, const FamilyProblem& problem);
