#include "core/analysis/exact_solution.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>

#include "core/model/boundary_types.h"
#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/run/state_store.h"

namespace {

constexpr double Never = std::numeric_limits<double>::infinity();

bool IsSame(const GasState& a, const GasState& b) {
    return a.Rho == b.Rho && a.P == b.P && a.Ux == b.Ux && a.Uy == b.Uy;
}

GasState StateOfPoint(const ExperimentState& state, int k) {
    const int cell = state.MSelList[k];
    const bool hasStore = IsStored(state, 0);
    return {state.RhoSelList[k], state.PSelList[k], state.VxSelList[k],
            hasStore ? static_cast<double>(state.SUy[cell]) : state.Uy[cell]};
}

// Whether cell i of stored state 0 holds these values, as far as the store keeps them.
bool WasStored(const ExperimentState& state, int i, const GasState& gas) {
    return state.SRho[i] == static_cast<float>(gas.Rho) &&
           state.SP[i] == static_cast<float>(gas.P) && state.SUx[i] == static_cast<float>(gas.Ux) &&
           state.SUy[i] == static_cast<float>(gas.Uy);
}

// The uniform pieces that the control points amount to, cells First..Last each; empty if they do
// not.
struct Piece {
    int First, Last;
    GasState Gas;
};
std::vector<Piece> PiecesOf(const ExperimentState& state) {
    const int count = state.NSelected;
    if (count < 1 || state.MSelList[1] != 1 || state.MSelList[count] != state.NGridCells) return {};
    std::vector<Piece> pieces;
    for (int k = 1; k <= count; ++k) {
        const GasState gas = StateOfPoint(state, k);
        const int cell = state.MSelList[k];
        if (!pieces.empty() && IsSame(pieces.back().Gas, gas)) {
            pieces.back().Last = cell;
        } else if (pieces.empty() || pieces.back().Last == cell - 1) {
            pieces.push_back({cell, cell, gas});
        } else {
            return {};  // a ramp
        }
    }
    if (!IsStored(state, 0)) return pieces;
    for (const Piece& piece : pieces) {
        for (int i = piece.First; i <= piece.Last; ++i) {
            if (!WasStored(state, i, piece.Gas)) return {};
        }
    }
    return pieces;
}

std::string At(double time) {
    return " at t = " + FormatNumber(time, "0.000##") + ".";
}

// When the first wave reaches the end at x, if it lies on that side of all jumps; `side` is -1 for
// the left end.
double Arrival(const SeparateJumps::Jump& jump, double x, double side) {
    const std::vector<double> breaks = jump.Solution.Breaks();
    if (breaks.empty()) return Never;
    const double speed = side < 0.0 ? breaks.front() : breaks.back();
    return side * speed > 0.0 ? (x - jump.Position) / speed : Never;
}

std::string WhyEndsSpoil(const ExperimentState& state, const std::vector<Piece>& pieces) {
    const GasState& left = pieces.front().Gas;
    const GasState& right = pieces.back().Gas;
    if (state.MnBdry == PeriodicBoundary) {
        return IsSame(left, right) ? ""
                                   : "The ends are joined, and the gas on either side of the joint "
                                     "is not the same: waves start there too.";
    }
    if (state.MnBdry == ReflectingBoundary && left.Ux != 0.0) {
        return "The gas moves at the left wall, and a wave starts there.";
    }
    if (state.MxBdry == ReflectingBoundary && right.Ux != 0.0) {
        return "The gas moves at the right wall, and a wave starts there.";
    }
    return "";
}

ExactSolution FindTube(const ExperimentState& state) {
    ExactSolution found;
    const std::vector<Piece> pieces = PiecesOf(state);
    if (pieces.empty()) {
        found.WhyNot = "The problem was not laid as uniform states with jumps between them.";
        return found;
    }
    found.WhyNot = WhyEndsSpoil(state, pieces);
    if (!found) return found;
    if (pieces.size() == 1) {
        found.WhyNot = "The gas is uniform: nothing happens.";
        return found;
    }
    SeparateJumps tube;
    for (std::size_t k = 1; k < pieces.size(); ++k) {
        tube.Jumps.push_back({state.X[pieces[k].First],
                              ExactRiemann(pieces[k - 1].Gas, pieces[k].Gas, state.Gamma)});
    }
    const double meeting = tube.FirstMeeting();
    const double left = Arrival(tube.Jumps.front(), state.X[1], -1.0);
    const double right = Arrival(tube.Jumps.back(), state.X[state.NGridCells + 1], 1.0);
    const double first = std::min({meeting, left, right});
    if (state.Time > first) {
        found.WhyNot = first == meeting ? "Two waves have met" + At(meeting)
                       : first == left  ? "A wave has reached the left end" + At(left)
                                        : "A wave has reached the right end" + At(right);
        return found;
    }
    found.Tube.push_back(std::move(tube));
    return found;
}

ExactSolution FindWave(const ExperimentState& state) {
    ExactSolution found;
    SimpleWave wave;
    wave.U0 = state.U0;
    wave.Left = state.X[1];
    wave.Length = state.X[state.NGridCells + 1] - state.X[1];
    wave.Gamma = state.Gamma;
    if (state.R0Amp != 0.0) {
        found.WhyNot = "The entropy of the gas is not uniform.";
    } else if (state.RPlusAmp != 0.0 && state.RMinusAmp != 0.0) {
        found.WhyNot = "Two sound waves pass through each other.";
    } else if (state.NSelected > 2) {
        found.WhyNot = "Control points were added to the sound wave.";
    } else if (state.MnBdry != PeriodicBoundary) {
        found.WhyNot = "The ends of the grid are not joined.";
    }
    if (!found) return found;
    const bool isPlus = state.RPlusAmp != 0.0;
    wave.Side = isPlus ? 1.0 : -1.0;
    wave.Amplitude = isPlus ? state.RPlusAmp : state.RMinusAmp;
    wave.Frequency = isPlus ? state.RPlusFreq : state.RMinusFreq;
    const double h = state.X[2] - state.X[1];
    const double k = wave.Frequency * std::numbers::pi / wave.Length;
    const double meanOverCell = std::sin(h * k) / (h * k);
    wave.Offset = -wave.Amplitude * std::sin((state.X[1] + state.X[2]) * k) * meanOverCell;
    if (state.Time >= wave.BreakingTime()) {
        found.WhyNot = "The wave has steepened into a shock" + At(wave.BreakingTime());
        return found;
    }
    found.Wave.push_back(wave);
    return found;
}

}  // namespace

