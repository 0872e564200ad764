// How large the panel is drawn on the screen that it opens on.
#pragma once

#include <QSize>

// The factor for PanelScale: 1 where the window and its frame fit into the available size (logical
// pixels, task bars left out), else the largest that fits, but not below a quarter.
double FittingFactor(const QSize& available);

// The largest factor at which the window and its frame fit, and the largest without a frame.
double LargestFactor(const QSize& available);
double FullScreenFactor(const QSize& screen);

// The step of the zoom after the present factor, up or down. It never leaves the available size:
// the last step up is the largest factor.
double NextFactor(double present, bool larger, const QSize& available);
