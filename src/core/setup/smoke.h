// The stripes of smoke that show the motion of the gas.
#pragma once

struct ExperimentState;

// Lays 16 or so stripes of equal width at equal spacing over cells 1..N: FSmoke is 1 in a stripe
// and 0 elsewhere. Each stripe is centred in its period as far as whole cells allow, the odd cell
// on the right. A grid below 4 cells is left alone.
void InitSmokePattern(ExperimentState& state);
