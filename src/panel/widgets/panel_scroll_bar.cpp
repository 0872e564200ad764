#include "panel/widgets/panel_scroll_bar.h"

#include <QPainter>
#include <QStyleOptionSlider>
#include <QWheelEvent>

#include "panel/widgets/edge_drawing.h"

PanelScrollBar::PanelScrollBar(Qt::Orientation orientation, QWidget* parent)
    : QScrollBar(orientation, parent) {
    setFocusPolicy(Qt::StrongFocus);
    // The toolkit's bars take keys and wheel the way a page scrolls: right for the vertical one,
    // but a horizontal bar here is a value, and its right arrow key means more.
    setInvertedControls(orientation == Qt::Vertical);
}

void PanelScrollBar::paintEvent(QPaintEvent* event) {
    QScrollBar::paintEvent(event);
    paintedThumb_ = Thumb();
    if (!hasFocus()) return;
    QPainter painter(this);
    DrawFocusFrame(painter, *this);
}

QRect PanelScrollBar::Thumb() const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
}

// During a run the range of a bar grows all the time. Nothing looks different then but where an end
// of the thumb has moved, and that only until it is as small as it gets.
void PanelScrollBar::sliderChange(SliderChange change) {
    if (change != SliderRangeChange) {
        QScrollBar::sliderChange(change);
        return;
    }
    constexpr int edge = 3;  // pixels around an end of the thumb that go with it
    for (const QRect& moved : QRegion(Thumb()).xored(paintedThumb_)) {
        update(moved.adjusted(-edge, -edge, edge, edge));
    }
}

void PanelScrollBar::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        QScrollBar::wheelEvent(event);
    } else {
        event->ignore();
    }
}
