// Measures every scheme on every problem and writes what it found.
#pragma once

#include <ostream>
#include <string>

// Writes docs/verification.md but for the families of problems. referenceFile holds the blast waves
// of 400 cells.
void WriteVerification(std::ostream& out, const std::string& referenceFile);
