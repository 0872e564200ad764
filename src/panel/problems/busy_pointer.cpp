#include "panel/problems/busy_pointer.h"

#include <QCursor>
#include <QGuiApplication>

#include "core/model/experiment_state.h"

namespace {

// So many points are replayed in about 50 ms on the largest grid and faster on all others: a
// machine half as fast still keeps within the tenth of a second.
constexpr int QuickPoints = 300;

}  // namespace

BusyPointer::BusyPointer(const ExperimentState& state) : isShown_(state.NSelected > QuickPoints) {
    if (isShown_) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

BusyPointer::~BusyPointer() {
    if (isShown_) QGuiApplication::restoreOverrideCursor();
}
