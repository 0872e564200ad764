#include "core/run/operation_meter.h"

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/run/tick_arrays.h"

namespace {

// The slots of the operation counters.
enum Slot : std::size_t { Flops = 1, Adds, Mults, Recips, Cvmgms, Sqrts, OtherSqrts, Exps };

double PerCell(const ExperimentState& state, const TickArrays& tick, double count) {
    return count / (static_cast<double>(tick.RepeatCount) * state.NGridCells);
}

std::string Whole(const ExperimentState& state, const TickArrays& tick, Slot slot) {
    const int perCell = RoundToEven(PerCell(state, tick, tick.OpCounters[slot]));
    return FormatNumber(perCell, "###0") + ",    ";
}

}  // namespace

void CountOperations(ExperimentState& state, const TickArrays& tick) {
    state.TotalSeconds += tick.StripSeconds;
    state.TotalMflop += tick.OpCounters[Flops] * 1e-06;
    if (state.TotalSeconds > 0.0) state.MflopsRate = state.TotalMflop / state.TotalSeconds;
}

int FlopsPerCell(const ExperimentState& state, const TickArrays& tick) {
    return RoundToEven(PerCell(state, tick, tick.OpCounters[Flops]));
}

std::string OperationsText(const ExperimentState& state, const TickArrays& tick) {
    const double sqrts = PerCell(
        state, tick, static_cast<double>(tick.OpCounters[Sqrts]) + tick.OpCounters[OtherSqrts]);
    return "flops / cell = " + Whole(state, tick, Flops) +
           "adds / cell = " + Whole(state, tick, Adds) +
           "mults / cell = " + Whole(state, tick, Mults) +
           "cvmgms / cell = " + Whole(state, tick, Cvmgms) +
           "recips / cell = " + Whole(state, tick, Recips) +
           "sqrts / cell = " + FormatNumber(sqrts, "###0.0#") + ",    " +
           "exps / cell = " + Whole(state, tick, Exps);
}
