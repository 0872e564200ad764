#include "panel/widgets/wrapping_label.h"

#include <QPainter>

#include "panel/widgets/edge_drawing.h"

WrappingLabel::WrappingLabel(const QString& caption, CaptionAlignment alignment, bool isBoxed,
                             QWidget* parent)
    : QLabel(parent), alignment_(alignment), isBoxed_(isBoxed) {
    setTextFormat(Qt::PlainText);
    setText(caption);
}

void WrappingLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QColor ink = palette().color(QPalette::WindowText);
    if (isBoxed_) DrawEdges(painter, rect(), ink);
    painter.setPen(ink);
    DrawCaption(painter, rect().adjusted(2, 1, -2, -1), text(), alignment_);
}
