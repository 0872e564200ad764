#include "panel/run/meter_display.h"

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/run/operation_meter.h"
#include "core/run/tick_arrays.h"
#include "panel/controls.h"
#include "panel/widgets/control_values.h"

void ShowMeter(const ExperimentState& state, Controls& controls, const TickArrays& tick) {
    PutCaption(controls.cmdTest1, "Mflop/s");
    PutCaption(controls.cmdTest2, FormatNumber(state.MflopsRate, "##0"));
    PutCaption(controls.cmdTest6, "flops /");
    PutCaption(controls.cmdTest7, "cell =");
    PutCaption(controls.cmdTest8, FormatNumber(FlopsPerCell(state, tick), "###0"));
    PutCaption(controls.lblStudentID, OperationsText(state, tick));
}
