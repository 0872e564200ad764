#include "verify/exact_riemann.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

double SoundSpeed(const GasState& state, double gamma) {
    return std::sqrt(gamma * state.P / state.Rho);
}

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

}  // namespace

ExactRiemann::ExactRiemann(const GasState& left, const GasState& right, double gamma)
    : left_(left), right_(right), gamma_(gamma) {
    const double escape =
        2.0 / (gamma - 1.0) * (SoundSpeed(left, gamma) + SoundSpeed(right, gamma));
    vacuum_ = right.Ux - left.Ux >= escape;
    if (!vacuum_) {
        // The sum of both changes grows with p, so that bisection of log p cannot fail.
        const auto excess = [&](double p) {
            return VelocityChange(left, gamma, p) + VelocityChange(right, gamma, p) + right.Ux -
                   left.Ux;
        };
        double low = -700.0;
        double high = 300.0;
        for (int i = 0; i < 200; ++i) {
            const double middle = 0.5 * (low + high);
            (excess(std::exp(middle)) < 0.0 ? low : high) = middle;
        }
        starP_ = std::exp(0.5 * (low + high));
        starU_ = 0.5 * (left.Ux + right.Ux + VelocityChange(right, gamma, starP_) -
                        VelocityChange(left, gamma, starP_));
        breaks_.push_back(starU_);
    }
    AddBreaks(left, -1.0);
    AddBreaks(right, 1.0);
    std::sort(breaks_.begin(), breaks_.end());
}

void ExactRiemann::AddBreaks(const GasState& state, double side) {
    const double c = SoundSpeed(state, gamma_);
    if (!vacuum_ && starP_ > state.P) {
        breaks_.push_back(state.Ux + side * c * ShockSpeedFactor(state, gamma_, starP_));
        return;
    }
    breaks_.push_back(state.Ux + side * c);
    const double starC =
        vacuum_ ? 0.0 : c * std::pow(starP_ / state.P, (gamma_ - 1.0) / (2.0 * gamma_));
    const double edge = vacuum_ ? state.Ux - side * 2.0 * c / (gamma_ - 1.0) : starU_;
    breaks_.push_back(edge + side * starC);
}

GasState ExactRiemann::At(double speed) const {
    const double middle = 0.5 * (breaks_.front() + breaks_.back());
    const bool onLeft = vacuum_ ? speed < middle : speed < starU_;
    return onLeft ? Beside(left_, -1.0, speed) : Beside(right_, 1.0, speed);
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

GasState ExactCellAverage(const ExactRiemann& solution, double jump, double time, double from,
                          double to) {
    std::vector<double> ends = {from};
    for (const double speed : solution.Breaks()) {
        const double x = jump + speed * time;
        if (x > from && x < to) ends.push_back(x);
    }
    ends.push_back(to);

    // Gauss-Legendre with five points in each smooth part.
    constexpr std::array<double, 5> nodes = {-0.9061798459386640, -0.5384693101056831, 0.0,
                                             0.5384693101056831, 0.9061798459386640};
    constexpr std::array<double, 5> weights = {0.2369268850561891, 0.4786286704993665,
                                               0.5688888888888889, 0.4786286704993665,
                                               0.2369268850561891};
    GasState average = {0.0, 0.0, 0.0, 0.0};
    for (std::size_t part = 0; part + 1 < ends.size(); ++part) {
        const double half = 0.5 * (ends[part + 1] - ends[part]);
        const double centre = 0.5 * (ends[part + 1] + ends[part]);
        for (std::size_t k = 0; k < nodes.size(); ++k) {
            const GasState s = solution.At((centre + half * nodes[k] - jump) / time);
            const double share = weights[k] * half / (to - from);
            average.Rho += share * s.Rho;
            average.P += share * s.P;
            average.Ux += share * s.Ux;
            average.Uy += share * s.Uy;
        }
    }
    return average;
}
