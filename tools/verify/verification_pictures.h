// Density against the exact or the reference solution.
#pragma once

#include <string>

// One SVG file for each problem, with 100 and 400 cells of the full scheme. Throws
// std::runtime_error where a file cannot be written.
void DrawPictures(const std::string& folder, const std::string& referenceFile);

// The name of its file, without ".svg".
std::string PictureName(std::size_t problem);
