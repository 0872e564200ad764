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

struct Sums {
    double Mass = 0.0, Momentum = 0.0, Transverse = 0.0, Energy = 0.0;

    void Take(const GasState& s, double gamma, double share) {
        Mass += share * s.Rho;
        Momentum += share * s.Rho * s.Ux;
        Transverse += share * s.Rho * s.Uy;
        Energy += share * (s.P / (gamma - 1.0) + 0.5 * s.Rho * s.Ux * s.Ux);
    }
};

}  // namespace

CellAverage AverageOver(const std::function<GasState(double)>& at,
                        const std::vector<double>& breaks, double gamma, double from, double to) {
    Sums sums;
    auto next = std::upper_bound(breaks.begin(), breaks.end(), from);
    for (double begin = from; begin < to;) {
        const double end = next != breaks.end() && *next < to ? *next++ : to;
        const double half = 0.5 * (end - begin);
        const double centre = 0.5 * (end + begin);
        for (std::size_t k = 0; k < Nodes.size(); ++k) {
            sums.Take(at(centre + half * Nodes[k]), gamma, Weights[k] * half / (to - from));
        }
        begin = end;
    }
    if (!(sums.Mass > 0.0)) return {};
    CellAverage average;
    average.Rho = sums.Mass;
    average.Ux = sums.Momentum / sums.Mass;
    average.Uy = sums.Transverse / sums.Mass;
    average.P = (gamma - 1.0) * (sums.Energy - 0.5 * sums.Momentum * average.Ux);
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
