#include "integration/meter_display.h"

#include "display/control_values.h"
#include "display/controls.h"
#include "integration/operation_meter.h"
#include "integration/tick_arrays.h"
#include "model/experiment_state.h"
#include "model/number_text.h"

void ShowMeter(const ExperimentState& state, Controls& controls, const TickArrays& tick) {
    PutCaption(controls.cmdTest1, "Mflop/s");
    PutCaption(controls.cmdTest2, FormatNumber(state.MflopsRate, "##0"));
    PutCaption(controls.cmdTest6, "flops /");
    PutCaption(controls.cmdTest7, "cell =");
    PutCaption(controls.cmdTest8, FormatNumber(FlopsPerCell(state, tick), "###0"));
    PutCaption(controls.lblStudentID, OperationsText(state, tick));
}
