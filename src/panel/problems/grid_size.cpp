#include "panel/problems/grid_size.h"

#include <algorithm>
#include <optional>

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/model/run_stage.h"
#include "core/run/state_store.h"
#include "core/setup/grid.h"
#include "core/setup/point_mapping.h"
#include "core/setup/problems.h"
#include "panel/controls.h"
#include "panel/entry/memory_refusal.h"
#include "panel/entry/value_entry.h"
#include "panel/plots/experiment_caption.h"
#include "panel/problems/set_up_replay.h"
#include "panel/problems/sound_wave_button.h"
#include "panel/widgets/control_values.h"

namespace {

constexpr double FewestCells = 6.0;

}  // namespace

void txtNGridCells_Change(ExperimentState& state, Controls& controls) {
    if (!IsBeforeRun(state)) {
        PutText(controls.txtNGridCells, GeneralNumber(state.NGridCells));
        return;
    }
    const std::optional<double> number = ReadNumber(TextOf(controls.txtNGridCells));
    if (!number || *number < FewestCells || state.NSelected > *number) return;

    const int n = std::min(RoundToEven(*number), state.MaxGridCells);
    if (!FindsMemory(state, controls, "The new grid", n, state.Periods, state.NPlotsPerPeriod)) {
        return;
    }

    state.Stopped = 1;
    StretchGrid(state, *number);
    state.MSelected = state.NGridCells / 2;
    SetCellBarRange(state, controls);
    state.MSelected = state.NGridCells / 2;
    CarryPointsOver(state);

    if (state.SoundWaveMode == 0) {
        ApplySetUp(state, controls);
    } else {
        HideRefusal(controls);
        state.Refusal = {};
        AllocateArrays(state);
        InitSoundWave(state, controls);
    }
}
