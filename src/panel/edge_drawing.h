// Thin edges that are as thick on every side at every device pixel ratio.
#pragma once

class QColor;
class QPainter;
class QRect;

// Draws the innermost logical pixels of a rectangle, those at the left and top in one colour and
// those at the right and bottom in another.
void DrawEdges(QPainter& painter, const QRect& rect, const QColor& leftAndTop,
               const QColor& rightAndBottom);
void DrawEdges(QPainter& painter, const QRect& rect, const QColor& colour);
