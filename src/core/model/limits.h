// How far the numbers of an experiment may go, and where its arrays begin.
#pragma once

// The first cell of the arrays on the grid.
constexpr int FirstCell = -6;

// The largest density, pressure, speed or amplitude that is taken from the user: beyond it the
// energies of the 32-bit schemes would overflow.
constexpr double LargestValue = 1e12;

// How far the position of a control point is set back from the face of its cell, so that it falls
// on the proper side of a jump when the grid changes.
constexpr double PositionSetBack = 1e-07;

// The largest end of an axis: the largest value with its margin, and room to grow.
constexpr double LargestAxis = 10.0 * LargestValue;

// The smallest Courant target that is taken from the user: a time step stays a number above 0.
constexpr double SmallestCourantNumber = 1e-12;
