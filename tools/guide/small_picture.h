// Pictures of the window as small files.
#pragma once

#include <QImage>

// The picture with a palette of at most 256 colours of its own, by median cut: boxes of colours are
// halved at the median of their longest side, first where most pixels lie furthest apart. A picture
// with fewer colours keeps them all.
QImage WithPalette(const QImage& picture);
