#include "core/setup/set_up_boxes.h"

#include "core/model/experiment_state.h"
#include "core/model/limits.h"
#include "core/model/number_text.h"
#include "core/model/run_stage.h"
#include "core/run/first_step.h"

bool IsCourantNumber(double number) {
    return number >= SmallestCourantNumber && number < 1.0;
}

bool IsPeriods(double number) {
    return number > 0.0 && number <= LargestValue;
}

void PutCourantNumber(ExperimentState& state, SetUpBoxes& boxes, const std::string& text) {
    if (text == boxes.CourantNumber) return;
    boxes.CourantNumber = state.Stopped == 0 ? GeneralNumber(state.CourantNumber) : text;
    const std::optional<double> number = ReadNumber(text);
    if (state.Stopped != 0 && number && IsCourantNumber(*number)) state.CourantNumber = *number;
}

void PutPeriods(ExperimentState& state, SetUpBoxes& boxes, const std::string& text) {
    if (text == boxes.Periods) return;
    const bool isOpen = IsBeforeRun(state);
    boxes.Periods = isOpen ? text : GeneralNumber(state.Periods);
    const std::optional<double> number = ReadNumber(text);
    if (isOpen && number && IsPeriods(*number)) SetPeriods(state, *number);
}
