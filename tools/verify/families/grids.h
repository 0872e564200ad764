// Grids from 0 to 1, and fields on them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/analysis/exact_riemann.h"
#include "verify/families/draw.h"
#include "verify/families/family_problem.h"

std::vector<double> EvenEdges(int cells);

// Cells of unequal width: smoothly stretched, growing from one to the next, in blocks, or at
// random.
struct UnevenGrid {
    std::vector<double> Edges;
    std::string Kind;
};
UnevenGrid DrawUnevenGrid(Draw& draw, int cells);

// One state left of edge number `edge`, another right of it.
GasCells TwoStates(std::vector<double> edges, int edge, const GasState& left,
                   const GasState& right);

// Averages of the density of the solution of a jump.
std::vector<double> DensitiesOf(const ExactRiemann& solution, double gamma, double jump,
                                double time, const std::vector<double>& edges);

// Averages of mass, momentum and energy of a smooth flow, as density, pressure and velocity.
GasCells AveragesOf(std::vector<double> edges, double gamma,
                    const std::function<GasState(double x)>& flow);
