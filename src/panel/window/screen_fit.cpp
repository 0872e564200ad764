#include "panel/window/screen_fit.h"

#include <algorithm>

#include "panel/widgets/panel_scale.h"
#include "panel/window/panel_layout.h"

namespace {

// What the desktop puts around a window, at most: a title bar and borders.
constexpr QSize Frame(8, 40);
constexpr double SmallestFactor = 0.25;

}  // namespace

double FittingFactor(const QSize& available) {
    const PanelScale full;
    const QSize room = available - Frame;
    const double across = static_cast<double>(room.width()) / full.ToPixels(WindowTwips.width());
    const double down = static_cast<double>(room.height()) / full.ToPixels(WindowTwips.height());
    return std::clamp(std::min(across, down), SmallestFactor, 1.0);
}