GasState SeparateJumps::At(double x, double time) const {
    // The jump whose waves are nearest: between two jumps the state is uniform where their waves
    // have not come yet.
    for (std::size_t k = 0; k < Jumps.size(); ++k) {
        const Jump& jump = Jumps[k];
        const std::vector<ExactWave>& waves = jump.Solution.Waves();
        const double reach = jump.Position + (waves.empty() ? 0.0 : waves.back().To * time);
        if (x <= reach || k + 1 == Jumps.size()) {
            const double distance = x - jump.Position;
            return jump.Solution.At(time > 0.0 ? distance / time
                                               : (distance < 0.0 ? -Never : Never));
        }
    }
    return {};
}

std::vector<double> SeparateJumps::Breaks(double time) const {
    std::vector<double> places;
    for (const Jump& jump : Jumps) {
        if (time == 0.0) {
            places.push_back(jump.Position);
            continue;
        }
        for (const double speed : jump.Solution.Breaks()) {
            places.push_back(jump.Position + speed * time);
        }
    }
    return places;
}

double SeparateJumps::FirstMeeting() const {
    double first = Never;
    for (std::size_t k = 1; k < Jumps.size(); ++k) {
        const std::vector<double> left = Jumps[k - 1].Solution.Breaks();
        const std::vector<double> right = Jumps[k].Solution.Breaks();
        if (left.empty() || right.empty()) continue;
        const double closing = left.back() - right.front();
        if (closing <= 0.0) continue;
        first = std::min(first, (Jumps[k].Position - Jumps[k - 1].Position) / closing);
    }
    return first;
}

double SimpleWave::BreakingTime() const {
    const double steepest =
        std::numbers::pi * Frequency / Length * std::abs(Amplitude) * 0.5 * (Gamma + 1.0);
    return steepest > 0.0 ? 1.0 / steepest : Never;
}

GasState SimpleWave::At(double x, double time) const {
    const double k = 2.0 * std::numbers::pi * Frequency / Length;
    // Half of the invariant is the change of velocity; c follows from the other, uniform one.
    const auto velocityAt = [&](double origin) {
        return 0.5 * Amplitude * std::sin(k * (origin - Left)) + Offset;
    };
    const auto soundSpeed = [&](double u) { return 1.0 + 0.5 * (Gamma - 1.0) * Side * u; };
    double origin = x;
    double u = 0.0;
    for (int i = 0; i < 60; ++i) {  // Newton's method; the slope stays above 0 before breaking
        u = velocityAt(origin);
        const double slope = 0.5 * Amplitude * k * std::cos(k * (origin - Left));
        const double miss = origin + (U0 + u + Side * soundSpeed(u)) * time - x;
        const double step = miss / (1.0 + 0.5 * (Gamma + 1.0) * slope * time);
        origin -= step;
        if (std::abs(step) < 1e-15 * Length) break;
    }
    u = velocityAt(origin);
    const double c = soundSpeed(u);
    return {std::pow(c, 2.0 / (Gamma - 1.0)), std::pow(c, 2.0 * Gamma / (Gamma - 1.0)) / Gamma,
            U0 + u, 0.0};
}

ExactSolution FindExactSolution(const ExperimentState& state) {
    return state.SoundWaveMode != 0 ? FindWave(state) : FindTube(state);
}

ExactFields ExactFieldsOf(const ExactSolution& solution, const ExperimentState& state) {
    const double time = state.Time;
    if (!solution.Wave.empty()) {
        const SimpleWave& wave = solution.Wave.front();
        return AverageOverCells([&](double x) { return wave.At(x, time); }, {}, state.Gamma,
                                state.X, state.NGridCells);
    }
    const SeparateJumps& tube = solution.Tube.front();
    return AverageOverCells([&](double x) { return tube.At(x, time); }, tube.Breaks(time),
                            state.Gamma, state.X, state.NGridCells);
}
