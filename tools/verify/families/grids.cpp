#include "verify/families/grids.h"

#include <array>

std::vector<double> EvenEdges(int cells) {
    std::vector<double> edges(static_cast<std::size_t>(cells) + 1);
    for (int k = 0; k <= cells; ++k) edges[k] = static_cast<double>(k) / cells;
    return edges;
}

GasCells TwoStates(std::vector<double> edges, int edge, const GasState& left,
                   const GasState& right) {
    GasCells cells;
    for (int k = 0; k + 1 < static_cast<int>(edges.size()); ++k) {
        const GasState& s = k < edge ? left : right;
        cells.Rho.push_back(s.Rho);
        cells.P.push_back(s.P);
        cells.Ux.push_back(s.Ux);
    }
    cells.Edges = std::move(edges);
    return cells;
}

GasCells AveragesOf(std::vector<double> edges, double gamma,
                    const std::function<GasState(double x)>& flow) {
    // Gauss-Legendre with five points in either half of a cell.
    constexpr std::array<double, 5> nodes = {-0.9061798459386640, -0.5384693101056831, 0.0,
                                             0.5384693101056831, 0.9061798459386640};
    constexpr std::array<double, 5> weights = {0.2369268850561891, 0.4786286704993665,
                                               0.5688888888888889, 0.4786286704993665,
                                               0.2369268850561891};
    GasCells cells;
    for (std::size_t k = 0; k + 1 < edges.size(); ++k) {
        const double quarter = 0.25 * (edges[k + 1] - edges[k]);
        double mass = 0.0;
        double momentum = 0.0;
        double energy = 0.0;
        for (int half = 0; half < 2; ++half) {
            const double centre = edges[k] + (2 * half + 1) * quarter;
            for (std::size_t n = 0; n < nodes.size(); ++n) {
                const GasState s = flow(centre + quarter * nodes[n]);
                mass += 0.25 * weights[n] * s.Rho;
                momentum += 0.25 * weights[n] * s.Rho * s.Ux;
                energy += 0.25 * weights[n] * (s.P / (gamma - 1.0) + 0.5 * s.Rho * s.Ux * s.Ux);
            }
        }
        const double u = momentum / mass;
        cells.Rho.push_back(mass);
        cells.P.push_back((gamma - 1.0) * (energy - 0.5 * momentum * u));
        cells.Ux.push_back(u);
    }
    cells.Edges = std::move(edges);
    return cells;
}
