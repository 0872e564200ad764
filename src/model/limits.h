// How far the numbers of an experiment may go.
#pragma once

// The largest density, pressure, speed or amplitude that is taken from the user: beyond it the
// energies of the 32-bit schemes would overflow.
constexpr double LargestValue = 1e12;

// The smallest Courant target that is taken from the user: a time step stays a number above 0.
constexpr double SmallestCourantNumber = 1e-12;
