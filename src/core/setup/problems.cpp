#include "core/setup/problems.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/model/boundary_types.h"
#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/model/run_stage.h"
#include "core/run/state_store.h"
#include "core/setup/blast_waves.h"
#include "core/setup/control_points.h"
#include "core/setup/grid.h"
#include "core/setup/point_mapping.h"
#include "core/setup/point_replay.h"
#include "core/setup/riemann_problem.h"
#include "core/setup/sound_wave.h"

namespace {

constexpr double FewestCells = 6.0;

// Sets the first step of a built-in problem and the texts of its boxes.
void FillBoxes(ExperimentState& state, SetUpBoxes& boxes) {
    PutPeriods(state, boxes, FormatNumber(state.Periods, "#0.####"));
    state.DTime = std::min(state.DTime, state.PlotInterval);
    state.DTime0 = state.DTime;
    PutCourantNumber(state, boxes, FormatNumber(state.CourantNumber, "#0.0##"));
}

}  // namespace

void SetUpDefaultProblem(ExperimentState& state, SetUpBoxes& boxes) {
    state.Refusal = {};
    BuildBlastWaves(state);
    PutNGridCells(state, boxes, FormatNumber(state.NGridCells, "###0"));
    FillBoxes(state, boxes);
}

void SetUpTest(ExperimentState& state, SetUpBoxes& boxes, int number) {
    const RiemannProblem& problem = RiemannTests[static_cast<std::size_t>(number - 1)];
    state.Refusal = {};
    state.MnBdry = ContinuationBoundary;
    state.MxBdry = ContinuationBoundary;
    BuildRiemannProblem(state, problem);
    PutNGridCells(state, boxes, FormatNumber(state.NGridCells, "###0"));
    SetRiemannClock(state, problem.TStop);
    FillBoxes(state, boxes);
}

SoundWaves WavesOf(const ExperimentState& state) {
    return {state.RPlusAmp, state.RPlusFreq, state.RMinusAmp, state.RMinusFreq,
            state.R0Amp,    state.R0Freq,    state.U0};
}

void TakeWaves(ExperimentState& state, const SoundWaves& waves) {
    state.RPlusAmp = waves.RPlusAmp;
    state.RPlusFreq = waves.RPlusFreq;
    state.RMinusAmp = waves.RMinusAmp;
    state.RMinusFreq = waves.RMinusFreq;
    state.R0Amp = waves.R0Amp;
    state.R0Freq = waves.R0Freq;
    state.U0 = waves.U0;
}

bool SetUpSoundWave(ExperimentState& state, const SoundWaves& waves) {
    if (!IsBeforeRun(state)) return false;
    const SoundWaves former = WavesOf(state);
    TakeWaves(state, waves);
    if (!IntegrateSoundWave(state)) {
        TakeWaves(state, former);
        return false;
    }
    state.Refusal = {};
    state.SoundWaveMode = 1;
    state.MnBdry = PeriodicBoundary;
    state.MxBdry = PeriodicBoundary;
    ResetPoints(state);
    BuildSoundWave(state);
    return true;
}

void BuildSoundWave(ExperimentState& state) {
    const std::optional<SoundWaveFields> wave = IntegrateSoundWave(state);
    TakeSoundWave(state, wave ? *wave : QuietBackground(state));
}

void SetUpFromFile(ExperimentState& state, SetUpBoxes& boxes, SetUpValues values) {
    TakeSetUpValues(state, std::move(values));
    BuildFromPoints(state, boxes);
}

void StretchGrid(ExperimentState& state, double number) {
    const double left = state.X[1];
    const double right = state.X[state.NGridCells + 1];
    const double ratio = number / state.NGridCells;
    state.NGridCells = std::min(RoundToEven(number), state.MaxGridCells);
    const int n = state.NGridCells;
    if (ratio > 1.0) state.X.Resize(10 * (n / 3) + 7);
    state.NGridCellsD = n;
    const double width = (right - left) / n;
    for (int i = 2; i <= n; ++i) state.X[i] = width + state.X[i - 1];
    state.X[n + 1] = right;
}

void CarryPointsOver(ExperimentState& state) {
    EmptyStore(state);
    state.MultiplePlots = 0;
    ResizeControlPointLists(state);
    MapControlPoints(state);
}

void PutNGridCells(ExperimentState& state, SetUpBoxes& boxes, const std::string& text) {
    if (text == boxes.NGridCells) return;
    if (!IsBeforeRun(state)) {
        boxes.NGridCells = GeneralNumber(state.NGridCells);
        return;
    }
    boxes.NGridCells = text;
    const std::optional<double> number = ReadNumber(text);
    if (!number || *number < FewestCells || state.NSelected > *number) return;

    state.Stopped = 1;
    StretchGrid(state, *number);
    state.MSelected = state.NGridCells / 2;
    CarryPointsOver(state);
    if (state.SoundWaveMode == 0) {
        BuildFromPoints(state, boxes);
    } else {
        state.Refusal = {};
        AllocateArrays(state);
        BuildSoundWave(state);
    }
}

void BuildFromPoints(ExperimentState& state, SetUpBoxes& boxes) {
    LayBareGrid(state);
    PutCourantNumber(state, boxes, FormatNumber(state.CourantNumber, "#0.0#"));
    PutNGridCells(state, boxes, GeneralNumber(state.NGridCells));
    state.MSelected = state.NGridCells / 2;
    state.NGridCellsD = state.NGridCells;
    state.Stopped = 1;
    EmptyStore(state);
    state.MultiplePlots = 0;
    if (state.NSelected > 0) {
        PointExtremes extremes(state);
        ReplayFirstPoints(state, state.NSelected - 1, extremes);
        ReplayLastPoint(state, extremes);
        boxes.Periods = GeneralNumber(state.Periods);
    }
    FinishReplay(state);
    state.Refusal = {};
}

void ResetPoints(ExperimentState& state) {
    for (int k = state.NSelected - 1; k >= 2; --k) {
        state.MSelected = state.MSelList[k];
        DeselectPoint(state, state.MSelected);
    }
}
