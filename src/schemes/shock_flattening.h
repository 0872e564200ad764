// How steep parabolas may be inside a shock.
#pragma once

#include "schemes/characteristic_tracing.h"
#include "schemes/strip.h"

// Whether cell i lies in a compression that is steep enough to be a shock.
//   shockJump   relative rise of pressure over two cells from which it is
template <typename Float>
[[gnu::always_inline]] inline bool IsInShock(const Float* p, const Float* u, Float shockJump,
                                             int i) {
    const Float rise = Size(p[i + 1] - p[i - 1]);
    const Float excess = rise - shockJump * Least(p[i + 1], p[i - 1]);
    return Least(excess, u[i - 1] - u[i + 1]) > Float(0);
}

// How much of its steepness cell i loses by itself, 0 to strength: nothing where the rise is as
// wide as the grid can hold, all where it falls on two cells. J. Comput. Phys. 54, 174 (1984),
// appendix, eqs. (A.1) and (A.2). Reads cells i-2..i+2.
template <typename Float>
[[gnu::always_inline]] inline Float ShockLoss(const Float* p, const Float* u, Float shockJump,
                                              Float strength, int i) {
    const Float near = Size(p[i + 1] - p[i - 1]);
    const Float far = Size(p[i + 2] - p[i - 2]);
    // The share of the jump that falls on two cells: 1/2 for a straight line, 1 for a jump.
    const Float share = Least(near / Most(far, Tiny<Float>()), Float(1));
    const Float flat = Between(Float(0), Float(10) * share - Float(7.5), Float(1));
    return Choose(IsInShock(p, u, shockJump, i), strength * flat, Float(0));
}

// Draws the parabolas of cells first..last, a whole number of chunks, toward the average inside
// shocks. Returns how many cells lie in chunks that hold one.
//   strength    0 to 1
//   loss        scratch: cells first-1..last+1
// Reads cells first-3..last+3.
template <typename Float>
int FlattenShocks(StripState<Float> strip, Float shockJump, Float strength, Row<Float>& loss,
                  CharacteristicParabolas<Float>& parabolas, int first, int last) {
    const Float* p = strip.P;
    const Float* u = strip.Ux;
    loss[first - 1] = ShockLoss(p, u, shockJump, strength, first - 1);
    loss[last + 1] = ShockLoss(p, u, shockJump, strength, last + 1);
    int shocked = 0;
    for (int chunk = first; chunk <= last; chunk += CellsAtOnce) {
        const int end = chunk + CellsAtOnce;
        if (AnyInChunk<Float>(chunk, [=](int i) { return IsInShock(p, u, shockJump, i); })) {
            shocked += CellsAtOnce;
#pragma omp simd
            for (int i = chunk; i < end; ++i) loss[i] = ShockLoss(p, u, shockJump, strength, i);
        } else {
#pragma omp simd
            for (int i = chunk; i < end; ++i) loss[i] = Float(0);
        }
    }
    const bool any = shocked > 0 || Most(loss[first - 1], loss[last + 1]) > Float(0);
    for (int chunk = first; any && chunk <= last; chunk += CellsAtOnce) {
        const auto most = [&](int i) { return Most(loss[i], Most(loss[i - 1], loss[i + 1])); };
        if (!AnyInChunk<Float>(chunk, [&](int i) { return most(i) > Float(0); })) continue;
        for (Parabolas<Float>* family : {&parabolas.Plus, &parabolas.Minus, &parabolas.Zero}) {
#pragma omp simd
            for (int i = chunk; i < chunk + CellsAtOnce; ++i) {
                const Float steepness = Float(1) - most(i);
                family->FromLeft[i] = steepness * family->FromLeft[i];
                family->ToRight[i] = steepness * family->ToRight[i];
            }
        }
    }
    return shocked;
}
