// The codes of the boundary types in MnBdry and MxBdry; any other value continues the end cell.
#pragma once

constexpr int ReflectingBoundary = 1;
constexpr int ContinuationBoundary = 2;
constexpr int PeriodicBoundary = 4;
