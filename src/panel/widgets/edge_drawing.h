// Thin edges that are as thick on every side at every device pixel ratio.
#pragma once

class QColor;
class QPainter;
class QRect;
class QWidget;

// Draws the innermost logical pixels of a rectangle, those at the left and top in one colour and
// those at the right and bottom in another.
void DrawEdges(QPainter& painter, const QRect& rect, const QColor& leftAndTop,
               const QColor& rightAndBottom);
void DrawEdges(QPainter& painter, const QRect& rect, const QColor& colour);

// Draws along the edge of a control that it has the focus: seen on white and on black.
void DrawFocusFrame(QPainter& painter, const QWidget& control);
