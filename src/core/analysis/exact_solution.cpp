#include "core/analysis/exact_solution.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

#include "core/model/boundary_types.h"
#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/run/state_store.h"

namespace {

constexpr double Never = std::numeric_limits<double>::infinity();

bool IsSame(const GasState& a, const GasState& b) {
    return a.Rho == b.Rho && a.P == b.P && a.Ux == b.Ux && a.Uy == b.Uy;
}

// The gas of cell i at the start of the run. At Time 0 the fields hold it, whether or not they have
// been stored; later stored state 0 does, in single precision.
GasState AtStart(const ExperimentState& state, int i) {
    if (state.Time == 0.0) return {state.Rho[i], state.P[i], state.Ux[i], state.Uy[i]};
    return {state.SRho[i], state.SP[i], state.SUx[i], state.SUy[i]};
}

// Transverse velocities are no part of a control point.
GasState StateOfPoint(const ExperimentState& state, int k) {
    return {state.RhoSelList[k], state.PSelList[k], state.VxSelList[k],
            AtStart(state, state.MSelList[k]).Uy};
}

// As far as the store keeps them.
bool IsSameStored(const GasState& a, const GasState& b) {
    const auto same = [](double x, double y) {
        return static_cast<float>(x) == static_cast<float>(y);
    };
    return same(a.Rho, b.Rho) && same(a.P, b.P) && same(a.Ux, b.Ux) && same(a.Uy, b.Uy);
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
    for (const Piece& piece : pieces) {
        for (int i = piece.First; i <= piece.Last; ++i) {
            if (!IsSameStored(AtStart(state, i), piece.Gas)) return {};
        }
    }
    return pieces;
}

// With four digits.
std::string At(double time) {
    const double unit = std::pow(10.0, std::floor(std::log10(time)) - 3.0);
    return " at t = " +
           GeneralNumber(unit >= 1.0 ? std::round(time / unit) * unit
                                     : std::round(time / unit) / std::round(1.0 / unit)) +
           ".";
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

ExactSolution FindTube(const ExperimentState& state, const std::vector<Piece>& pieces) {
    ExactSolution found;
    found.WhyNot = WhyEndsSpoil(state, pieces);
    if (!found) return found;
    SeparateJumps tube;
    for (std::size_t k = 1; k < pieces.size(); ++k) {
        tube.Jumps.push_back({state.X[pieces[k].First],
                              ExactRiemann(pieces[k - 1].Gas, pieces[k].Gas, state.Gamma)});
    }
    if (tube.Jumps.empty()) {  // uniform gas: a jump without waves, wherever it is
        const GasState& gas = pieces.front().Gas;
        tube.Jumps.push_back({state.X[1], ExactRiemann(gas, gas, state.Gamma)});
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
    found.Tube = std::move(tube);
    return found;
}

// Whether the problem started from this wave. The set-up integrates the wave from cell to cell and
// misses it by the square of amplitude * frequency / cells times 0.8 for weak waves, up to 20 for
// strong ones, as measured.
bool StartedFrom(const ExperimentState& state, const SimpleWave& wave) {
    constexpr double room = 40.0;
    constexpr double rounding = 1e-6;  // of the store, with room
    const int n = state.NGridCells;
    const double coarse = wave.Amplitude * wave.Frequency / n;
    const double tolerance = room * coarse * coarse + rounding * (1.0 + std::abs(wave.U0));
    const ExactFields exact =
        AverageOverCells([&](double x) { return wave.At(x, 0.0); }, {}, state.Gamma, state.X, n);
    for (int i = 1; i <= n; ++i) {
        const GasState gas = AtStart(state, i);
        const double miss =
            std::max({std::abs(gas.Rho - exact.Rho[i]), std::abs(gas.P - exact.P[i]),
                      std::abs(gas.Ux - exact.Ux[i]), std::abs(gas.Uy)});
        if (!(miss <= tolerance)) return false;
    }
    return true;
}

constexpr const char* NotUniform =
    "The problem was not laid as uniform states with jumps between them.";

ExactSolution FindWave(const ExperimentState& state) {
    ExactSolution found;
    SimpleWave wave;
    wave.U0 = state.U0;
    wave.Length = state.X[state.NGridCells + 1] - state.X[1];
    wave.Gamma = state.Gamma;
    const bool hasPlus = state.RPlusAmp != 0.0;
    const bool hasMinus = state.RMinusAmp != 0.0;
    const bool hasEntropy = state.R0Amp != 0.0;
    if (state.NSelected > 2) {
        found.WhyNot = NotUniform;
    } else if (hasPlus && hasMinus) {
        found.WhyNot = "Two sound waves pass through each other.";
    } else if (hasEntropy && (hasPlus || hasMinus)) {
        found.WhyNot = "A sound wave runs through gas whose entropy is not uniform.";
    } else if (state.MnBdry != PeriodicBoundary) {
        found.WhyNot = "The ends of the grid are not joined.";
    }
    if (!found) return found;
    wave.Side = hasPlus ? 1.0 : hasMinus ? -1.0 : 0.0;
    wave.Amplitude = hasPlus ? state.RPlusAmp : hasMinus ? state.RMinusAmp : state.R0Amp;
    wave.Frequency = hasPlus ? state.RPlusFreq : hasMinus ? state.RMinusFreq : state.R0Freq;
    if (wave.Side != 0.0) {
        const double h = state.X[2] - state.X[1];
        const double k = wave.Frequency * std::numbers::pi / wave.Length;
        const double meanOverCell = std::sin(h * k) / (h * k);
        wave.Offset = -wave.Amplitude * std::sin((state.X[1] + state.X[2]) * k) * meanOverCell;
    }
    if (!StartedFrom(state, wave)) {
        found.WhyNot = NotUniform;
    } else if (state.Time >= wave.BreakingTime()) {
        found.WhyNot = "The wave has steepened into a shock" + At(wave.BreakingTime());
    } else {
        found.Wave = wave;
    }
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
    const double steepest = std::numbers::pi * Frequency / Length * std::abs(Amplitude) * 0.5 *
                            (Gamma + 1.0) * std::abs(Side);
    return steepest > 0.0 ? 1.0 / steepest : Never;
}

GasState SimpleWave::At(double x, double time) const {
    const double k = 2.0 * std::numbers::pi * Frequency / Length;
    if (Side == 0.0) {
        const double p = 1.0 / Gamma;
        const double entropy = p + Amplitude * std::sin(k * (x - U0 * time));
        return {std::pow(p / entropy, 1.0 / Gamma), p, U0, 0.0};
    }
    // The change of velocity is half the amplitude times the sine; the sound speed follows from the
    // other, uniform invariant. The characteristic that is at x now started at `origin`: a root
    // between `low` and `high`, by Newton's method with halving where that leaves them.
    const auto velocityAt = [&](double origin) {
        return Offset + 0.5 * Amplitude * std::sin(k * origin);
    };
    const auto soundSpeed = [&](double u) { return 1.0 + 0.5 * (Gamma - 1.0) * Side * u; };
    const double fastest = 0.25 * (Gamma + 1.0) * std::abs(Amplitude);
    const double mean = U0 + Side + 0.5 * (Gamma + 1.0) * Offset;
    double low = x - (mean + fastest) * time;
    double high = x - (mean - fastest) * time;
    double origin = 0.5 * (low + high);
    for (int i = 0; i < 100 && low < high; ++i) {
        const double u = velocityAt(origin);
        const double miss = origin + (U0 + u + Side * soundSpeed(u)) * time - x;
        (miss < 0.0 ? low : high) = origin;
        const double slope =
            1.0 + 0.25 * (Gamma + 1.0) * Amplitude * k * std::cos(k * origin) * time;
        const double next = origin - miss / slope;
        const double before = origin;
        origin = next > low && next < high ? next : 0.5 * (low + high);
        if (std::abs(origin - before) < 1e-15 * Length) break;
    }
    const double u = velocityAt(origin);
    const double c = soundSpeed(u);
    return {std::pow(c, 2.0 / (Gamma - 1.0)), std::pow(c, 2.0 * Gamma / (Gamma - 1.0)) / Gamma,
            U0 + u, 0.0};
}

ExactSolution FindExactSolution(const ExperimentState& state) {
    if (state.Time != 0.0 && !IsStored(state, 0)) {
        return {{}, {}, "It is not known how the run started."};
    }
    const std::vector<Piece> pieces = PiecesOf(state);
    if (!pieces.empty()) return FindTube(state, pieces);
    if (state.SoundWaveMode != 0) return FindWave(state);
    return {{}, {}, NotUniform};
}

ExactFields ExactFieldsOf(const ExactSolution& solution, const ExperimentState& state) {
    const double time = state.Time;
    if (solution.Wave) {
        return AverageOverCells([&](double x) { return solution.Wave->At(x, time); }, {},
                                state.Gamma, state.X, state.NGridCells);
    }
    return AverageOverCells([&](double x) { return solution.Tube->At(x, time); },
                            solution.Tube->Breaks(time), state.Gamma, state.X, state.NGridCells);
}
