// Notes what the user types and presses in vain.
#pragma once

struct Controls;
struct ExperimentState;
class QObject;

// From here on each edit of a box and each press that a lock or a limit refuses is noted as the
// last refusal, before the control's own handler runs. An edit that is taken clears what was noted
// of the same box. The record is only read. To be called before the handlers are connected.
void WatchRefusals(QObject& owner, const ExperimentState& state, Controls& controls);
