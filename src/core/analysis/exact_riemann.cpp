#include "core/analysis/exact_riemann.h"

#include <algorithm>
#include <cmath>

namespace {

// A wave that changes pressure or density by less than this part of it is rounding.
constexpr double NoStrength = 1e-12;

// The change of velocity across the wave that takes the state to pressure p: a shock for p above
// the state's own pressure, else a rarefaction.
double VelocityChange(const GasState& state, double gamma, double p) {
    if (p > state.P) {
        const double a = 2.0 / ((gamma + 1.0) * state.Rho);
        const double b = (gamma - 1.0) / (gamma + 1.0) * state.P;
        return (p - state.P) * std::sqrt(a / (p + b));
    }
    const double c = SoundSpeed(state, gamma);
    return 2.0 * c / (gamma - 1.0) * (std::pow(p / state.P, (gamma - 1.0) / (2.0 * gamma)) - 1.0);
}

double ShockSpeedFactor(const GasState& state, double gamma, double p) {
    return std::sqrt((gamma + 1.0) / (2.0 * gamma) * p / state.P + (gamma - 1.0) / (2.0 * gamma));
}

bool IsSame(double a, double b) {
    return std::abs(a - b) <= NoStrength * std::max(std::abs(a), std::abs(b));
}

}  // namespace

double SoundSpeed(const GasState& state, double gamma) {
    return std::sqrt(gamma * state.P / state.Rho);
}

ExactRiemann::ExactRiemann(const GasState& left, const GasState& right, double gamma)
    : left_(left), right_(right), gamma_(gamma) {
    const bool given = left.IsVacuum() || right.IsVacuum();
    vacuum_ =
        given || right.Ux - left.Ux >=
                     2.0 / (gamma - 1.0) * (SoundSpeed(left, gamma) + SoundSpeed(right, gamma));
    if (!vacuum_) {
        // The sum of both changes grows with p, so that bisection of log p cannot fail.
        const auto excess = [&](double p) {
            return VelocityChange(left, gamma, p) + VelocityChange(right, gamma, p) +
                   (right.Ux - left.Ux);
        };
        double low = -700.0;
        double high = 300.0;
        for (int i = 0; i < 200; ++i) {
            const double middle = 0.5 * (low + high);
            (excess(std::exp(middle)) < 0.0 ? low : high) = middle;
        }
        starP_ = std::exp(0.5 * (low + high));
        // Both sides give the velocity; the denser gas gives it with less rounding.
        const double fromLeft = left.Ux - VelocityChange(left, gamma, starP_);
        const double fromRight = right.Ux + VelocityChange(right, gamma, starP_);
        const double share = std::sqrt(left.Rho);
        const double other = std::sqrt(right.Rho);
        starU_ = (share * fromLeft + other * fromRight) / (share + other);
    }
    if (!left.IsVacuum() && !IsSame(starP_, left.P)) waves_.push_back(OuterWave(left, -1.0));
    if (!vacuum_) {
        const GasState a = Beside(left, -1.0, starU_);
        const GasState b = Beside(right, 1.0, starU_);
        if (!IsSame(a.Rho, b.Rho) || a.Uy != b.Uy) {
            waves_.push_back({WaveKind::Contact, starU_, starU_});
        }
    }
    if (!right.IsVacuum() && !IsSame(starP_, right.P)) waves_.push_back(OuterWave(right, 1.0));
}

ExactWave ExactRiemann::OuterWave(const GasState& state, double side) const {
    const double c = SoundSpeed(state, gamma_);
    if (!vacuum_ && starP_ > state.P) {
        const double speed = state.Ux + side * c * ShockSpeedFactor(state, gamma_, starP_);
        return {WaveKind::Shock, speed, speed};
    }
    const double head = state.Ux + side * c;
    const double starC =
        vacuum_ ? 0.0 : c * std::pow(starP_ / state.P, (gamma_ - 1.0) / (2.0 * gamma_));
    const double tail =
        (vacuum_ ? state.Ux - side * 2.0 * c / (gamma_ - 1.0) : starU_) + side * starC;
    return {WaveKind::Fan, std::min(head, tail), std::max(head, tail)};
}

std::vector<double> ExactRiemann::Breaks() const {
    std::vector<double> breaks;
    for (const ExactWave& wave : waves_) {
        breaks.push_back(wave.From);
        if (wave.To != wave.From) breaks.push_back(wave.To);
    }
    std::sort(breaks.begin(), breaks.end());
    return breaks;
}

std::vector<GasState> ExactRiemann::States() const {
    std::vector<GasState> states = {left_.IsVacuum() ? GasState{} : left_};
    for (std::size_t k = 1; k < waves_.size(); ++k) {
        states.push_back(At(0.5 * (waves_[k - 1].To + waves_[k].From)));
    }
    if (!waves_.empty()) states.push_back(right_.IsVacuum() ? GasState{} : right_);
    return states;
}

GasState ExactRiemann::At(double speed) const {
    if (!vacuum_) {
        return speed < starU_ ? Beside(left_, -1.0, speed) : Beside(right_, 1.0, speed);
    }
    const double reach = 2.0 / (gamma_ - 1.0);
    if (!left_.IsVacuum() && speed < left_.Ux + reach * SoundSpeed(left_, gamma_)) {
        return Beside(left_, -1.0, speed);
    }
    if (!right_.IsVacuum() && speed > right_.Ux - reach * SoundSpeed(right_, gamma_)) {
        return Beside(right_, 1.0, speed);
    }
    return {};
}

// The solution on one side of the contact; side is -1 on the left and 1 on the right. Written for
// the right side: velocities are measured outward, away from the contact.
GasState ExactRiemann::Beside(const GasState& state, double side, double speed) const {
    const double g = gamma_;
    const double c = SoundSpeed(state, g);
    const double out = side * (speed - state.Ux);
    GasState result = state;
    if (!vacuum_ && starP_ > state.P) {
        if (out >= c * ShockSpeedFactor(state, g, starP_)) return state;
        const double ratio = starP_ / state.P;
        const double m = (g - 1.0) / (g + 1.0);
        result.Rho = state.Rho * (ratio + m) / (m * ratio + 1.0);
        result.P = starP_;
        result.Ux = starU_;
        return result;
    }
    if (out >= c) return state;
    const double starC = vacuum_ ? 0.0 : c * std::pow(starP_ / state.P, (g - 1.0) / (2.0 * g));
    const double starOut = vacuum_ ? -2.0 * c / (g - 1.0) : side * (starU_ - state.Ux);
    const double localC =
        out <= starOut + starC ? starC : c * 2.0 / (g + 1.0) + (g - 1.0) / (g + 1.0) * out;
    const double localOut = out <= starOut + starC ? starOut : 2.0 / (g + 1.0) * (out - c);
    result.Rho = state.Rho * std::pow(localC / c, 2.0 / (g - 1.0));
    result.P = state.P * std::pow(localC / c, 2.0 * g / (g - 1.0));
    result.Ux = state.Ux + side * localOut;
    return result;
}
