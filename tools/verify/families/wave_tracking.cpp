#include "verify/families/wave_tracking.h"

#include <algorithm>
#include <cmath>

#include "core/analysis/cell_averages.h"

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

GasState WaveTracking::Region::At(double x, double time) const {
    return Fan ? Fan->Solution.At((x - Fan->Place) / (time - Fan->Time)) : State;
}

// The fronts of a jump, left to right: those of waves that change something.
WaveTracking::Waves WaveTracking::Break(const GasState& left, const GasState& right, double place,
                                        double time) {
    const auto pattern =
        std::make_shared<const Pattern>(Pattern{ExactRiemann(left, right, gamma_), place, time});
    const ExactRiemann& solution = pattern->Solution;
    if (solution.HasVacuum()) {
        exact_ = false;
        return {};
    }
    const double p = solution.StarPressure();
    const double u = solution.StarVelocity();
    const std::vector<double> breaks = solution.Breaks();
    if (!breaks.empty()) spread_ = breaks.back() - breaks.front();

    // The states beside the contact.
    GasState inLeft = left;
    GasState inRight = right;
    for (const ExactWave& wave : solution.Waves()) {
        if (wave.Kind == WaveKind::Contact) continue;
        const bool isLeft = wave.From < u;
        (isLeft ? inLeft : inRight) = solution.At(0.5 * ((isLeft ? wave.To : wave.From) + u));
    }
    Waves waves;
    const auto add = [&](const ExactWave& wave, const GasState& leftOfIt) {
        const bool fan = wave.Kind == WaveKind::Fan;
        if (!waves.Fronts.empty()) waves.Between.push_back({leftOfIt, nullptr});
        waves.Fronts.push_back({place, time, wave.From, fan});
        if (!fan) return;
        waves.Between.push_back({{}, pattern});
        waves.Fronts.push_back({place, time, wave.To, true});
    };
    for (const ExactWave& wave : solution.Waves()) {
        if (wave.Kind == WaveKind::Contact) {
            if (Differ(inLeft.Rho, inRight.Rho)) add(wave, inLeft);
        } else if (wave.From < u) {
            if (Differ(p, left.P)) add(wave, left);
        } else if (Differ(p, right.P)) {
            add(wave, inRight);
        }
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
    std::vector<double> breaks;
    for (const Front& front : fronts_) breaks.push_back(front.At(time));
    const auto at = [&](double x) {
        const auto region = std::upper_bound(breaks.begin(), breaks.end(), x) - breaks.begin();
        return regions_[static_cast<std::size_t>(region)].At(x, time);
    };
    std::vector<double> densities;
    for (std::size_t k = 0; k + 1 < edges.size(); ++k)
        densities.push_back(AverageOver(at, breaks, gamma_, edges[k], edges[k + 1]).Rho);
    return densities;
}
