#include "model/run_stage.h"

#include "model/experiment_state.h"

bool IsBeforeRun(const ExperimentState& state) {
    return state.Stopped != 0 && state.Time == 0.0;
}
