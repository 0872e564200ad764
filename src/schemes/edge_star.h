// The state between the two waves that go out from an edge.
#pragma once

#include "schemes/arithmetic.h"

// The pressure between two waves is at least this share of the lower one beside them. It keeps
// Newton's method away from 0; found by trial, far below what any resolved rarefaction leaves.
template <typename Float>
constexpr Float LeastStar = Float(1e-6);

// The gas on one side of an edge. Z is its density times its sound speed.
template <typename Float>
struct EdgeSide {
    Float Rho, P, Ux, Z, ZSquare;
};

// Pressure and velocity there, and the pressure as of sound waves. That is below 0 where the two
// sides part faster than waves can follow.
template <typename Float>
struct EdgeStar {
    Float P, Ux, AcousticP;
};

// By sound waves. Written so, equal sides give their own values to the bit.
template <typename Float>
[[gnu::always_inline]] inline EdgeStar<Float> MeetAsSound(Float zL, Float pL, Float uL, Float zR,
                                                          Float pR, Float uR) {
    const Float half = Float(0.5);
    const Float perSum = Float(1) / (zL + zR);
    const Float fall = pL - pR;
    const Float closing = uL - uR;
    const Float skew = half * (zR - zL);
    const Float p = half * (pL + pR) + (skew * fall + zL * zR * closing) * perSum;
    return {p, half * (uL + uR) + (fall - skew * closing) * perSum, p};
}

// Square of the mass flux through a wave that takes the gas from pressure p to `star`, over its
// density: exact for a shock, and close for a rarefaction that is not too strong. J. Comput. Phys.
// 54, 174 (1984), eq. (2.5), for a gamma law; halfPlus is (gamma + 1) / 2, halfMinus (gamma - 1)
// / 2.
template <typename Float>
[[gnu::always_inline]] inline Float WaveStiffness(Float halfPlus, Float halfMinus, Float p,
                                                  Float star) {
    return halfPlus * star + halfMinus * p;
}

// By two waves of the shock's kind. The first guess is exact for two equal gases that collide and
// for weak waves; one step of Newton's method follows. The last two numbers are those of
// WaveStiffness.
template <typename Float>
[[gnu::always_inline]] inline EdgeStar<Float> MeetAsShocks(const EdgeSide<Float>& left,
                                                           const EdgeSide<Float>& right,
                                                           Float halfPlus, Float halfMinus) {
    const Float half = Float(0.5);
    const Float one = Float(1);

    // First guess.
    const Float sumZ = left.Z + right.Z;
    const Float sumRho = left.Rho + right.Rho;
    const Float perSums = one / (sumZ * sumRho);
    const Float perSumZ = perSums * sumRho;
    const Float closing = left.Ux - right.Ux;
    const Float base = (right.Z * left.P + left.Z * right.P) * perSumZ;
    const Float linear = (left.Z * right.Z * perSumZ) * closing;
    const Float acoustic = base + linear;
    const Float ram =
        Float(0.25) * halfPlus * (left.Rho * right.Rho * (perSums * sumZ)) * (closing * closing);
    const Float collision = base + (ram + Sqrt(ram * ram + linear * linear));
    const Float lowest = LeastStar<Float> * Min(left.P, right.P);
    const Float guess = Max(Select(closing > Float(0), collision, acoustic), lowest);

    // One step of Newton's method: the velocities behind the two waves come together.
    const Float guessWL = Sqrt(left.Rho * WaveStiffness(halfPlus, halfMinus, left.P, guess));
    const Float guessWR = Sqrt(right.Rho * WaveStiffness(halfPlus, halfMinus, right.P, guess));
    const Float perBoth = one / (guessWL * guessWR);
    const Float perL = perBoth * guessWR;
    const Float perR = perBoth * guessWL;
    const Float slopeL = half * perL * (one + left.ZSquare * (perL * perL));
    const Float slopeR = half * perR * (one + right.ZSquare * (perR * perR));
    const Float behindL = left.Ux - (guess - left.P) * perL;
    const Float behindR = right.Ux + (guess - right.P) * perR;
    const Float perSlopes = one / (slopeL + slopeR);
    return {Max(guess + (behindL - behindR) * perSlopes, lowest),
            (slopeL * behindR + slopeR * behindL) * perSlopes, acoustic};
}
