// The two pictures of the panel, drawn by code: they are decoration and no behaviour hangs on them.
#pragma once

#include <QImage>

// The scene behind the controls, 1400 x 1400 pixels: blue and black with patches of teal and dull
// orange, everywhere dark enough for yellow and white captions.
QImage BackgroundPicture();

// The still on the test buttons, 731 x 553 pixels: orange, red and blue.
QImage StillPicture();
