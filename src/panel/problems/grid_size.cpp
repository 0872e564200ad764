#include "panel/problems/grid_size.h"

#include <algorithm>
#include <optional>

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/model/run_stage.h"
#include "core/run/state_store.h"
#include "core/setup/grid.h"
#include "core/setup/point_mapping.h"
#include "panel/controls.h"
#include "panel/entry/value_entry.h"
#include "panel/plots/experiment_caption.h"
#include "panel/problems/set_up_replay.h"
#include "panel/problems/sound_wave_button.h"
#include "panel/widgets/control_values.h"

namespace {

constexpr double FewestCells = 6.0;

// The edges of the new grid between the old ends, for the mapping of the control points; the
// rebuild that follows replaces them.
void StretchGrid(ExperimentState& state, double ratio, double left, double right) {
    const int n = state.NGridCells;
    if (ratio > 1.0) state.X.Resize(10 * (n / 3) + 7);
    state.NGridCellsD = n;
    const double width = (right - left) / n;
    for (int i = 2; i <= n; ++i) state.X[i] = width + state.X[i - 1];
    state.X[n + 1] = right;
}

}  // namespace

void txtNGridCells_Change(ExperimentState& state, Controls& controls) {
    if (!IsBeforeRun(state)) {
        PutText(controls.txtNGridCells, GeneralNumber(state.NGridCells));
        return;
    }
    const std::optional<double> number = ReadNumber(TextOf(controls.txtNGridCells));
    if (!number || *number < FewestCells || state.NSelected > *number) return;

    state.Stopped = 1;
    const double left = state.X[1];
    const double right = state.X[state.NGridCells + 1];
    const double ratio = *number / state.NGridCells;
    state.NGridCells = std::min(RoundToEven(*number), state.MaxGridCells);
    StretchGrid(state, ratio, left, right);

    state.MSelected = state.NGridCells / 2;
    SetCellBarRange(state, controls);
    state.MSelected = state.NGridCells / 2;
    EmptyStore(state);
    state.MultiplePlots = 0;
    ResizeControlPointLists(state);
    MapControlPoints(state);

    if (state.SoundWaveMode == 0) {
        ApplySetUp(state, controls);
    } else {
        HideRefusal(controls);
        AllocateArrays(state);
        InitSoundWave(state, controls);
    }
}
