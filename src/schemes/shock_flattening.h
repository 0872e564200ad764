// How steep parabolas may be inside a shock.
#pragma once

#include "schemes/characteristic_tracing.h"
#include "schemes/strip.h"

// Whether cell i lies in a compression that is steep enough to be a shock.
//   shockJump   relative rise of pressure over two cells from which it is
template <typename Float>
[[gnu::always_inline]] inline bool IsInShock(const Float* p, const Float* u, Float shockJump,
                                             int i) {
    const Float rise = Abs(p[i + 1] - p[i - 1]);
    const Float excess = rise - shockJump * Min(p[i + 1], p[i - 1]);
    return Min(excess, u[i - 1] - u[i + 1]) > Float(0);
}

// How slowly a shock in cell i crosses the grid: 1 if its speed is below about 0.6 of the fastest
// signal beside it, 0 above 0.78, as for every shock that runs into gas at rest. Slow shocks leave
// a noise behind, since their profile changes from step to step: J. Comput. Phys. 90, 141 (1990).
// The speed is that which the balance of momentum asks for in the gas ahead; a contact near by, in
// which pressure and velocity are even, does not change it. Reads cells i-2..i+2.
template <typename Float>
[[gnu::always_inline]] inline Float Slowness(const StripState<Float>& strip, const Float* signal,
                                             int i) {
    const Float* rho = strip.Rho;
    const Float* p = strip.P;
    const Float* u = strip.Ux;
    const bool isRightGoing = p[i + 1] < p[i - 1];  // through the gas
    const Float rhoAhead = Select(isRightGoing, rho[i + 2], rho[i - 2]);
    const Float uAhead = Select(isRightGoing, u[i + 2], -u[i - 2]);
    const Float rise = Abs(p[i + 2] - p[i - 2]);
    const Float perSpeed = Max(rhoAhead * (u[i - 2] - u[i + 2]), Opaque(Tiny<Float>));
    const Float fastest = Max(signal[i], Max(signal[i - 1], signal[i + 1]));
    const Float speed = Abs(uAhead * perSpeed + rise) / (perSpeed * fastest);
    return Clamp(Opaque(Float(0)), Float(6) * (Float(0.78) - speed), Opaque(Float(1)));
}

// How much of its steepness cell i loses by itself, 0 to strength: nothing where the rise is as
// wide as the grid can hold, all in a slow shock that falls on two cells. J. Comput. Phys. 54, 174
// (1984), appendix, eqs. (A.1) and (A.2), with other numbers. Reads cells i-2..i+2.
template <typename Float>
[[gnu::always_inline]] inline Float ShockLoss(const StripState<Float>& strip, const Float* signal,
                                              Float shockJump, Float strength, int i) {
    const Float* p = strip.P;
    const Float near = Abs(p[i + 1] - p[i - 1]);
    const Float far = Abs(p[i + 2] - p[i - 2]);
    // The share of the jump that falls on two cells: 1/2 for a straight line, 1 for a jump.
    const Float share = Min(near / Max(far, Opaque(Tiny<Float>)), Opaque(Float(1)));
    const Float flat = Clamp(Opaque(Float(0)), Float(10) * share - Float(8.4), Opaque(Float(1)));
    const Float loss = strength * (flat * Slowness(strip, signal, i));
    return Select(IsInShock(p, strip.Ux, shockJump, i), loss, Float(0));
}

// The strength of the flattening from the constant `difcon`: 0 at 0 and below, two thirds at 0.3, 1
// above.
template <typename Float>
Float FlatteningStrength(Float difcon) {
    const Float d = Clamp(Float(0), difcon, Float(1e6));
    return d / (d + Float(0.15));
}

// How many cells lie in chunks that hold a shock, and in those where one has been flattened.
struct ShockedCells {
    int InShock = 0;
    int Flattened = 0;
};

// Draws the parabolas of cells first..last, a whole number of chunks, toward the average inside
// slow shocks.
//   signal      speed of the fastest signal in cells first-2..last+2
//   strength    0 to 1
//   loss        scratch: cells first-1..last+1
// Reads cells first-3..last+3.
template <typename Float>
ShockedCells FlattenShocks(StripState<Float> strip, const Float* signal, Float shockJump,
                           Float strength, Row<Float>& loss,
                           CharacteristicParabolas<Float>& parabolas, int first, int last) {
    const Float* p = strip.P;
    const Float* u = strip.Ux;
    loss[first - 1] = ShockLoss(strip, signal, shockJump, strength, first - 1);
    loss[last + 1] = ShockLoss(strip, signal, shockJump, strength, last + 1);
    ShockedCells shocked;
    for (int chunk = first; chunk <= last; chunk += CellsAtOnce) {
        const int end = chunk + CellsAtOnce;
        if (AnyInChunk<Float>(chunk, [=](int i) { return IsInShock(p, u, shockJump, i); })) {
            shocked.InShock += CellsAtOnce;
#pragma omp simd
            for (int i = chunk; i < end; ++i)
                loss[i] = ShockLoss(strip, signal, shockJump, strength, i);
        } else {
#pragma omp simd
            for (int i = chunk; i < end; ++i) loss[i] = Float(0);
        }
    }
    const bool any = shocked.InShock > 0 || Max(loss[first - 1], loss[last + 1]) > Float(0);
    for (int chunk = first; any && chunk <= last; chunk += CellsAtOnce) {
        const auto most = [&](int i) { return Max(loss[i], Max(loss[i - 1], loss[i + 1])); };
        if (!AnyInChunk<Float>(chunk, [&](int i) { return most(i) > Float(0); })) continue;
        shocked.Flattened += CellsAtOnce;
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
