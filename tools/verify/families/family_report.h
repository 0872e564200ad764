// Tables of what the families gave.
#pragma once

#include <ostream>

#include "verify/families/family_run.h"

// One line for each family and scheme; with cases, one line for each case too.
void PrintFamilies(std::ostream& out, const FamilySettings& settings,
                   const std::vector<FamilyResult>& results, bool withCases);

// The section of the verification document: a table for each scheme, then each loss by name.
void WriteFamilySection(std::ostream& out, const FamilySettings& settings,
                        const std::vector<FamilyResult>& results);
