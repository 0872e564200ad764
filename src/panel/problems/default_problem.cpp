#include "panel/problems/default_problem.h"

#include <algorithm>

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/setup/blast_waves.h"
#include "panel/controls.h"
#include "panel/plots/experiment_caption.h"
#include "panel/plots/line_plots.h"
#include "panel/problems/panel_fill.h"
#include "panel/widgets/control_values.h"

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
