// The curves of sound-wave mode, and where the line plots put a cell and a value.
#pragma once

#include "core/model/offset_array.h"

struct ExperimentState;

// Lower and upper end of a plot's axis.
struct AxisLimits {
    double Lo;
    double Hi;
};

// From positions and values to coordinates of a plot: whole numbers of its unit, y growing downward
// from the upper end of the axis. Nothing is clamped to the plot.
struct PlotScale {
    PlotScale(const ExperimentState& state, double width, double height, AxisLimits limits);

    int X(const ExperimentState& state, int cell) const;  // the middle of the cell
    int Edge(double position) const;                      // a position on the grid
    int Y(double value) const;

    double Sx;  // plot units per unit of length
    double Hx;  // half of Sx, for the sum of a cell's two edges
    double Sy;  // plot units per unit of the plotted quantity
    double Hi;  // the value at the top
};

// A quantity in cells 0..N+1 and the axis limits that fit its values.
struct PlotCurve {
    OffsetArray<double> Values;
    AxisLimits Limits;
};

// The acoustic Riemann invariant R+ (sign +1) or R- (sign -1): du + sign*dp/Z summed from cell to
// cell, less its mean over cells 1..N. The limits have the usual margin of an axis; if they are
// equal, the upper one is raised by PFloor.
PlotCurve BuildInvariantCurve(const ExperimentState& state, double sign);

// The entropy function P/Rho^Gamma. Its lower limit stops at 0; if the limits are equal, the upper
// one is raised by 5 per cent.
PlotCurve BuildEntropyCurve(const ExperimentState& state);
