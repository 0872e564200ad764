// The options that have no box of their own: buttons that ask, and the plot mode. A cancelled
// prompt, or an answer that is no number where one is asked for, keeps the former value; the title
// is the exception.
#pragma once

struct Controls;
struct ExperimentState;

// Only before a run.
void cmdBoundaryConditionType_Click(ExperimentState& state, Controls& controls);
void cmdNumericalScheme_Click(ExperimentState& state, Controls& controls);
void cmdGetDiffConsts_Click(ExperimentState& state, Controls& controls);

// At any time. An answer of any kind becomes the title; a cancelled prompt empties it.
void cmdGetTitle_Click(ExperimentState& state, Controls& controls);
void cmdDocumentation_Click(ExperimentState& state, Controls& controls);
void cmdSinglePlots_Click(ExperimentState& state, Controls& controls);
void cmdMultiplePlots_Click(ExperimentState& state, Controls& controls);
