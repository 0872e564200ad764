// Two interacting blast waves between walls.
#pragma once

struct ExperimentState;

// A gas of density 1 at rest: pressure 1000 in the left tenth, 100 in the right tenth, 0.01
// between. J. Comput. Phys. 54, 115 (1984). Builds arrays, control points, fields, axes, clock and
// stored state 0 for NGridCells cells, with the store for NPlotsTotal states.
void BuildBlastWaves(ExperimentState& state);
