#include "panel/widgets/black_pen.h"

#include <algorithm>
#include <cmath>

BlackPen::BlackPen(QImage& image, int width)
    : pixels_(reinterpret_cast<QRgb*>(image.bits())),
      rowLength_(image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb))),
      imageWidth_(image.width()),
      imageHeight_(image.height()),
      width_(width) {}

// The first pixel that the pen covers when its middle is there; one off the image for all places
// beyond an edge.
int BlackPen::Pixel(double middle, int size) const {
    const double first = std::floor(middle - 0.5 * (width_ - 1));
    return static_cast<int>(std::clamp<double>(first, -width_, size));
}

// The right and bottom ends are not filled.
void BlackPen::Fill(int left, int top, int right, int bottom) {
    left = std::max(left, 0);
    right = std::min(right, imageWidth_);
    if (left >= right) return;
    for (int y = std::max(top, 0); y < std::min(bottom, imageHeight_); ++y) {
        std::fill(pixels_ + y * rowLength_ + left, pixels_ + y * rowLength_ + right, 0xFF000000);
    }
}

// One dot for every pixel along the axis on which the line is longer, where the line passes the
// middle of that pixel, or ends before it.
void BlackPen::Line(QPointF from, QPointF to) {
    const bool isSteep = std::abs(to.y() - from.y()) > std::abs(to.x() - from.x());
    if (isSteep) {
        from = from.transposed();
        to = to.transposed();
    }
    const int alongSize = isSteep ? imageHeight_ : imageWidth_;
    const int acrossSize = isSteep ? imageWidth_ : imageHeight_;
    const double low = std::min(from.x(), to.x());
    const double high = std::max(from.x(), to.x());
    const double slope = high > low ? (to.y() - from.y()) / (to.x() - from.x()) : 0.0;
    // Measured from the nearer end, so that the rounding of a distant one is not seen.
    const QPointF anchor = std::abs(from.x()) <= std::abs(to.x()) ? from : to;
    const double middle = 0.5 * width_;
    for (int pixel = Pixel(low, alongSize); pixel <= Pixel(high, alongSize); ++pixel) {
        const double along = std::clamp(pixel + middle, low, high);
        const int across = Pixel(anchor.y() + (along - anchor.x()) * slope, acrossSize);
        isSteep ? Dot(across, pixel) : Dot(pixel, across);
    }
}

void BlackPen::FilledBox(QPointF corner, QPointF opposite) {
    Fill(Pixel(std::min(corner.x(), opposite.x()), imageWidth_),
         Pixel(std::min(corner.y(), opposite.y()), imageHeight_),
         Pixel(std::max(corner.x(), opposite.x()), imageWidth_) + width_,
         Pixel(std::max(corner.y(), opposite.y()), imageHeight_) + width_);
}

void BlackPen::BoxOutline(QPointF corner, QPointF opposite) {
    const QPointF across(opposite.x(), corner.y());
    const QPointF down(corner.x(), opposite.y());
    FilledBox(corner, across);
    FilledBox(corner, down);
    FilledBox(across, opposite);
    FilledBox(down, opposite);
}
