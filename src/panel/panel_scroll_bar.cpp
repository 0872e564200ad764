#include "panel/panel_scroll_bar.h"

#include <QPainter>
#include <QWheelEvent>

#include "panel/edge_drawing.h"

PanelScrollBar::PanelScrollBar(Qt::Orientation orientation, QWidget* parent)
    : QScrollBar(orientation, parent) {
    setFocusPolicy(Qt::StrongFocus);
    // The toolkit's bars take keys and wheel the way a page scrolls: right for the vertical one,
    // but a horizontal bar here is a value, and its right arrow key means more.
    setInvertedControls(orientation == Qt::Vertical);
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
