#include "core/model/run_stage.h"

#include "core/model/experiment_state.h"

bool IsBeforeRun(const ExperimentState& state) {
    return state.Stopped != 0 && state.Time == 0.0;
}
