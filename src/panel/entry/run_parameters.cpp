#include "panel/entry/run_parameters.h"

#include <QTimer>
#include <algorithm>
#include <optional>

#include "core/model/experiment_state.h"
#include "core/model/limits.h"
#include "core/model/number_text.h"
#include "core/model/run_stage.h"
#include "core/run/first_step.h"
#include "panel/controls.h"
#include "panel/entry/memory_refusal.h"
#include "panel/plots/experiment_caption.h"
#include "panel/widgets/control_values.h"

namespace {

std::optional<double> PositiveNumberIn(const QLineEdit* box) {
    const std::optional<double> number = ReadNumber(TextOf(box));
    if (!number || *number <= 0.0) return std::nullopt;
    return number;
}

}  // namespace

void txtCourantNumber_Change(ExperimentState& state, Controls& controls) {
    if (state.Stopped == 0) {
        PutText(controls.txtCourantNumber, GeneralNumber(state.CourantNumber));
        return;
    }
    const std::optional<double> number = ReadNumber(TextOf(controls.txtCourantNumber));
    if (!number || *number < SmallestCourantNumber || *number >= 1.0) return;
    state.CourantNumber = *number;
}

void txtMSec_Change(ExperimentState& state, Controls& controls) {
    const std::optional<double> number = PositiveNumberIn(controls.txtMSec);
    if (!number) return;
    state.MSec = std::clamp(RoundToEven(*number), state.MSecMin, state.MSecMax);
    if (*number != state.MSec) PutText(controls.txtMSec, FormatNumber(state.MSec, "###0"));
    controls.tmrMetronome->setInterval(state.MSec);
}

void txtNPeriods_Change(ExperimentState& state, Controls& controls) {
    if (!IsBeforeRun(state)) {
        PutText(controls.txtNPeriods, GeneralNumber(state.Periods));
        return;
    }
    const std::optional<double> number = PositiveNumberIn(controls.txtNPeriods);
    if (!number || *number > LargestValue) return;
    if (!FindsMemory(state, controls, "The length of the run", state.NGridCells, *number,
                     state.NPlotsPerPeriod)) {
        return;
    }
    SetPeriods(state, *number);
    ComposeExperimentCaption(state, controls);
}

void txtNPlotsPerPeriod_Change(ExperimentState& state, Controls& controls) {
    if (!IsBeforeRun(state)) {
        PutText(controls.txtNPlotsPerPeriod, GeneralNumber(state.NPlotsPerPeriod));
        return;
    }
    const std::optional<double> number = PositiveNumberIn(controls.txtNPlotsPerPeriod);
    // Less than half a plot would leave no plot interval at all.
    if (!number || RoundToEven(*number) < 1) return;
    const int plots = RoundToEven(*number);
    if (!FindsMemory(state, controls, "The number of plots", state.NGridCells, state.Periods,
                     plots)) {
        return;
    }
    SetPlotsPerPeriod(state, plots);
}
