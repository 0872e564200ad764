// Averages of exact solutions over cells.
#pragma once

#include <functional>
#include <vector>

#include "core/analysis/exact_riemann.h"
#include "core/model/offset_array.h"

// Averages over one cell. P and Ux are those that a scheme can hold: formed from the averages of
// mass, momentum along the grid and energy, which the scheme keeps.
struct CellAverage {
    double Rho = 0.0;
    double P = 0.0;
    double Ux = 0.0;
    double Uy = 0.0;
    double Entropy = 0.0;  // P/Rho^gamma of the averages
};

// Of `at`, a solution at one time, over [from, to]. It is smooth between the rising places
// `breaks`, at which the integral is split; five-point Gauss-Legendre quadrature in each part,
// which is halved until the result stands to about 1e-13. Empty space gives zeros.
CellAverage AverageOver(const std::function<GasState(double)>& at,
                        const std::vector<double>& breaks, double gamma, double from, double to);

// The same over cells 1..N, whose edges are X[1]..X[N+1].
struct ExactFields {
    OffsetArray<double> Rho, P, Ux, Uy, Entropy;  // cells 1..N
};
ExactFields AverageOverCells(const std::function<GasState(double)>& at,
                             const std::vector<double>& breaks, double gamma,
                             const OffsetArray<double>& x, int cells);
