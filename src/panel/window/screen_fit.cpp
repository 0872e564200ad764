#include "panel/window/screen_fit.h"

#include <algorithm>
#include <iterator>

#include "panel/widgets/panel_scale.h"
#include "panel/window/panel_layout.h"

namespace {

// What the desktop puts around a window, at most: a title bar and borders.
constexpr QSize Frame(8, 40);
constexpr double SmallestFactor = 0.25;

// Those of browsers.
constexpr double ZoomSteps[] = {0.25, 0.33, 0.5, 0.67, 0.8, 0.9, 1.0, 1.1, 1.25,
                                1.5,  1.75, 2.0, 2.25, 2.5, 3.0, 3.5, 4.0, 5.0};

}  // namespace

double FullScreenFactor(const QSize& screen) {
    const PanelScale full;
    const double across = static_cast<double>(screen.width()) / full.ToPixels(WindowTwips.width());
    const double down = static_cast<double>(screen.height()) / full.ToPixels(WindowTwips.height());
    return std::max(std::min(across, down), SmallestFactor);
}

double LargestFactor(const QSize& available) {
    return FullScreenFactor(available - Frame);
}

double FittingFactor(const QSize& available) {
    return std::min(LargestFactor(available), 1.0);
}

double NextFactor(double present, bool larger, const QSize& available) {
    constexpr double same = 1e-6;
    const double largest = LargestFactor(available);
    if (larger) {
        const double* const next =
            std::upper_bound(std::begin(ZoomSteps), std::end(ZoomSteps), present + same);
        return next == std::end(ZoomSteps) ? largest : std::min(*next, largest);
    }
    const double* const next =
        std::lower_bound(std::begin(ZoomSteps), std::end(ZoomSteps), present - same);
    return next == std::begin(ZoomSteps) ? std::min(present, largest) : *(next - 1);
}
