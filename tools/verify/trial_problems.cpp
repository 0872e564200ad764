#include "verify/trial_problems.h"

#include "core/analysis/cell_averages.h"

#include <cmath>
#include <fstream>
#include <numbers>
#include <sstream>
#include <stdexcept>

// clang-format off
const std::array<ShockTube, 8> ShockTubes = {{
    {"Test 1", {1.0,       1.0,     0.75,      0.0}, {0.125,    0.1,      0.0,        0.0}, 0.3, 0.2},
    {"Test 2", {1.0,       1.0,     0.75,      1.0}, {0.125,    0.1,      0.0,       -8.0}, 0.3, 0.2},
    {"Test 3", {1.0,       0.4,    -2.0,       0.0}, {1.0,      0.4,      2.0,        0.0}, 0.5, 0.15},
    {"Test 4", {1.0,       1e-6,    1.0,       0.0}, {1.0,      1e-6,    -1.0,        0.0}, 0.5, 1.0},
    {"Test 5", {1.0,       1000.0, -19.59745,  0.0}, {1.0,      0.01,    -19.59745,   0.0}, 0.8, 0.012},
    {"Test 6", {5.99924,   460.894, 19.5975,   0.0}, {5.99242,  46.095,  -6.19633,    0.0}, 0.4, 0.035},
    {"Test 7", {1.4,       1.0,     0.1,       0.0}, {1.0,      1.0,      0.1,        0.0}, 0.5, 2.0},
    {"Test 8", {0.1261192, 782.929, 8.904703,  0.0}, {6.591493, 3.154487, 2.265421,   0.0}, 0.8, 0.0078},
}};
// clang-format on

namespace {

constexpr int B = Flow::B;

void CopyCell(Flow& flow, int to, int from, double sign) {
    const std::size_t t = flow.At(to);
    const std::size_t f = flow.At(from);
    flow.Rho[t] = flow.Rho[f];
    flow.P[t] = flow.P[f];
    flow.Ux[t] = sign * flow.Ux[f];
    flow.Uy[t] = flow.Uy[f];
    flow.Smoke[t] = flow.Smoke[f];
}

void SetCell(Flow& flow, int cell, const GasState& state) {
    const std::size_t i = flow.At(cell);
    flow.Rho[i] = state.Rho;
    flow.P[i] = state.P;
    flow.Ux[i] = state.Ux;
    flow.Uy[i] = state.Uy;
}

}  // namespace

void FillNeighbours(Flow& flow, Boundary boundary) {
    const int n = flow.N;
    const auto edge = [&](int i) -> double& { return flow.Edges[flow.At(i)]; };
    const double length = edge(n + 1) - edge(1);
    for (int k = 1; k <= B; ++k) {
        switch (boundary) {
            case Boundary::Periodic:
                CopyCell(flow, 1 - k, n + 1 - k, 1.0);
                CopyCell(flow, n + k, k, 1.0);
                edge(1 - k) = edge(n + 1 - k) - length;
                edge(n + 1 + k) = length + edge(1 + k);
                break;
            case Boundary::Reflecting:
                CopyCell(flow, 1 - k, k, -1.0);
                CopyCell(flow, n + k, n + 1 - k, -1.0);
                edge(1 - k) = edge(1) + edge(1) - edge(1 + k);
                edge(n + 1 + k) = edge(n + 1) + edge(n + 1) - edge(n + 1 - k);
                break;
            case Boundary::Continuation:
                CopyCell(flow, 1 - k, 1, 1.0);
                CopyCell(flow, n + k, n, 1.0);
                edge(1 - k) = edge(2 - k) - edge(2) + edge(1);
                edge(n + 1 + k) = edge(n + k) + edge(n + 1) - edge(n);
                break;
        }
    }
}

Flow UniformGrid(int cells) {
    Flow flow(cells);
    const double width = 1.0 / cells;
    flow.Edges[flow.At(1)] = 0.0;
    for (int i = 2; i <= cells; ++i) flow.Edges[flow.At(i)] = flow.Edges[flow.At(i - 1)] + width;
    flow.Edges[flow.At(cells + 1)] = 1.0;
    return flow;
}

Flow ShockTubeStart(const ShockTube& tube, int cells) {
    Flow flow = UniformGrid(cells);
    const int lastLeft = static_cast<int>(std::nearbyint(tube.Jump * cells - 1e-5));
    for (int i = 1; i <= cells; ++i) SetCell(flow, i, i <= lastLeft ? tube.Left : tube.Right);
    return flow;
}

