// Paints a window no more often than its screen shows pictures.
#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>

class QWidget;

// The metronome ticks up to a thousand times a second and every tick changes all that a window
// shows; painting what no screen gets round to showing would take longer than the scheme. A request
// that comes too soon after the last painting waits for the next picture of the screen, and those
// that follow it meanwhile are painted with it. A request after a pause is met at once.
class FramePacer : public QObject {
public:
    // Lives as long as the window.
    explicit FramePacer(QWidget& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    QWidget& window_;
    QElapsedTimer sincePainting_;
    QBasicTimer wait_;  // runs while a request is held back
};
