// Captions that fit into their controls.
#pragma once

class QFont;
class QPainter;
class QRect;
class QString;

enum class CaptionAlignment { Left, Centred };

// Draws a caption with the painter's font and pen, in the middle of the room's height. It is broken
// at blanks, or after every letter in a narrow upright strip, and the font shrinks as far as needed
// for all of it to be seen. Text is taken as it is: no markup, no mnemonics.
void DrawCaption(QPainter& painter, const QRect& room, const QString& caption,
                 CaptionAlignment alignment);
