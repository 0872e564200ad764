// How steep parabolas may be inside a shock.
#pragma once

#include "schemes/arithmetic.h"
#include "schemes/strip.h"

// The factor on the parabolas of cells first..last: 1 away from shocks, down to 1 - strength inside
// one that is thinner than the grid can hold. J. Comput. Phys. 54, 174 (1984), appendix, eqs. (A.1)
// and (A.2).
//   shockJump   relative rise of pressure over two cells from which a compression is a shock
//   strength    0 to 1
//   raw         scratch: cells first-1..last+1
// Reads cells first-3..last+3.
template <typename Float>
void FlattenShocks(const StripState<Float>& strip, Float shockJump, Float strength, Row<Float>& raw,
                   Row<Float>& steepness, int first, int last) {
    const Float* p = strip.P;
    const Float* u = strip.Ux;
#pragma omp simd
    for (int i = first - 1; i <= last + 1; ++i) {
        const Float near = Size(p[i + 1] - p[i - 1]);
        const Float far = Size(p[i + 2] - p[i - 2]);
        const Float least = Least(p[i + 1], p[i - 1]);
        // The share of the jump that falls on two cells: 1/2 for a straight line, 1 for a jump.
        const Float share = Least(near / Most(far, Tiny<Float>()), Float(1));
        const Float flat = Between(Float(0), Float(10) * share - Float(7.5), Float(1));
        const bool shock = (near > shockJump * least) & (u[i - 1] > u[i + 1]);
        raw[i] = Choose(shock, strength * flat, Float(0));
    }
#pragma omp simd
    for (int i = first; i <= last; ++i)
        steepness[i] = Float(1) - Most(raw[i], Most(raw[i - 1], raw[i + 1]));
}
