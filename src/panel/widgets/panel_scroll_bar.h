// A scroll bar that can be worked by the keyboard.
#pragma once

#include <QScrollBar>

// It takes the focus and shows that it has it. Without the focus it leaves the wheel alone, so that
// scrolling over the panel edits nothing.
class PanelScrollBar : public QScrollBar {
public:
    explicit PanelScrollBar(Qt::Orientation orientation, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    void sliderChange(SliderChange change) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QRect Thumb() const;

    QRect paintedThumb_;
};
