// What a picture shows, for the tests that look at one.
#pragma once

#include <QColor>
#include <QImage>
#include <QRect>
#include <cmath>

struct Pixels {
    QRect Bounds;
    int Count = 0;
};

// Those of the picture's pixels for which `isSought(x, y)` holds.
template <typename Sought>
Pixels PixelsWhere(const QImage& image, Sought isSought) {
    Pixels found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (!isSought(x, y)) continue;
            found.Bounds |= QRect(x, y, 1, 1);
            ++found.Count;
        }
    }
    return found;
}

// The brightness that the eye sees, 0 to 1.
inline double Luminance(const QColor& colour) {
    return 0.2126 * std::pow(colour.redF(), 2.2) + 0.7152 * std::pow(colour.greenF(), 2.2) +
           0.0722 * std::pow(colour.blueF(), 2.2);
}
