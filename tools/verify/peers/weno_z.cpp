#include "verify/peers/weno_z.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using Triple = std::array<double, 3>;

constexpr double NoZero = 1e-40;  // epsilon of the weights

// The value at the right edge of the middle cell from the averages of five cells, left to right.
double EdgeValue(const std::array<double, 5>& v) {
    const auto square = [](double a) { return a * a; };
    const Triple candidates = {(2.0 * v[0] - 7.0 * v[1] + 11.0 * v[2]) / 6.0,
                               (-v[1] + 5.0 * v[2] + 2.0 * v[3]) / 6.0,
                               (2.0 * v[2] + 5.0 * v[3] - v[4]) / 6.0};
    const Triple roughness = {
        13.0 / 12.0 * square(v[0] - 2.0 * v[1] + v[2]) +
            0.25 * square(v[0] - 4.0 * v[1] + 3.0 * v[2]),
        13.0 / 12.0 * square(v[1] - 2.0 * v[2] + v[3]) + 0.25 * square(v[1] - v[3]),
        13.0 / 12.0 * square(v[2] - 2.0 * v[3] + v[4]) +
            0.25 * square(3.0 * v[2] - 4.0 * v[3] + v[4])};
    constexpr Triple linear = {0.1, 0.6, 0.3};
    const double global = std::abs(roughness[0] - roughness[2]);
    double sum = 0.0;
    double weights = 0.0;
    for (std::size_t k = 0; k < 3; ++k) {
        const double weight = linear[k] * (1.0 + square(global / (roughness[k] + NoZero)));
        sum += weight * candidates[k];
        weights += weight;
    }
    return sum / weights;
}

// The average of two states by Roe, in which waves are told apart.
struct RoeAverage {
    double U;
    double H;  // enthalpy, kinetic energy included
    double C;
};

double Enthalpy(const Conserved& cell, const Primitive& s) {
    return (cell.Energy + s.P) / cell.Mass;
}

RoeAverage AverageOf(const Conserved& a, const Conserved& b, double gamma) {
    const Primitive left = ToPrimitive(a, gamma);
    const Primitive right = ToPrimitive(b, gamma);
    const double l = std::sqrt(left.Rho);
    const double r = std::sqrt(right.Rho);
    const double u = (l * left.U + r * right.U) / (l + r);
    const double h = (l * Enthalpy(a, left) + r * Enthalpy(b, right)) / (l + r);
    return {u, h, std::sqrt((gamma - 1.0) * (h - 0.5 * u * u))};
}

// Amplitudes of the three waves: u - c, u, u + c.
Triple ToWaves(const Conserved& q, const RoeAverage& m, double gamma) {
    const double b = (gamma - 1.0) / (m.C * m.C);
    const double pressure = b * (0.5 * m.U * m.U * q.Mass - m.U * q.Momentum + q.Energy);
    const double speed = (q.Momentum - m.U * q.Mass) / m.C;
    return {0.5 * (pressure - speed), q.Mass - pressure, 0.5 * (pressure + speed)};
}

Conserved FromWaves(const Triple& w, const RoeAverage& m) {
    return {w[0] + w[1] + w[2], w[0] * (m.U - m.C) + w[1] * m.U + w[2] * (m.U + m.C),
            w[0] * (m.H - m.U * m.C) + w[1] * 0.5 * m.U * m.U + w[2] * (m.H + m.U * m.C)};
}

// The states on both sides of the left edge of cell i. Where one of them has no pressure, both are
// the averages of the cells.
struct EdgeStates {
    Primitive Left;
    Primitive Right;
};

