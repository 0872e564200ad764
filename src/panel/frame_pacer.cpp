#include "panel/frame_pacer.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace {

// Milliseconds, rounded down. Screens that are none tell any rate.
qint64 PictureTime(const QWidget& window) {
    constexpr double slowest = 30.0;  // pictures a second
    constexpr double fastest = 240.0;
    return static_cast<qint64>(1000.0 /
                               std::clamp(window.screen()->refreshRate(), slowest, fastest));
}

}  // namespace

FramePacer::FramePacer(QWidget& window) : QObject(&window), window_(window) {
    window.installEventFilter(this);
}

bool FramePacer::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() != QEvent::UpdateRequest) return false;
    if (wait_.isActive()) return true;
    const qint64 left =
        sincePainting_.isValid() ? PictureTime(window_) - sincePainting_.elapsed() : 0;
    if (left > 0) {
        wait_.start(static_cast<int>(left), Qt::PreciseTimer, this);
        return true;
    }
    sincePainting_.start();
    return false;
}

void FramePacer::timerEvent(QTimerEvent* /*event*/) {
    wait_.stop();
    sincePainting_.invalidate();
    QEvent request(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(&window_, &request);
}
