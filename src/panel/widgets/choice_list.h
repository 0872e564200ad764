// A list of which one row is chosen.
#pragma once

#include <QListWidget>
#include <functional>

// Chosen runs once for every choice: when another row becomes the present one, by the user or by
// code, and when the present row is clicked again. It may choose another row in its turn: that one
// is then shown and highlighted. The list shows that it has the focus.
class ChoiceList : public QListWidget {
public:
    explicit ChoiceList(QWidget* parent = nullptr);

    std::function<void()> Chosen;

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void ShowChoice();

    bool isOverruled_ = false;    // Chosen has chosen another row than the user
    bool chosenByPress_ = false;  // the press that is on its way to be a click has chosen already
    bool isReleasing_ = false;
};
