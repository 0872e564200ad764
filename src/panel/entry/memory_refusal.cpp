#include "panel/entry/memory_refusal.h"

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/setup/grid.h"
#include "panel/controls.h"
#include "panel/entry/last_refusal.h"
#include "panel/widgets/control_values.h"

namespace {

std::string Size(int n, int plots) {
    return GeneralNumber(n) + " cells and " + GeneralNumber(plots) + " stored states";
}

bool FindsMemoryFor(const ExperimentState& state, Controls& controls, const std::string& what,
                    int n, int plots) {
    if (HasMemoryFor(n, plots)) return true;
    const std::string reason = "there is not enough memory for " + Size(n, plots);
    ShowMessageOver(controls.lblStudentID,
                    what + " is refused: " + reason + ".\r\nThe experiment stays as it was.");
    NoteRefusal(controls, {what, reason, Size(state.NGridCells, state.NPlotsTotal)});
    return false;
}

}  // namespace

bool FindsMemory(const ExperimentState& state, Controls& controls, const std::string& what, int n,
                 double periods, double plotsPerPeriod) {
    return FindsMemoryFor(state, controls, what, n, RoundToEven(plotsPerPeriod * periods));
}

bool FindsMemory(const ExperimentState& state, Controls& controls, const std::string& what) {
    return FindsMemoryFor(state, controls, what, state.NGridCells, state.NPlotsTotal);
}
