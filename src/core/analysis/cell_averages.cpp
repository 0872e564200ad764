#include "core/analysis/cell_averages.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr std::array<double, 5> Nodes = {-0.9061798459386640, -0.5384693101056831, 0.0,
                                         0.5384693101056831, 0.9061798459386640};
constexpr std::array<double, 5> Weights = {0.2369268850561891, 0.4786286704993665,
                                           0.5688888888888889, 0.4786286704993665,
                                           0.2369268850561891};

// A part is halved until both halves agree with the whole to this share of it, at most so often.
constexpr double Tolerance = 1e-13;
constexpr int MostHalvings = 12;

struct Sums {
    double Mass = 0.0, Momentum = 0.0, Transverse = 0.0, Energy = 0.0;

    void Take(const GasState& s, double gamma, double share) {
        Mass += share * s.Rho;
        Momentum += share * s.Rho * s.Ux;
        Transverse += share * s.Rho * s.Uy;
        Energy += share * (s.P / (gamma - 1.0) + 0.5 * s.Rho * s.Ux * s.Ux);
    }
    void Add(const Sums& other) {
        Mass += other.Mass;
        Momentum += other.Momentum;
        Transverse += other.Transverse;
        Energy += other.Energy;
    }
};

bool IsSame(const GasState& a, const GasState& b) {
    return a.Rho == b.Rho && a.P == b.P && a.Ux == b.Ux && a.Uy == b.Uy;
}

bool Agree(const Sums& a, const Sums& b) {
    // A momentum near 0 is measured by what the same energy could carry.
    const double momentum = std::sqrt(std::abs(a.Mass * a.Energy));
    return std::abs(a.Mass - b.Mass) <= Tolerance * std::abs(a.Mass) &&
           std::abs(a.Energy - b.Energy) <= Tolerance * std::abs(a.Energy) &&
           std::abs(a.Momentum - b.Momentum) <= Tolerance * momentum;
}

struct Part {
    Sums Integral;
    bool IsUniform;
};

Part Quadrature(const std::function<GasState(double)>& at, double gamma, double from, double to) {
    const double half = 0.5 * (to - from);
    const double centre = 0.5 * (to + from);
    const GasState first = at(centre + half * Nodes[0]);
    Part part{{}, true};
    for (std::size_t k = 0; k < Nodes.size(); ++k) {
        const GasState here = at(centre + half * Nodes[k]);
        part.IsUniform = part.IsUniform && IsSame(here, first);
        part.Integral.Take(here, gamma, Weights[k] * half);
    }
    return part;
}

Sums Integrate(const std::function<GasState(double)>& at, double gamma, double from, double to,
               int halvings) {
    const Part whole = Quadrature(at, gamma, from, to);
    if (whole.IsUniform || halvings == 0) return whole.Integral;
    const double middle = 0.5 * (from + to);
    Sums halves = Quadrature(at, gamma, from, middle).Integral;
    halves.Add(Quadrature(at, gamma, middle, to).Integral);
    if (Agree(whole.Integral, halves)) return halves;
    Sums finer = Integrate(at, gamma, from, middle, halvings - 1);
    finer.Add(Integrate(at, gamma, middle, to, halvings - 1));
    return finer;
}

}  // namespace

CellAverage AverageOver(const std::function<GasState(double)>& at,
                        const std::vector<double>& breaks, double gamma, double from, double to) {
    Sums sums;
    auto next = std::upper_bound(breaks.begin(), breaks.end(), from);
    for (double begin = from; begin < to;) {
        const double end = next != breaks.end() && *next < to ? *next++ : to;
        sums.Add(Integrate(at, gamma, begin, end, MostHalvings));
        begin = end;
    }
    if (!(sums.Mass > 0.0)) return {};
    CellAverage average;
    average.Rho = sums.Mass / (to - from);
    average.Ux = sums.Momentum / sums.Mass;
    average.Uy = sums.Transverse / sums.Mass;
    average.P = (gamma - 1.0) * (sums.Energy - 0.5 * sums.Momentum * average.Ux) / (to - from);
    average.Entropy = average.P / std::pow(average.Rho, gamma);
    return average;
}

ExactFields AverageOverCells(const std::function<GasState(double)>& at,
                             const std::vector<double>& breaks, double gamma,
                             const OffsetArray<double>& x, int cells) {
    ExactFields fields;
    for (OffsetArray<double>* field :
         {&fields.Rho, &fields.P, &fields.Ux, &fields.Uy, &fields.Entropy}) {
        *field = OffsetArray<double>(1, cells);
    }
    for (int i = 1; i <= cells; ++i) {
        const CellAverage cell = AverageOver(at, breaks, gamma, x[i], x[i + 1]);
        fields.Rho[i] = cell.Rho;
        fields.P[i] = cell.P;
        fields.Ux[i] = cell.Ux;
        fields.Uy[i] = cell.Uy;
        fields.Entropy[i] = cell.Entropy;
    }
    return fields;
}
