// What the line plots draw: where a cell lies on a surface, and the curves of sound-wave mode.
#pragma once

#include "core/model/offset_array.h"

struct ExperimentState;

// Lower and upper end of a plot's axis.
struct AxisLimits {
    double Lo;
    double Hi;
};

// From the grid and an axis to the coordinates of a surface, whole numbers of its unit. Nothing is
// clamped to the surface. Cell i is drawn at its mid-point.
struct PlotScale {
    PlotScale(const ExperimentState& state, double width, double height, AxisLimits limits);

    int X(const ExperimentState& state, int cell) const;
    int Edge(double position) const;
    int Y(double value) const;

    double Sx;  // surface units per unit of length
    double Hx;  // half of it, for the sum of two edges
    double Sy;  // surface units per unit of the plotted quantity
    double Hi;  // the value at the top
};

// A quantity in cells 0..N+1 with the limits that its values ask for.
struct PlotCurve {
    OffsetArray<double> Values;
    AxisLimits Limits;
};

// The acoustic invariant R+ (sign +1) or R- (sign -1): du + sign*dp/Z summed from cell to cell, its
// mean over cells 1..N taken off. The limits have the margin of the axes; a span of zero becomes
// one of PFloor.
PlotCurve BuildInvariantCurve(const ExperimentState& state, double sign);

// The entropy function P/Rho^Gamma. Its lower limit stops at 0; a span of zero becomes 5 per cent.
PlotCurve BuildEntropyCurve(const ExperimentState& state);
