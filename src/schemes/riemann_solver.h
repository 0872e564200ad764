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

// Mass flux through a wave that takes the gas to pressure `star`: exact for a shock, and close for
// a rarefaction that is not too strong. J. Comput. Phys. 54, 174 (1984), eq. (2.5), for a gamma
// law.
template <typename Float>
inline Float WaveMassFlux(Float halfPlus, Float halfMinus, Float rho, Float p, Float star) {
    return Root(rho * (halfPlus * star + halfMinus * p));
}

// Solves the Riemann problem at edges first..last with two waves of the shock's kind, by Newton's
// method from the acoustic solution, and samples it at the edge; inside a rarefaction that
// straddles the edge the state is interpolated between its ends. Where the acoustic pressure is
// negative, the two sides part faster than such waves can follow: nine tenths of that pressure then
// act on the momentum, which drains the heat that the averages of so strong a rarefaction would
// hold too much.
template <typename Float>
void SolveRiemannProblems(const EdgeStates<Float>& states, Float gamma, EdgeFluxes<Float>& fluxes,
                          int first, int last) {
    const Float half = Float(0.5);
    const Float one = Float(1);
    const Float zero = Float(0);
    const Float halfPlus = half * (gamma + one);
    const Float halfMinus = half * (gamma - one);
    const Float perGammaLess = one / (gamma - one);
    const Float* __restrict rhoLRow = states.RhoLeft.Origin();
    const Float* __restrict rhoRRow = states.RhoRight.Origin();
    const Float* __restrict pLRow = states.PLeft.Origin();
    const Float* __restrict pRRow = states.PRight.Origin();
    const Float* __restrict uLRow = states.UxLeft.Origin();
    const Float* __restrict uRRow = states.UxRight.Origin();
    Float* __restrict massRow = fluxes.Mass.Origin();
    Float* __restrict momentumRow = fluxes.Momentum.Origin();
    Float* __restrict energyRow = fluxes.Energy.Origin();
    Float* __restrict uRow = fluxes.Ux.Origin();
    for (int i = first; i <= last; ++i) {
        const Float rhoL = rhoLRow[i];
        const Float rhoR = rhoRRow[i];
        const Float pL = pLRow[i];
        const Float pR = pRRow[i];
        const Float uL = uLRow[i];
        const Float uR = uRRow[i];

        const Float squareL = gamma * (pL * rhoL);
        const Float squareR = gamma * (pR * rhoR);
        const Float zL = Root(squareL);
        const Float zR = Root(squareR);
        const Float acoustic = ((zR * pL + zL * pR) + zL * zR * (uL - uR)) / (zL + zR);
        const Float lowest = Float(1e-6) * Least(pL, pR);

        // Two strong shocks of equal gases would meet at this pressure.
        const Float closing = Most(uL - uR, zero);
        const Float collision =
            halfPlus * half * (rhoL * rhoR / (rhoL + rhoR)) * (closing * closing);
        Float star = Most(Most(acoustic, lowest), collision);
        Float wL = WaveMassFlux(halfPlus, halfMinus, rhoL, pL, star);
        Float wR = WaveMassFlux(halfPlus, halfMinus, rhoR, pR, star);
        for (int iteration = 0; iteration < 2; ++iteration) {
            const Float perL = one / wL;
            const Float perR = one / wR;
            const Float slopeL = half * perL * (one + squareL * perL * perL);
            const Float slopeR = half * perR * (one + squareR * perR * perR);
            const Float fromL = uL - (star - pL) * perL;
            const Float fromR = uR + (star - pR) * perR;
            star = Most(star + (fromL - fromR) / (slopeL + slopeR), lowest);
            wL = WaveMassFlux(halfPlus, halfMinus, rhoL, pL, star);
            wR = WaveMassFlux(halfPlus, halfMinus, rhoR, pR, star);
        }
        const Float starU = ((wL * uL + wR * uR) + (pL - pR)) / (wL + wR);

        // The side that the gas comes from; speeds along the way that the gas at the edge moves.
        const bool fromLeft = starU > zero;
        const Float rho = Choose(fromLeft, rhoL, rhoR);
        const Float p = Choose(fromLeft, pL, pR);
        const Float u = Choose(fromLeft, uL, uR);
        const Float w = Choose(fromLeft, wL, wR);
        const Float z = Choose(fromLeft, zL, zR);
        const Float along = Choose(fromLeft, u, -u);
        const Float perRho = one / rho;
        const Float starRho = rho * (w * w / Most(w * w - rho * (star - p), Tiny<Float>()));
        const bool shock = star > p;
        // Where the wave on this side begins and ends: one speed for a shock, two for a
        // rarefaction.
        const Float head = along - Choose(shock, w, z) * perRho;
        const Float starC = Root(gamma * star / starRho);
        const Float tail = Choose(shock, head, Size(starU) - starC);
        const Float inFan = -head / Most(tail - head, Tiny<Float>());
        const Float part = Choose(head >= zero, zero, Choose(tail <= zero, one, Least(inFan, one)));

        const Float starPush = Choose(acoustic < zero, Float(0.9) * acoustic, star);
        const Float edgeRho = rho + part * (starRho - rho);
        const Float edgeP = p + part * (star - p);
        const Float edgeU = u + part * (starU - u);
        massRow[i] = edgeRho * edgeU;
        momentumRow[i] = p + part * (starPush - p);
        energyRow[i] = perGammaLess * (edgeU * edgeP);
        uRow[i] = edgeU;
    }
}
