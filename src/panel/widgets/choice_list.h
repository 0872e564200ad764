// A list of which one row is chosen.
#pragma once

#include <QListWidget>
#include <functional>

// Chosen runs once for every choice: when another row becomes the present one, by the user or by
// code, and when the present row is clicked again. It shows that it has the focus.
class ChoiceList : public QListWidget {
public:
    explicit ChoiceList(QWidget* parent = nullptr);

    std::function<void()> Chosen;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool chosenByPress_ = false;  // the press that is on its way to be a click has chosen already
    bool isReleasing_ = false;
};
