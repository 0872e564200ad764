// How large the panel is drawn on the screen that it opens on.
#pragma once

#include <QSize>

// The factor for PanelScale: 1 where the window and its frame fit into the available size (logical
// pixels, task bars left out), else the largest that fits, but not below a quarter.
double FittingFactor(const QSize& available);
