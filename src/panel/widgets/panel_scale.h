// The one conversion from the panel's unit to the screen's.
#pragma once

#include <QPoint>
#include <QRect>
#include <QtGlobal>
#include <algorithm>

// The panel is drawn in twips. At factor 1 fifteen of them are one logical pixel; another factor
// shrinks or enlarges the whole panel, places, sizes and fonts alike.
class PanelScale {
public:
    // corner: the pixel of the window at which the panel begins.
    explicit PanelScale(double factor = 1.0, QPoint corner = {})
        : factor_(factor), corner_(corner) {}

    double Factor() const { return factor_; }
    QPoint Corner() const { return corner_; }

    double TwipsPerPixel() const { return 15.0 / factor_; }

    int ToPixels(int twips) const { return qRound(twips / TwipsPerPixel()); }

    // A width in twips gives the same width in pixels wherever the rectangle lies.
    QRect ToPixels(const QRect& twips) const {
        return {corner_.x() + ToPixels(twips.x()), corner_.y() + ToPixels(twips.y()),
                ToPixels(twips.width()), ToPixels(twips.height())};
    }

    // The height of a font that is atFactor1 pixels high on the full-size panel.
    int FontPixels(int atFactor1) const { return std::max(1, qRound(atFactor1 * factor_)); }

private:
    double factor_;
    QPoint corner_;
};
