#include "panel/panel_scroll_bar.h"

#include <QPainter>
#include <QWheelEvent>

PanelScrollBar::PanelScrollBar(Qt::Orientation orientation, QWidget* parent)
    : QScrollBar(orientation, parent) {
    setFocusPolicy(Qt::StrongFocus);
}

void PanelScrollBar::paintEvent(QPaintEvent* event) {
    QScrollBar::paintEvent(event);
    if (!hasFocus()) return;
    constexpr int frame = 2;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), frame));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void PanelScrollBar::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        QScrollBar::wheelEvent(event);
    } else {
        event->ignore();
    }
}
