// The buttons Test 1 to Test 8: preset shock tubes, at any moment.
#pragma once

struct Controls;
struct ExperimentState;
struct RiemannProblem;

// Builds the problem and fills the panel from it, ready for Begin.
void InitRiemannProblem(ExperimentState& state, Controls& controls, const RiemannProblem& problem);

void cmdTest1_Click(ExperimentState& state, Controls& controls);
void cmdTest2_Click(ExperimentState& state, Controls& controls);
void cmdTest3_Click(ExperimentState& state, Controls& controls);
void cmdTest4_Click(ExperimentState& state, Controls& controls);
void cmdTest5_Click(ExperimentState& state, Controls& controls);
void cmdTest6_Click(ExperimentState& state, Controls& controls);
void cmdTest7_Click(ExperimentState& state, Controls& controls);
void cmdTest8_Click(ExperimentState& state, Controls& controls);
