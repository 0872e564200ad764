#include "panel/widgets/choice_list.h"

#include <QPainter>
#include <QWheelEvent>
#include <algorithm>

#include "panel/widgets/edge_drawing.h"

ChoiceList::ChoiceList(QWidget* parent) : QListWidget(parent) {
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row < 0) return;
        chosenByPress_ = true;
        if (Chosen) Chosen();
    });
    connect(this, &QListWidget::itemClicked, this, [this] {
        if (isReleasing_ && chosenByPress_) return;
        if (Chosen) Chosen();
    });
}

void ChoiceList::paintEvent(QPaintEvent* event) {
    QListWidget::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(viewport());
    DrawFocusFrame(painter, *viewport());
}

void ChoiceList::mousePressEvent(QMouseEvent* event) {
    chosenByPress_ = false;
    QListWidget::mousePressEvent(event);
}

void ChoiceList::mouseReleaseEvent(QMouseEvent* event) {
    isReleasing_ = true;
    QListWidget::mouseReleaseEvent(event);
    isReleasing_ = false;
    chosenByPress_ = false;
}

// The list shows a single row: one notch of the wheel goes to the next choice.
void ChoiceList::wheelEvent(QWheelEvent* event) {
    const int notch = event->angleDelta().y();
    if (!hasFocus() || notch == 0) {
        event->ignore();
        return;
    }
    setCurrentRow(std::clamp(currentRow() + (notch > 0 ? -1 : 1), 0, count() - 1));
    event->accept();
}