EdgeStates Reconstruct(const std::vector<Conserved>& cells, int i, double gamma) {
    const RoeAverage m = AverageOf(cells[i - 1], cells[i], gamma);
    std::array<Triple, 6> waves;
    for (int k = 0; k < 6; ++k) waves[k] = ToWaves(cells[i - 3 + k], m, gamma);
    Triple left;
    Triple right;
    for (std::size_t k = 0; k < 3; ++k) {
        left[k] = EdgeValue({waves[0][k], waves[1][k], waves[2][k], waves[3][k], waves[4][k]});
        right[k] = EdgeValue({waves[5][k], waves[4][k], waves[3][k], waves[2][k], waves[1][k]});
    }
    const EdgeStates states = {ToPrimitive(FromWaves(left, m), gamma),
                               ToPrimitive(FromWaves(right, m), gamma)};
    const auto good = [](const Primitive& s) { return s.Rho > 0.0 && s.P > 0.0; };
    if (good(states.Left) && good(states.Right)) return states;
    return {ToPrimitive(cells[i - 1], gamma), ToPrimitive(cells[i], gamma)};
}

// The flux with outer speeds that bound those of both states and of their Roe average.
Conserved HllcFlux(const Primitive& left, const Primitive& right, double gamma) {
    const RoeAverage m = AverageOf(ToConserved(left, gamma), ToConserved(right, gamma), gamma);
    const double slow = std::min(left.U - SoundSpeed(left, gamma), m.U - m.C);
    const double fast = std::max(right.U + SoundSpeed(right, gamma), m.U + m.C);
    if (slow >= 0.0) return FluxOf(left, gamma);
    if (fast <= 0.0) return FluxOf(right, gamma);
    const double leftMass = left.Rho * (slow - left.U);
    const double rightMass = right.Rho * (fast - right.U);
    const double middle =
        (right.P - left.P + leftMass * left.U - rightMass * right.U) / (leftMass - rightMass);
    const Primitive& s = middle >= 0.0 ? left : right;
    const double outer = middle >= 0.0 ? slow : fast;
    const double mass = middle >= 0.0 ? leftMass : rightMass;
    const Conserved q = ToConserved(s, gamma);
    const double rho = mass / (outer - middle);
    const double energy = rho * (q.Energy / q.Mass + (middle - s.U) * (middle + s.P / mass));
    const Conserved f = FluxOf(s, gamma);
    return {f.Mass + outer * (rho - q.Mass), f.Momentum + outer * (rho * middle - q.Momentum),
            f.Energy + outer * (energy - q.Energy)};
}

// One Euler step of length timeStep.
void EulerStage(PeerGrid& grid, double timeStep) {
    grid.FillZones();
    std::vector<Conserved> flux(grid.Cells.size());  // flux[i] passes the left edge of cell i
    for (int i = grid.First(); i <= grid.Last() + 1; ++i) {
        const EdgeStates states = Reconstruct(grid.Cells, i, grid.Gamma);
        flux[i] = HllcFlux(states.Left, states.Right, grid.Gamma);
    }
    for (int i = grid.First(); i <= grid.Last(); ++i) {
        const double share = timeStep / grid.Width(i);
        grid.Cells[i].Mass += share * (flux[i].Mass - flux[i + 1].Mass);
        grid.Cells[i].Momentum += share * (flux[i].Momentum - flux[i + 1].Momentum);
        grid.Cells[i].Energy += share * (flux[i].Energy - flux[i + 1].Energy);
    }
    grid.RaiseToFloors();
}

// a * start + (1 - a) * grid
void Blend(PeerGrid& grid, const std::vector<Conserved>& start, double a) {
    for (int i = grid.First(); i <= grid.Last(); ++i) {
        Conserved& cell = grid.Cells[i];
        cell.Mass = a * start[i].Mass + (1.0 - a) * cell.Mass;
        cell.Momentum = a * start[i].Momentum + (1.0 - a) * cell.Momentum;
        cell.Energy = a * start[i].Energy + (1.0 - a) * cell.Energy;
    }
}

}  // namespace

void WenoZ::Step(PeerGrid& grid, double timeStep) const {
    const std::vector<Conserved> start = grid.Cells;
    EulerStage(grid, timeStep);
    EulerStage(grid, timeStep);
    Blend(grid, start, 3.0 / 4.0);
    EulerStage(grid, timeStep);
    Blend(grid, start, 1.0 / 3.0);
}
