// The problems that the schemes are measured on: the instrument's eight shock tubes, the two
// interacting blast waves and the sound waves.
#pragma once

#include <array>
#include <string>

#include "core/analysis/exact_riemann.h"
#include "verify/loaded_scheme.h"

struct ShockTube {
    const char* Name;
    GasState Left;
    GasState Right;
    double Jump;
    double TStop;
};
extern const std::array<ShockTube, 8> ShockTubes;

enum class Boundary { Periodic, Reflecting, Continuation };
void FillNeighbours(Flow& flow, Boundary boundary);

// A flow on cells of equal width from 0 to 1, at rest, with all fields 0.
Flow UniformGrid(int cells);

Flow ShockTubeStart(const ShockTube& tube, int cells);
Flow ShockTubeExact(const ShockTube& tube, int cells, double gamma);

// Density 1, pressure 1000, 0.01 and 100 between walls at 0, 0.1, 0.9 and 1; t = 0.038.
constexpr double BlastTStop = 0.038;
Flow BlastStart(int cells);
// The reference solution from a file of 400 cells with columns x, rho, p, u, averaged to the grid;
// cells must divide 400.
Flow BlastReference(const std::string& file, int cells);

// A right-going simple wave of the R+ invariant with one wavelength in the domain: cell averages
// at any time before it breaks, exact but for quadrature (1e-13).
Flow SoundWaveExact(int cells, double amplitude, double meanVelocity, double gamma, double time);
