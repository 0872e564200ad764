#include "verify/families/grids.h"

#include <array>
#include <cmath>
#include <numbers>

#include "verify/families/text.h"

std::vector<double> EvenEdges(int cells) {
    std::vector<double> edges(static_cast<std::size_t>(cells) + 1);
    for (int k = 0; k <= cells; ++k) edges[k] = static_cast<double>(k) / cells;
    return edges;
}

UnevenGrid DrawUnevenGrid(Draw& draw, int cells) {
    std::vector<double> widths(static_cast<std::size_t>(cells), 1.0);
    std::string kind;
    switch (draw.Whole(0, 3)) {
        case 0: {
            const double depth = draw.Uniform(0.2, 0.8);
            const double phase = draw.Uniform(0.0, 1.0);
            for (int k = 0; k < cells; ++k)
                widths[k] += depth * std::sin(2.0 * std::numbers::pi * ((k + 0.5) / cells + phase));
            kind = Text("stretched by a sine of %.2g", depth);
            break;
        }
        case 1: {
            const double ratio = std::pow(draw.Logarithmic(3.0, 30.0), draw.Sign() / cells);
            for (int k = 1; k < cells; ++k) widths[k] = widths[k - 1] * ratio;
            kind = Text("each cell %.4g of the one before", ratio);
            break;
        }
        case 2: {
            const int block = draw.Whole(5, 25);
            const double wider = draw.Uniform(1.5, 4.0);
            for (int k = 0; k < cells; ++k) widths[k] = k / block % 2 == 0 ? 1.0 : wider;
            kind = Text("blocks of %d cells, each other %.3g times as wide", block, wider);
            break;
        }
        default: {
            const double widest = draw.Uniform(1.3, 3.0);
            for (double& width : widths) width = draw.Uniform(1.0, widest);
            kind = Text("random widths, 1 to %.3g", widest);
        }
    }
    std::vector<double> edges = {0.0};
    for (const double width : widths) edges.push_back(edges.back() + width);
    for (double& edge : edges) edge /= edges.back();
    edges.back() = 1.0;
    return {edges, kind};
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
