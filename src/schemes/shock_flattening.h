// How steep parabolas may be inside a shock.
#pragma once

#include "schemes/characteristic_tracing.h"
#include "schemes/strip.h"

// A slow shock is flattened from SteepShare on and fully from SteepShare + 1/SteepGain on: the part
// of the pressure rise over four cells that falls on the middle two. J. Comput. Phys. 54, 174
// (1984), eq. (A.2), has 0.75 and 0.85; found by trial on the slow shocks of Tests 4 and 6, 0.82 to
// 0.86 work.
template <typename Float>
constexpr Float SteepShare = Float(0.84);
template <typename Float>
constexpr Float SteepGain = Float(10);
template <typename Float>
inline const Float SteepOffset = SteepGain<Float>* SteepShare<Float>;
// A shock counts as slow below this share of the fastest signal beside it, fully so 1/SlowGain
// below it. A shock that runs into gas at rest is faster, whatever its strength. Found by trial;
// 0.75 to 0.8.
template <typename Float>
constexpr Float FastShare = Float(0.78);
template <typename Float>
constexpr Float SlowGain = Float(6);
// The gas behind a shock is taken from the cell next to it instead of the one after that if its
// pressure is higher by this factor. Found by trial on colliding streams; at 1 the noise of one
// shock counts (Test 4 at 100 cells a fifth worse), 1.02 cures carried collisions all the same.
template <typename Float>
constexpr Float HigherBehind = Float(1.02);
// `difcon` at which half of the steepness is taken; its default of 0.3 then takes two thirds.
template <typename Float>
constexpr Float HalfDifcon = Float(0.15);

// Whether cell i lies in a compression that is steep enough to be a shock.
//   shockJump   relative rise of pressure over two cells from which it is
template <typename Float>
[[gnu::always_inline]] inline bool IsInShock(const Float* p, const Float* u, Float shockJump,
                                             int i) {
    const Float rise = Abs(p[i + 1] - p[i - 1]);
    const Float excess = rise - shockJump * Min(p[i + 1], p[i - 1]);
    return Min(excess, u[i - 1] - u[i + 1]) > Float(0);
}

// How slowly a shock in cell i crosses the grid, 0 (fast) to 1 (slow). Slow shocks leave noise
// behind, because their profile changes from step to step: J. Comput. Phys. 90, 141 (1990).
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
    const Float pAhead = Select(isRightGoing, p[i + 2], p[i - 2]);
    const Float uAhead = Select(isRightGoing, u[i + 2], -u[i - 2]);
    // The gas behind is the nearer of two cells if its pressure is higher: further on there may be
    // another stream.
    const Float pFar = Select(isRightGoing, p[i - 2], p[i + 2]);
    const Float pNear = Select(isRightGoing, p[i - 1], p[i + 1]);
    const Float uFar = Select(isRightGoing, u[i - 2], -u[i + 2]);
    const Float uNear = Select(isRightGoing, u[i - 1], -u[i + 1]);
    const bool isNear = pNear > HigherBehind<Float> * pFar;
    const Float rise = Select(isNear, pNear, pFar) - pAhead;
    const Float perSpeed = Divisor(rhoAhead * (Select(isNear, uNear, uFar) - uAhead));
    const Float fastest = Max(signal[i], Max(signal[i - 1], signal[i + 1]));
    const Float speed = Abs(uAhead * perSpeed + rise) / (perSpeed * fastest);
    return Clamp01(SlowGain<Float> * (FastShare<Float> - speed));
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
    // 1/2 for a straight line, 1 for a jump.
    const Float share = Min(near / Divisor(far), Opaque(Float(1)));
    const Float flat = Clamp01(SteepGain<Float> * share - SteepOffset<Float>);
    const Float loss = strength * (flat * Slowness(strip, signal, i));
    return Select(IsInShock(p, strip.Ux, shockJump, i), loss, Float(0));
}

// The strength of the flattening from the constant `difcon`: 0 at 0 and below, two thirds at 0.3, 1
// above.
template <typename Float>
Float FlatteningStrength(Float difcon) {
    const Float d = Clamp(Float(0), difcon, Float(1e6));
    return d / (d + HalfDifcon<Float>);
}

// Flattens the parabolas of cells first..last, a whole number of chunks, inside slow shocks.
//   signal      speed of the fastest signal in cells first-2..last+2
//   strength    0 to 1
//   loss        scratch: cells first-1..last+1
// Reads cells first-3..last+3.
template <typename Float>
[[gnu::flatten]] void FlattenShocks(StripState<Float> strip, const Float* signal, Float shockJump,
                                    Float strength, Row<Float>& loss,
                                    CharacteristicParabolas<Float>& parabolas, int first, int last,
                                    WorkDone& work) {
    const Float* p = strip.P;
    const Float* u = strip.Ux;
    const auto inShock = [=](int i) { return IsInShock(p, u, shockJump, i); };
    const auto findLoss = [&](int i) {
        loss[i] = ShockLoss(strip, signal, shockJump, strength, i);
    };
    const auto noLoss = [&](int i) { loss[i] = Float(0); };
    findLoss(first - 1);
    findLoss(last + 1);
    const int shocked = RunWhereNeeded<Float>(first, last, inShock, findLoss, noLoss);
    work.Add(Work::Shock, shocked);
    if (shocked == 0 && !(Max(loss[first - 1], loss[last + 1]) > Float(0))) return;

    const auto loses = [&](int i) {
        return Max(loss[i], Max(loss[i - 1], loss[i + 1])) > Float(0);
    };
    const auto flatten = [&](int i) {
        const Float steepness = Float(1) - Max(loss[i], Max(loss[i - 1], loss[i + 1]));
        for (Parabolas<Float>* family : {&parabolas.Plus, &parabolas.Minus, &parabolas.Zero}) {
            family->FromLeft[i] = steepness * family->FromLeft[i];
            family->ToRight[i] = steepness * family->ToRight[i];
        }
    };
    work.Add(Work::Flattening, RunWhereNeeded<Float>(first, last, loses, flatten));
}
