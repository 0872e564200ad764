// Measures every scheme on every problem and writes what it found.
#pragma once

#include <ostream>
#include <string>

// Writes the tables of docs/verification.md. referenceFile holds the blast waves of 400 cells.
void WriteVerification(std::ostream& out, const std::string& referenceFile);

// Draws density against the exact or the reference solution, one SVG file for each problem, with
// 100 and 400 cells of the full scheme.
void DrawPictures(const std::string& folder, const std::string& referenceFile);
