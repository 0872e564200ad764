#include "core/analysis/wave_places.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "core/analysis/exact_solution.h"
#include "core/model/experiment_state.h"

namespace {

constexpr double EdgeShare = 0.05;  // of a jump, outside of which it counts as passed

// A wave of any of the jumps at the present time.
struct PlacedWave {
    WaveKind Kind;
    double Speed;
    double From, To;  // places
    double RhoL, RhoR;
};

std::vector<PlacedWave> PlacedWaves(const SeparateJumps& solution, double time) {
    std::vector<PlacedWave> placed;
    for (const SeparateJumps::Jump& jump : solution.Jumps) {
        const std::vector<ExactWave>& waves = jump.Solution.Waves();
        const std::vector<GasState> states = jump.Solution.States();
        for (std::size_t k = 0; k < waves.size(); ++k) {
            placed.push_back({waves[k].Kind, waves[k].From, jump.Position + waves[k].From * time,
                              jump.Position + waves[k].To * time, states[k].Rho,
                              states[k + 1].Rho});
        }
    }
    return placed;
}

// Where the density between the middles of cells first..last passes a value, nearest to a place.
std::optional<double> Crossing(const ExperimentState& state, int first, int last, double rho,
                               double place) {
    const auto middle = [&](int i) { return 0.5 * (state.X[i] + state.X[i + 1]); };
    std::optional<double> nearest;
    for (int i = first; i < last; ++i) {
        const double a = state.Rho[i] - rho;
        const double b = state.Rho[i + 1] - rho;
        if (a == b || a * b > 0.0) continue;
        const double x = middle(i) + a / (a - b) * (middle(i + 1) - middle(i));
        if (!nearest || std::abs(x - place) < std::abs(*nearest - place)) nearest = x;
    }
    return nearest;
}

}  // namespace

std::vector<WavePlace> FindWavePlaces(const ExperimentState& state, const SeparateJumps& solution) {
    const int n = state.NGridCells;
    const double width = (state.X[n + 1] - state.X[1]) / n;
    const std::vector<PlacedWave> waves = PlacedWaves(solution, state.Time);
    std::vector<WavePlace> found;
    for (std::size_t k = 0; k < waves.size(); ++k) {
        const PlacedWave& wave = waves[k];
        if (wave.Kind == WaveKind::Fan || wave.RhoL == wave.RhoR) continue;
        const double from = k > 0 ? 0.5 * (waves[k - 1].To + wave.From) : state.X[1];
        const double to =
            k + 1 < waves.size() ? 0.5 * (wave.To + waves[k + 1].From) : state.X[n + 1];
        const auto cellAt = [&](double x) {
            return std::clamp(static_cast<int>((x - state.X[1]) / width) + 1, 1, n);
        };
        const int first = cellAt(from);
        const int last = cellAt(to);
        const auto crossing = [&](double share, double near) {
            return Crossing(state, first, last, wave.RhoL + share * (wave.RhoR - wave.RhoL), near);
        };
        const std::optional<double> middle = crossing(0.5, wave.From);
        if (!middle) continue;
        const std::optional<double> left = crossing(EdgeShare, *middle);
        const std::optional<double> right = crossing(1.0 - EdgeShare, *middle);
        if (!left || !right) continue;
        found.push_back({wave.Kind, wave.Speed, wave.From, *middle, (*right - *left) / width});
    }
    return found;
}
