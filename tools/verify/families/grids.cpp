#include "verify/families/grids.h"

#include <cmath>
#include <numbers>

#include "core/analysis/cell_averages.h"
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

std::vector<double> DensitiesOf(const ExactRiemann& solution, double gamma, double jump,
                                double time, const std::vector<double>& edges) {
    std::vector<double> breaks;
    for (const double speed : solution.Breaks()) breaks.push_back(jump + speed * time);
    const auto at = [&](double x) { return solution.At((x - jump) / time); };
    std::vector<double> densities;
    for (std::size_t k = 0; k + 1 < edges.size(); ++k)
        densities.push_back(AverageOver(at, breaks, gamma, edges[k], edges[k + 1]).Rho);
    return densities;
}

GasCells AveragesOf(std::vector<double> edges, double gamma,
                    const std::function<GasState(double x)>& flow) {
    GasCells cells;
    for (std::size_t k = 0; k + 1 < edges.size(); ++k) {
        // Split in the middle for the sake of narrow bumps.
        const CellAverage cell =
            AverageOver(flow, {0.5 * (edges[k] + edges[k + 1])}, gamma, edges[k], edges[k + 1]);
        cells.Rho.push_back(cell.Rho);
        cells.P.push_back(cell.P);
        cells.Ux.push_back(cell.Ux);
    }
    cells.Edges = std::move(edges);
    return cells;
}
