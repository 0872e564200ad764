#include "panel/widgets/frame_pacer.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace {

// Time between two pictures of the screen, in milliseconds, rounded down. A virtual screen may
// report any refresh rate, and for a moment there may be no screen.
qint64 PictureTime(const QWidget& window) {
    constexpr double slowest = 30.0;  // pictures a second
    constexpr double fastest = 240.0;
    const QScreen* const screen = window.screen();
    const double reported = screen == nullptr ? slowest : screen->refreshRate();
    const double rate = reported > slowest ? std::min(reported, fastest) : slowest;
    return static_cast<qint64>(1000.0 / rate);
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