Flow ShockTubeExact(const ShockTube& tube, int cells, double gamma) {
    const ExactRiemann solution(tube.Left, tube.Right, gamma);
    Flow flow = UniformGrid(cells);
    std::vector<double> breaks;
    for (const double speed : solution.Breaks()) breaks.push_back(tube.Jump + speed * tube.TStop);
    const auto at = [&](double x) { return solution.At((x - tube.Jump) / tube.TStop); };
    for (int i = 1; i <= cells; ++i) {
        const CellAverage cell =
            AverageOver(at, breaks, gamma, flow.Edges[flow.At(i)], flow.Edges[flow.At(i + 1)]);
        SetCell(flow, i, {cell.Rho, cell.P, cell.Ux, cell.Uy});
    }
    return flow;
}

Flow BlastStart(int cells) {
    Flow flow = UniformGrid(cells);
    for (int i = 1; i <= cells; ++i) {
        const double x = (i - 0.5) / cells;
        SetCell(flow, i, {1.0, x < 0.1 ? 1000.0 : x < 0.9 ? 0.01 : 100.0, 0.0, 0.0});
    }
    return flow;
}

Flow BlastReference(const std::string& file, int cells) {
    std::ifstream in(file);
    std::string line;
    if (!std::getline(in, line)) throw std::runtime_error("cannot read " + file);
    Flow flow = UniformGrid(cells);
    const int share = 400 / cells;
    for (int k = 0; k < 400 && std::getline(in, line); ++k) {
        std::istringstream columns(line);
        double x = 0.0;
        GasState state = {};
        char comma = 0;
        columns >> x >> comma >> state.Rho >> comma >> state.P >> comma >> state.Ux;
        const std::size_t i = flow.At(k / share + 1);
        flow.Rho[i] += state.Rho / share;
        flow.P[i] += state.P / share;
        flow.Ux[i] += state.Ux / share;
    }
    return flow;
}

namespace {

// The simple wave at position x: R+ is constant along dx/dt = u + c, R- and entropy everywhere.
GasState SimpleWaveAt(double x, double amplitude, double meanVelocity, double gamma, double time) {
    constexpr double twoPi = 2.0 * std::numbers::pi;
    double origin = x;
    double speed = 0.0;
    for (int i = 0; i < 60; ++i) {
        speed = 0.5 * amplitude * std::sin(twoPi * origin);
        const double c = 1.0 + 0.5 * (gamma - 1.0) * speed;
        origin = x - (meanVelocity + speed + c) * time;
    }
    const double c = 1.0 + 0.5 * (gamma - 1.0) * speed;
    return {std::pow(c, 2.0 / (gamma - 1.0)), std::pow(c, 2.0 * gamma / (gamma - 1.0)) / gamma,
            meanVelocity + speed, 0.0};
}

}  // namespace

Flow SoundWaveExact(int cells, double amplitude, double meanVelocity, double gamma, double time) {
    constexpr std::array<double, 4> nodes = {-0.8611363115940526, -0.3399810435848563,
                                             0.3399810435848563, 0.8611363115940526};
    constexpr std::array<double, 4> weights = {0.3478548451374538, 0.6521451548625461,
                                               0.6521451548625461, 0.3478548451374538};
    Flow flow = UniformGrid(cells);
    for (int i = 1; i <= cells; ++i) {
        double mass = 0.0;
        double momentum = 0.0;
        double energy = 0.0;
        for (std::size_t k = 0; k < nodes.size(); ++k) {
            const double x = (i - 0.5 + 0.5 * nodes[k]) / cells;
            const GasState s = SimpleWaveAt(x, amplitude, meanVelocity, gamma, time);
            mass += 0.5 * weights[k] * s.Rho;
            momentum += 0.5 * weights[k] * s.Rho * s.Ux;
            energy += 0.5 * weights[k] * (s.P / (gamma - 1.0) + 0.5 * s.Rho * s.Ux * s.Ux);
        }
        // A scheme holds averages of what it conserves: the velocity is their quotient.
        const double velocity = momentum / mass;
        SetCell(flow, i,
                {mass, (gamma - 1.0) * (energy - 0.5 * momentum * velocity), velocity, 0.0});
    }
    return flow;
}
