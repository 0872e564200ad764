// The fluxes through the edges by three waves of fixed speed: two that bound what the edge's states
// change by meeting, and the contact between them. Shock Waves 4, 25 (1994).
#pragma once

#include "schemes/riemann_solver.h"
#include "schemes/strip.h"

// Fluxes through edges first..last. The outer waves run into the gas on their side at the sound
// speed of both gases taken together plus (gamma + 1) / 4 of the speed at which the two close in on
// each other, as the shocks do where two equal gases collide, but no slower than the larger sound
// speed, and no slower than (gamma + 1) / 2 of the change of velocity that waves of that speed make
// of the two pressures and velocities: no shock is slower than that, and a wave that is lets the
// gas between overtake it. In an even pressure and velocity only the contact is left, and is exact.
template <typename Float>
void HllcFluxes(const EdgeStates<Float>& states, Float gamma, EdgeFluxes<Float>& fluxes, int first,
                int last) {
    const Float half = Float(0.5);
    const Float one = Float(1);
    const Float zero = Float(0);
    const Float strong = half * (gamma + one);
    const Float perGammaLess = one / (gamma - one);
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float rhoL = states.RhoLeft[i];
        const Float rhoR = states.RhoRight[i];
        const Float pL = states.PLeft[i];
        const Float pR = states.PRight[i];
        const Float uL = states.UxLeft[i];
        const Float uR = states.UxRight[i];

        // How fast the outer waves run into the gas, and the mass that they take in.
        const Float warmthL = pL * rhoR;
        const Float warmthR = pR * rhoL;
        // Two gases as warm as each other are told apart by density and pressure, so that a mirror
        // image takes the same one.
        const bool leftDenser = (rhoL > rhoR) | ((rhoL == rhoR) & (pL > pR));
        const bool leftFaster = (warmthL > warmthR) | ((warmthL == warmthR) & leftDenser);
        const Float rhoFast = Select(leftFaster, rhoL, rhoR);
        const Float pFast = Select(leftFaster, pL, pR);
        const Float sumRho = rhoL + rhoR;
        const Float perSums = one / (rhoFast * sumRho);
        const Float perSumRho = perSums * rhoFast;
        const Float soundOfFaster = Sqrt(gamma * (pFast * (perSums * sumRho)));
        const Float soundOfBoth = Sqrt(gamma * ((pL + pR) * perSumRho));
        const Float closing = uL - uR;
        const Float meeting = NonNegative(closing);
        const Float usual = Max(soundOfBoth + half * (strong * meeting), soundOfFaster);

        // The velocity that waves of that speed leave between them, as changes on the two sides.
        const Float perMass = perSumRho * closing;
        const Float pushed = perSumRho * (pL - pR) / usual;
        const Float reachL = Max(usual, strong * (perMass * rhoR - pushed));
        const Float reachR = Max(usual, strong * (perMass * rhoL + pushed));
        const Float wL = rhoL * reachL;
        const Float wR = rhoR * reachR;

        // Between them.
        const Float perW = one / (wL + wR);
        const Float starU = half * (uL + uR) + perW * ((half * (wL - wR)) * closing + (pL - pR));
        const Float starP = perW * ((wR * pL + wL * pR) + (wL * wR) * closing);

        // The side that the gas comes from, and the speed, with its sign, at which the wave on
        // that side leaves the gas there. It may be swept along: then the edge sees that gas alone.
        const bool fromLeft = starU > zero;
        const Float rho = Select(fromLeft, rhoL, rhoR);
        const Float p = Select(fromLeft, pL, pR);
        const Float u = Select(fromLeft, uL, uR);
        const Float lead = Select(fromLeft, reachL, -reachR);
        const Float gain = starU - u;
        const Float carrying = starU / (lead + gain);
        const Float heat = perGammaLess * p;
        const Float starHeat = lead * (heat + (half * rho) * (gain * gain)) - gain * p;

        const bool whole = Along(u - lead, lead) > zero;
        fluxes.Mass[i] = Select(whole, u * rho, carrying * (lead * rho));
        fluxes.Momentum[i] = Select(whole, p, starP);
        fluxes.Energy[i] = Select(whole, u * heat, carrying * starHeat);
        fluxes.Ux[i] = Select(whole, u, starU);
    }
}
