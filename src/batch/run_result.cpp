#include "batch/run_result.h"

#include <chrono>
#include <cmath>

#include "core/analysis/conserved_sums.h"
#include "core/analysis/error_norms.h"
#include "core/analysis/exact_solution.h"
#include "core/model/number_text.h"
#include "core/picture/caption_text.h"
#include "core/run/run.h"
#include "core/run/tick_arrays.h"

namespace {

void TakeErrors(RunResult& result) {
    const ExperimentState& state = result.State;
    const ExactSolution solution = FindExactSolution(state);
    if (!solution) return;
    result.Exact = ExactFieldsOf(solution, state);
    const int n = state.NGridCells;
    const ErrorNorms density = CompareFields(state.Rho, result.Exact->Rho, state.X, n);
    result.Figures.L1Density = density.Mean;
    result.Figures.Overshoot = std::max(density.Overshoot, density.Undershoot);
    result.Figures.L1Pressure = CompareFields(state.P, result.Exact->P, state.X, n).Mean;
    result.Figures.L1Velocity = CompareFields(state.Ux, result.Exact->Ux, state.X, n).Mean;
}

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            quoted += {'\\', c};
        } else if (static_cast<unsigned char>(c) < 0x20) {
            constexpr const char* digits = "0123456789abcdef";
            quoted += "\\u00";
            quoted += {digits[c >> 4], digits[c & 15]};
        } else {
            quoted += c;
        }
    }
    return quoted + '"';
}

std::string Number(std::optional<double> value) {
    return value && std::isfinite(*value) ? ExactNumber(*value) : "null";
}

}  // namespace

std::optional<RunResult> RunOnce(const RunSettings& settings, const std::string& setUpText,
                                 const SchemeLibrary& scheme,
                                 const std::function<bool()>& mayGoOn) {
    std::optional<RunResult> result(std::in_place);
    ExperimentState& state = result->State;
    RunFigures& figures = result->Figures;
    figures.Problem = settings.Name();
    figures.Scheme = settings.Scheme;
    figures.Refusal = SetUpRun(state, settings, setUpText);
    figures.Cells = state.NGridCells;
    figures.Courant = state.CourantNumber;
    if (!figures.Refusal.empty()) return result;

    BeginRun(state);
    Ledger ledger(state);
    StepObserver observer;
    observer.Accepts = [&ledger](const ExperimentState& before, const TickArrays& step) {
        ledger.Take(before, step.StepDT);
    };
    TickArrays tick(state, scheme);
    tick.Observer = &observer;
    const auto start = std::chrono::steady_clock::now();
    const bool isOver = RunToEnd(state, tick, mayGoOn);
    figures.Seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (!isOver && !state.Refusal) return std::nullopt;

    if (state.Refusal) figures.Refusal = RefusalReason(state.Refusal);
    figures.Time = state.Time;
    figures.Steps = tick.Counts.Steps;
    figures.Rejected = tick.Counts.Rejected;
    figures.Floored = tick.Counts.Floored;
    figures.Stored = state.NStored;
    const double updates = static_cast<double>(figures.Steps) * state.NGridCells;
    if (figures.Seconds > 0.0) figures.UpdatesPerSecond = updates / figures.Seconds;
    const Ledger::Drifts drifts = ledger.DriftsOf(state);
    figures.MassDrift = drifts.Mass;
    figures.MomentumDrift = drifts.Momentum;
    figures.EnergyDrift = drifts.Energy;
    TakeErrors(*result);
    return result;
}

std::string JsonOf(const RunFigures& f) {
    const auto item = [](const char* key, const std::string& value) {
        return std::string("\"") + key + "\": " + value;
    };
    const std::string items[] = {
        item("problem", Quoted(f.Problem)),
        item("scheme", Quoted(f.Scheme)),
        item("cells", std::to_string(f.Cells)),
        item("courant", Number(f.Courant)),
        item("time", Number(f.Time)),
        item("steps", std::to_string(f.Steps)),
        item("rejected", std::to_string(f.Rejected)),
        item("floored", std::to_string(f.Floored)),
        item("stored", std::to_string(f.Stored)),
        item("l1_density", Number(f.L1Density)),
        item("l1_pressure", Number(f.L1Pressure)),
        item("l1_velocity", Number(f.L1Velocity)),
        item("overshoot", Number(f.Overshoot)),
        item("mass_drift", Number(f.MassDrift)),
        item("momentum_drift", Number(f.MomentumDrift)),
        item("energy_drift", Number(f.EnergyDrift)),
        item("seconds", Number(f.Seconds)),
        item("updates_per_second", Number(f.UpdatesPerSecond)),
        item("refusal", f.Refusal.empty() ? "null" : Quoted(f.Refusal)),
    };
    std::string line = "{";
    for (const std::string& next : items) line += (line.size() > 1 ? ", " : "") + next;
    return line + "}";
}
