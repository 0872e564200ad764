// The same look on every desktop.
#pragma once

#include <QRgb>

class QColor;

// Sets the application's style and palette: light, whatever the desktop's theme, because lines are
// black and plots are white.
void UseFixedLook();

// Black or white, whichever is read better on a ground of that colour.
QColor ReadableOn(QRgb ground);
