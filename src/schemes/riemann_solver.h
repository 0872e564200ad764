// The fluxes through the edges from the states on their two sides.
#pragma once

#include "schemes/characteristic_tracing.h"
#include "schemes/strip.h"

// Fluxes as seen by an observer who moves with the gas at the edge, at velocity Ux: of mass, of
// momentum and of energy (internal, and of the motion along the grid). The last two follow for any
// other observer from these four. Written so, a fast cold flow loses no digits of its pressure.
template <typename Float>
struct EdgeFluxes {
    Row<Float> Mass;
    Row<Float> Momentum;
    Row<Float> Energy;
    Row<Float> Ux;
};

// Square of the mass flux through a wave that takes the gas from pressure p to `star`, over its
// density: exact for a shock, and close for a rarefaction that is not too strong. J. Comput. Phys.
// 54, 174 (1984), eq. (2.5), for a gamma law; halfPlus is (gamma + 1) / 2, halfMinus (gamma - 1)
// / 2.
template <typename Float>
[[gnu::always_inline]] inline Float WaveStiffness(Float halfPlus, Float halfMinus, Float p,
                                                  Float star) {
    return halfPlus * star + halfMinus * p;
}

// Solves the Riemann problem at edges first..last with two waves of the shock's kind and samples it
// at the edge; inside a rarefaction that straddles the edge the state is interpolated between its
// ends. The first guess is exact for two equal gases that collide and for weak waves; one step of
// Newton's method follows. Where the acoustic pressure is negative, the two sides part faster than
// such waves can follow: nine tenths of that pressure then act on the momentum, which drains the
// heat that the averages of so strong a rarefaction would hold too much.
template <typename Float>
void SolveRiemannProblems(const EdgeStates<Float>& states, Float gamma, EdgeFluxes<Float>& fluxes,
                          int first, int last) {
    const Float half = Float(0.5);
    const Float one = Float(1);
    const Float zero = Float(0);
    const Float halfPlus = half * (gamma + one);
    const Float halfMinus = half * (gamma - one);
    const Float perGammaLess = one / (gamma - one);
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float rhoL = states.RhoLeft[i];
        const Float rhoR = states.RhoRight[i];
        const Float pL = states.PLeft[i];
        const Float pR = states.PRight[i];
        const Float uL = states.UxLeft[i];
        const Float uR = states.UxRight[i];

        // First guess.
        const Float squareL = gamma * (pL * rhoL);
        const Float squareR = gamma * (pR * rhoR);
        const Float zL = Root(squareL);
        const Float zR = Root(squareR);
        const Float sumZ = zL + zR;
        const Float sumRho = rhoL + rhoR;
        const Float perSums = one / (sumZ * sumRho);
        const Float perSumZ = perSums * sumRho;
        const Float closing = uL - uR;
        const Float base = (zR * pL + zL * pR) * perSumZ;
        const Float linear = (zL * zR * perSumZ) * closing;
        const Float acoustic = base + linear;
        const Float ram =
            Float(0.25) * halfPlus * (rhoL * rhoR * (perSums * sumZ)) * (closing * closing);
        const Float collision = base + (ram + Root(ram * ram + linear * linear));
        const Float lowest = Float(1e-6) * Least(pL, pR);
        const Float guess = Most(Choose(closing > zero, collision, acoustic), lowest);

        // One step of Newton's method: the velocities behind the two waves come together.
        const Float guessWL = Root(rhoL * WaveStiffness(halfPlus, halfMinus, pL, guess));
        const Float guessWR = Root(rhoR * WaveStiffness(halfPlus, halfMinus, pR, guess));
        const Float perBoth = one / (guessWL * guessWR);
        const Float perL = perBoth * guessWR;
        const Float perR = perBoth * guessWL;
        const Float slopeL = half * perL * (one + squareL * (perL * perL));
        const Float slopeR = half * perR * (one + squareR * (perR * perR));
        const Float behindL = uL - (guess - pL) * perL;
        const Float behindR = uR + (guess - pR) * perR;
        const Float perSlopes = one / (slopeL + slopeR);
        const Float star = Most(guess + (behindL - behindR) * perSlopes, lowest);
        const Float starU = (slopeL * behindR + slopeR * behindL) * perSlopes;

        // The side that the gas comes from; speeds along the way that the gas at the edge moves.
        const bool fromLeft = starU > zero;
        const Float rho = Choose(fromLeft, rhoL, rhoR);
        const Float p = Choose(fromLeft, pL, pR);
        const Float u = Choose(fromLeft, uL, uR);
        const Float z = Choose(fromLeft, zL, zR);
        const Float along = Choose(fromLeft, u, -u);
        const Float stiffness = WaveStiffness(halfPlus, halfMinus, p, star);
        const Float starRho = rho * stiffness / WaveStiffness(halfPlus, halfMinus, star, p);
        // Where the wave on this side begins and ends: one speed for a shock; for a rarefaction the
        // tail follows from the head, since what the wave leaves unchanged fixes the sound speed.
        const bool shock = star > p;
        // Both speeds are multiplied by the density here.
        const Float behindHead = Choose(shock, Root(rho * stiffness), z) - rho * along;
        const Float width = Choose(shock, zero, rho * (halfPlus * (Size(starU) - along)));
        const Float inFan = behindHead / Most(width, Tiny<Float>());
        const Float part = Between(zero, inFan, one);

        const Float starPush = Choose(acoustic < zero, Float(0.9) * acoustic, star);
        const Float edgeP = p + part * (star - p);
        const Float edgeU = u + part * (starU - u);
        fluxes.Mass[i] = (rho + part * (starRho - rho)) * edgeU;
        fluxes.Momentum[i] = p + part * (starPush - p);
        fluxes.Energy[i] = perGammaLess * (edgeU * edgeP);
        fluxes.Ux[i] = edgeU;
    }
}
