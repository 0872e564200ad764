// No tick runs under a modal box.
#pragma once

#include <QSignalBlocker>
#include <QTimer>

#include "panel/controls.h"

// Holds the metronome for as long as it lives. A modal box runs the event loop, and a tick in there
// would advance the experiment in the middle of the procedure that asked. This is the only place
// where signals are blocked.
class TickHold {
public:
    explicit TickHold(Controls& controls) : held_(controls.tmrMetronome) {}

private:
    QSignalBlocker held_;
};
