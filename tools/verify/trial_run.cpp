#include "verify/trial_run.h"

#include <stdexcept>

#include "core/model/experiment_state.h"
#include "core/run/tick_arrays.h"
#include "core/run/time_step.h"
#include "loading/scheme_loader.h"

SchemeLibrary LoadOrThrow(const std::string& schemeName, const std::string& folder) {
    SchemeLibrary library = LoadSchemeLibrary(schemeName, folder);
    if (!library.IsLoaded()) throw std::runtime_error(library.Trouble);
    return library;
}

TrialCounts RunTo(ExperimentState& state, const SchemeLibrary& library, double time) {
    constexpr double rounding = 1e-14;
    TickArrays tick(state, library);
    const StepObserver observer;  // cells at a floor are counted for an observer only
    tick.Observer = &observer;
    TrialCounts counts;
    counts.CameToItsEnd = true;
    while (counts.CameToItsEnd && state.Time < time * (1.0 - rounding)) {
        if (state.Time + state.DTime > time) state.DTime = time - state.Time;
        counts.CameToItsEnd = TakeTimeStep(state, tick);
    }
    counts.Of = tick.Counts;
    return counts;
}
