// The one place where the families meet the instrument's schemes and its step control.
#pragma once

#include "verify/families/family_problem.h"
#include "verify/loaded_scheme.h"

// Takes the problem to its time. The density holds NaN if the run broke down.
GasCells RunScheme(const LoadedScheme& scheme, const FamilyProblem& problem);
