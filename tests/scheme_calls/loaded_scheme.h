// The four scheme libraries behind one call: a step of a whole grid, cut into strips of any width,
// without what the program does before and after it.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/run/scheme_library.h"
#include "verify/scheme_kind.h"

struct ExperimentState;

// A flow on a grid of N cells with B neighbour cells on either side. Element i of an array is cell
// i - B + 1, so that real cell 1 is element B; Edges has one element more.
struct Flow {
    static constexpr int B = 6;

    explicit Flow(int cells);
    std::size_t At(int cell) const { return static_cast<std::size_t>(cell + B - 1); }

    int N;
    std::vector<double> Edges;
    std::vector<double> Rho;
    std::vector<double> P;
    std::vector<double> Ux;
    std::vector<double> Uy;
    std::vector<double> Smoke;
};

// A flow on cells of equal width from 0 to 1, with all fields 0.
Flow UniformGrid(int cells);

// Two uniform states, density, pressure and velocities each, with a jump in the middle.
using FlowState = std::array<double, 4>;
Flow TwoStates(const FlowState& left, const FlowState& right, int cells);

// The present fields of an experiment, ghost cells included.
Flow FlowOf(const ExperimentState& state);

// Fills the neighbour cells by one of core's boundary types on both ends.
void FillNeighbours(Flow& flow, int boundary);

// What a scheme is given besides the flow; the values at start are the program's defaults.
struct SchemeConstants {
    double Gamma = 1.4;
    double RhoFloor = 1e-8;
    double AuxFloor = 1e-8;
    double PFloor = 1e-8;
    double VFloor = 1e-8;
    double difcon = 0.3;
    double shkjmp = 0.2;
    double wavhaf = 1.0;
};

// What one attempt at a step gives: the Courant number and the eight operation counts.
struct StepReport {
    double Courant = 0.0;
    std::array<int, 8> Ops = {};
};

class LoadedScheme {
public:
    // Loaded as the program does it; a folder takes the place of the search path. Throws
    // std::runtime_error if it cannot be.
    explicit LoadedScheme(SchemeKind kind, const std::string& folder = "");

    SchemeKind Kind() const { return kind_; }
    const SchemeLibrary& Library() const { return library_; }
    void* Entry() const;

    // The widest strip that the program gives this scheme.
    int WidestStrip() const;

    // Advances cells 1 to N of the flow, whose neighbour zones must be filled, into next. Strips
    // are at most stripWidth wide (0: the program's own width).
    StepReport Advance(const Flow& flow, const SchemeConstants& constants, double timeStep,
                       Flow& next, int stripWidth = 0) const;

private:
    SchemeKind kind_;
    SchemeLibrary library_;
};
