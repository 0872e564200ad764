#include "panel/panel_scroll_bar.h"

#include <QPainter>
#include <QWheelEvent>

#include "panel/edge_drawing.h"

PanelScrollBar::PanelScrollBar(Qt::Orientation orientation, QWidget* parent)
    : QScrollBar(orientation, parent) {
    setFocusPolicy(Qt::StrongFocus);
}

void PanelScrollBar::paintEvent(QPaintEvent* event) {
    QScrollBar::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    const QColor highlight = palette().color(QPalette::Highlight);
    DrawEdges(painter, rect(), highlight);
    DrawEdges(painter, rect().adjusted(1, 1, -1, -1), highlight);
}

void PanelScrollBar::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        QScrollBar::wheelEvent(event);
    } else {
        event->ignore();
    }
}
