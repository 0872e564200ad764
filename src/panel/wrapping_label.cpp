#include "panel/wrapping_label.h"

#include <QPainter>

WrappingLabel::WrappingLabel(const QString& caption, CaptionAlignment alignment, bool isBoxed,
                             QWidget* parent)
    : QLabel(parent), alignment_(alignment), isBoxed_(isBoxed) {
    setTextFormat(Qt::PlainText);
    setText(caption);
}

void WrappingLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (isBoxed_) painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(palette().color(QPalette::WindowText));
    DrawCaption(painter, rect().adjusted(1, 1, -1, -1), text(), alignment_);
}
