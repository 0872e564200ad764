// The two pictures of the panel, drawn by code: they are decoration and no behaviour hangs on them.
#pragma once

#include <QImage>

// Only what is seen of a picture is worked out: `seen` is its size in pixels, at most the whole.

// The scene behind the controls from its top left corner, 1400 x 1400 pixels in all: blue and black
// with patches of teal and dull orange, everywhere dark enough for yellow and white captions.
QImage BackgroundPicture(const QSize& seen);

// The middle of the still on the test buttons, 731 x 553 pixels in all: orange, red and blue.
QImage StillPicture(const QSize& seen);
