// A line plot over the grid as a drawing: its curve, the control points and the selected cell. A
// function of the record, the axis and the size; the window puts it on a surface, and without one
// it can be written as SVG.
#pragma once

#include "core/model/offset_array.h"
#include "core/picture/plot_curves.h"

class DrawingList;
struct ExperimentState;

enum class LinePlot { Density, Pressure, Velocity };

// The interior of a plot in twips, the unit of what is drawn.
struct PlotSize {
    float Width;
    float Height;
};

// What a plot shows in ordinary mode: an array of the record and the ends of its axis.
struct PlotQuantity {
    OffsetArray<double> ExperimentState::*Values;
    double ExperimentState::*Lo;
    double ExperimentState::*Hi;
};
PlotQuantity QuantityOf(LinePlot plot);

// What it shows in sound-wave mode: R+ for density, the entropy function for pressure, R- for
// velocity.
PlotCurve BuildSoundWaveCurve(const ExperimentState& state, LinePlot plot);

// Adds the curve of `values`, which are indexed from 0 to N+1, to the list, then the marks: the
// control points as filled boxes (only stopped, on state 0, and not in sound-wave mode) and the
// selected cell as a hollow one. The curve goes through the middle of each cell; at either end it
// has the mean of the last cell and the ghost cell beside it.
void DrawPlot(const ExperimentState& state, const OffsetArray<double>& values, AxisLimits limits,
              PlotSize size, DrawingList& list);

// The same with what the plot shows in the record's mode. Returns the limits of its axis.
AxisLimits DrawPlot(const ExperimentState& state, LinePlot plot, PlotSize size, DrawingList& list);
