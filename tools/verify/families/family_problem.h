// One problem of a family: a gas, its grid, how long it runs, and the density it should end with.
#pragma once

#include <functional>
#include <string>
#include <vector>

// The last two name the left end first.
enum class Ends { Open, Walls, Periodic, OpenAndWall, WallAndOpen };

// Averages over N cells; cell k lies between Edges[k] and Edges[k + 1].
struct GasCells {
    int N() const { return static_cast<int>(Rho.size()); }

    std::vector<double> Edges;
    std::vector<double> Rho;
    std::vector<double> P;
    std::vector<double> Ux;
};

struct FamilyProblem {
    std::string Numbers;  // what was drawn, for the reader of a table
    double Gamma = 1.4;
    double Courant = 0.85;   // target
    double FirstStep = 0.1;  // the first step as a share of the target
    Ends End = Ends::Open;
    GasCells Start;
    double Time = 0.0;
    // The exact averages of the density at that time. Empty where there is no exact solution: the
    // reference is then computed on a finer grid, from Finer.
    std::vector<double> Density;
    std::function<GasCells(int cells)> Finer;
};
