#include "panel/problems/riemann_tests.h"

#include "core/model/boundary_types.h"
#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/setup/riemann_problem.h"
#include "panel/controls.h"
#include "panel/entry/memory_refusal.h"
#include "panel/plots/experiment_caption.h"
#include "panel/plots/line_plots.h"
#include "panel/problems/panel_fill.h"
#include "panel/widgets/control_values.h"

namespace {

void SetUpTest(ExperimentState& state, Controls& controls, std::size_t number) {
    if (!FindsMemory(state, controls, "The test")) return;
    state.MnBdry = ContinuationBoundary;
    state.MxBdry = ContinuationBoundary;
    InitRiemannProblem(state, controls, RiemannTests[number - 1]);
}

}  // namespace

void InitRiemannProblem(ExperimentState& state, Controls& controls, const RiemannProblem& problem) {
    state.Refusal = {};
    ComposeRiemannCaption(state, controls, problem);
    BuildRiemannProblem(state, problem);
    FillValueControls(state, controls);
    FillCellControls(state, controls);
    PutText(controls.txtNGridCells, FormatNumber(state.NGridCells, "###0"));
    SetRiemannClock(state, problem.TStop);
    PutText(controls.txtNPlotsPerPeriod, FormatNumber(state.NPlotsPerPeriod, "##0"));
    PutText(controls.txtNPeriods, FormatNumber(state.Periods, "#0.####"));
    FillRunControls(state, controls);
    ClearAndPaintPlots(state, controls);
}

void cmdTest1_Click(ExperimentState& state, Controls& controls) {
    SetUpTest(state, controls, 1);
}
void cmdTest2_Click(ExperimentState& state, Controls& controls) {
    SetUpTest(state, controls, 2);
}
void cmdTest3_Click(ExperimentState& state, Controls& controls) {
    SetUpTest(state, controls, 3);
}
void cmdTest4_Click(ExperimentState& state, Controls& controls) {
    SetUpTest(state, controls, 4);
}
void cmdTest5_Click(ExperimentState& state, Controls& controls) {
    SetUpTest(state, controls, 5);
}
void cmdTest6_Click(ExperimentState& state, Controls& controls) {
    SetUpTest(state, controls, 6);
}
void cmdTest7_Click(ExperimentState& state, Controls& controls) {
    SetUpTest(state, controls, 7);
}
void cmdTest8_Click(ExperimentState& state, Controls& controls) {
    SetUpTest(state, controls, 8);
}
