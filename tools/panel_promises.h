// What holds between any two events of the panel, whatever its user does.
#pragma once

#include <string>

class frmTernlow;

// The first promise of the record or of its controls that is broken, with the numbers that show it.
// Empty if all are kept.
std::string BrokenPromise(const frmTernlow& form);
