#include "panel/widgets/edge_drawing.h"

#include <QColor>
#include <QPainter>
#include <QRect>
#include <QWidget>

// Filled rectangles, not lines: a line of one logical pixel is laid half over the next one where a
// logical pixel is several of the screen's.
void DrawEdges(QPainter& painter, const QRect& rect, const QColor& leftAndTop,
               const QColor& rightAndBottom) {
    const int width = rect.width();
    const int height = rect.height();
    painter.fillRect(rect.left(), rect.top(), width - 1, 1, leftAndTop);
    painter.fillRect(rect.left(), rect.top() + 1, 1, height - 2, leftAndTop);
    painter.fillRect(rect.left(), rect.bottom(), width, 1, rightAndBottom);
    painter.fillRect(rect.right(), rect.top(), 1, height - 1, rightAndBottom);
}

void DrawEdges(QPainter& painter, const QRect& rect, const QColor& colour) {
    DrawEdges(painter, rect, colour, colour);
}

void DrawFocusFrame(QPainter& painter, const QWidget& control) {
    const QColor highlight = control.palette().color(QPalette::Highlight);
    const QRect rect = control.rect();
    DrawEdges(painter, rect, Qt::white);
    DrawEdges(painter, rect.adjusted(1, 1, -1, -1), highlight);
    DrawEdges(painter, rect.adjusted(2, 2, -2, -2), highlight);
    DrawEdges(painter, rect.adjusted(3, 3, -3, -3), Qt::white);
}
