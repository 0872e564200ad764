#include "setup/default_problem.h"

#include <algorithm>

#include "display/control_values.h"
#include "display/controls.h"
#include "display/experiment_caption.h"
#include "display/line_plots.h"
#include "model/experiment_state.h"
#include "model/number_text.h"
#include "setup/blast_waves.h"
#include "setup/panel_fill.h"

void InitDefaultProblem(ExperimentState& state, Controls& controls) {
    BuildBlastWaves(state);
    FillValueControls(state, controls);
    FillCellControls(state, controls);
    PutText(controls.txtNGridCells, FormatNumber(state.NGridCells, "###0"));
    PutText(controls.txtNPlotsPerPeriod, FormatNumber(state.NPlotsPerPeriod, "##0"));
    PutText(controls.txtNPeriods, FormatNumber(state.Periods, "#0.####"));
    FillRunControls(state, controls);
    ComposeExperimentCaption(state, controls);
    ClearAndPaintPlots(state, controls);
}
