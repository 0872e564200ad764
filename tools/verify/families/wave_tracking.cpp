#include "verify/families/wave_tracking.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double Never = std::numeric_limits<double>::infinity();

// A wave that changes pressure or density by less than this share is left out.
constexpr double Nothing = 1e-9;

bool Differ(double a, double b) {
    return std::abs(a - b) > Nothing * std::max(std::abs(a), std::abs(b));
}

template <typename T>
void Replace(std::vector<T>& all, std::size_t first, std::size_t count, const std::vector<T>& by) {
    const auto at = all.begin() + static_cast<std::ptrdiff_t>(first);
    const auto rest = all.erase(at, at + static_cast<std::ptrdiff_t>(count));
    all.insert(rest, by.begin(), by.end());
}

}  // namespace

WaveTracking::WaveTracking(const std::vector<GasState>& states, const std::vector<double>& jumps,
                           double gamma)
    : gamma_(gamma) {
    regions_.push_back({states[0], nullptr});
    for (std::size_t k = 0; k < jumps.size(); ++k) {
        const Waves waves = Break(states[k], states[k + 1], jumps[k], 0.0);
        if (waves.Fronts.empty()) continue;
        Replace(fronts_, fronts_.size(), 0, waves.Fronts);
        Replace(regions_, regions_.size(), 0, waves.Between);
        regions_.push_back({states[k + 1], nullptr});
    }
}

double WaveTracking::Region::Density(double x, double time) const {
    return Fan ? Fan->Solution.At((x - Fan->Place) / (time - Fan->Time)).Rho : State.Rho;
}

// The fronts of a jump, left to right: those of waves that change something.
WaveTracking::Waves WaveTracking::Break(const GasState& left, const GasState& right, double place,
                                        double time) {
    const auto pattern =
        std::make_shared<const Pattern>(Pattern{ExactRiemann(left, right, gamma_), place, time});
    const ExactRiemann& solution = pattern->Solution;
    const std::vector<double>& speeds = solution.Breaks();
    const double p = solution.StarPressure();
    if (p <= 0.0) {
        exact_ = false;
        return {};
    }
    spread_ = speeds.back() - speeds.front();
    const std::size_t contact = p > left.P ? 1 : 2;
    const Region leftStar = {solution.At(0.5 * (speeds[contact - 1] + speeds[contact])), nullptr};
    const Region rightStar = {solution.At(0.5 * (speeds[contact] + speeds[contact + 1])), nullptr};
    const Region fan = {{}, pattern};

    Waves waves;
    const auto add = [&](std::size_t number, bool ofFan, const Region& regionLeftOfIt) {
        if (!waves.Fronts.empty()) waves.Between.push_back(regionLeftOfIt);
        waves.Fronts.push_back({place, time, speeds[number], ofFan});
    };
    if (Differ(p, left.P)) {
        add(0, p < left.P, {});
        if (p < left.P) add(1, true, fan);
    }
    if (Differ(leftStar.State.Rho, rightStar.State.Rho)) add(contact, false, leftStar);
    if (Differ(p, right.P)) {
        add(contact + 1, p < right.P, rightStar);
        if (p < right.P) add(contact + 2, true, fan);
    }
    return waves;
}

WaveTracking::Meeting WaveTracking::FindMeeting() const {
    Meeting first = {Never, 0};
    for (std::size_t k = 0; k + 1 < fronts_.size(); ++k) {
        const Front& a = fronts_[k];
        const Front& b = fronts_[k + 1];
        const double gap = std::max(b.At(time_) - a.At(time_), 0.0);
        if (a.Speed <= b.Speed) continue;
        const double time = time_ + gap / (a.Speed - b.Speed);
        if (time < first.Time) first = {time, k};
    }
    return first;
}

double WaveTracking::NextMeeting() const {
    return FindMeeting().Time;
}

void WaveTracking::Meet() {
    const auto [time, front] = FindMeeting();
    time_ = time;
    exact_ = exact_ && !fronts_[front].OfFan && !fronts_[front + 1].OfFan;
    if (!exact_) return;
    const Waves waves =
        Break(regions_[front].State, regions_[front + 2].State, fronts_[front].At(time_), time_);
    if (!exact_) return;
    Replace(fronts_, front, 2, waves.Fronts);
    Replace(regions_, front + 1, waves.Fronts.empty() ? 2 : 1, waves.Between);
}

std::vector<double> WaveTracking::Densities(const std::vector<double>& edges, double time) const {
    // Gauss-Legendre with five points in each smooth part of a cell.
    constexpr std::array<double, 5> nodes = {-0.9061798459386640, -0.5384693101056831, 0.0,
                                             0.5384693101056831, 0.9061798459386640};
    constexpr std::array<double, 5> weights = {0.2369268850561891, 0.4786286704993665,
                                               0.5688888888888889, 0.4786286704993665,
                                               0.2369268850561891};
    std::vector<double> densities;
    for (std::size_t cell = 0; cell + 1 < edges.size(); ++cell) {
        double mass = 0.0;
        for (std::size_t k = 0; k < regions_.size(); ++k) {
            const double from = std::max(edges[cell], k == 0 ? -Never : fronts_[k - 1].At(time));
            const double to =
                std::min(edges[cell + 1], k == fronts_.size() ? Never : fronts_[k].At(time));
            if (to <= from) continue;
            for (std::size_t n = 0; n < nodes.size(); ++n)
                mass += 0.5 * weights[n] * (to - from) *
                        regions_[k].Density(0.5 * (from + to) + 0.5 * nodes[n] * (to - from), time);
        }
        densities.push_back(mass / (edges[cell + 1] - edges[cell]));
    }
    return densities;
}
