// Where a scheme has put the shocks and contacts of a known flow, and over how many cells.
#pragma once

#include <vector>

#include "core/analysis/exact_riemann.h"

struct ExperimentState;
struct SeparateJumps;

struct WavePlace {
    WaveKind Kind;        // a shock or a contact
    double Speed;         // exact
    double Exact;         // where it belongs
    double Found;         // where the density passes the middle of its jump
    double WidthInCells;  // between 5 and 95 per cent of the jump
};

// Of the present fields, at Time, from left to right. Looked for up to halfway to the neighbouring
// waves. A wave whose jump of density the state does not pass there, or that has none, is left out.
std::vector<WavePlace> FindWavePlaces(const ExperimentState& state, const SeparateJumps& solution);
