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
        if (currentRow() != row) isOverruled_ = true;
    });
    connect(this, &QListWidget::itemClicked, this, [this] {
        if (isReleasing_ && chosenByPress_) return;
        if (Chosen) Chosen();
    });
}

// Keys arrive here, the mouse and the wheel at the viewport.
bool ChoiceList::event(QEvent* event) {
    const bool isTaken = QListWidget::event(event);
    ShowChoice();
    return isTaken;
}

bool ChoiceList::viewportEvent(QEvent* event) {
    const bool isTaken = QListWidget::viewportEvent(event);
    ShowChoice();
    return isTaken;
}

// The toolkit ends an event with the row that the user has chosen, whatever became the present one
// meanwhile: it highlights that row and scrolls to it.
void ChoiceList::ShowChoice() {
    if (!isOverruled_) return;
    isOverruled_ = false;
    selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect);
    scrollTo(currentIndex());
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
