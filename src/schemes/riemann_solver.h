// The flux through an edge from the states on its two sides.
#pragma once

#include <algorithm>
#include <cmath>

#include "schemes/characteristic_tracing.h"
#include "schemes/strip.h"

// Fluxes as seen by an observer who moves with the gas at the edge, at velocity Ux: of mass, of
// momentum and of energy (internal plus that of the motion along the grid). The last two follow for
// any other observer from these four. Written so, a fast cold flow loses no digits of its pressure.
template <typename Float>
struct EdgeFluxes {
    Row<Float> Mass;
    Row<Float> Momentum;
    Row<Float> Energy;
    Row<Float> Ux;
};

// Square of the mass flux through a wave that takes the state to pressure p: exact for a shock, and
// taken for rarefactions too. J. Comput. Phys. 54, 174 (1984), eq. (2.5)...
template <typename Float>
inline Float WaveMassFlux(Float gamma, Float rho, Float p, Float star) {
    return std::sqrt(Float(0.5) * rho * ((gamma + Float(1)) * star + (gamma - Float(1)) * p));
}

template <typename Float>
void SolveRiemannProblems(const EdgeStates<Float>& states, Float gamma, EdgeFluxes<Float>& fluxes,
                          int first, int last) {
    const Float half = Float(0.5);
    const Float tiny = sizeof(Float) == 8 ? Float(1e-200) : Float(1e-30);
    for (int i = first; i <= last; ++i) {
        const Float rhoL = states.RhoLeft[i];
        const Float rhoR = states.RhoRight[i];
        const Float pL = states.PLeft[i];
        const Float pR = states.PRight[i];
        const Float uL = states.UxLeft[i];
        const Float uR = states.UxRight[i];

        const Float zz_L = gamma * pL * rhoL;
        const Float zz_R = gamma * pR * rhoR;
        const Float zL = std::sqrt(zz_L);
        const Float zR = std::sqrt(zz_R);
        Float star = ((zR * pL + zL * pR) + zL * zR * (uL - uR)) / (zL + zR);
        star = std::max(star, Float(1e-6) * std::min(pL, pR));
        Float starU = 0;
        Float wL = zL;
        Float wR = zR;
        for (int iteration = 0; iteration < 3; ++iteration) {
            wL = WaveMassFlux(gamma, rhoL, pL, star);
            wR = WaveMassFlux(gamma, rhoR, pR, star);
            const Float invL = Float(1) / wL;
            const Float invR = Float(1) / wR;
            const Float slopeL = half * invL * (Float(1) + zz_L * invL * invL);
            const Float slopeR = half * invR * (Float(1) + zz_R * invR * invR);
            const Float fromL = uL - (star - pL) * invL;
            const Float fromR = uR + (star - pR) * invR;
            star = star - (fromR - fromL) / (slopeL + slopeR);
            star = std::max(star, Float(1e-6) * std::min(pL, pR));
        }
        wL = WaveMassFlux(gamma, rhoL, pL, star);
        wR = WaveMassFlux(gamma, rhoR, pR, star);
        starU = (wL * uL + wR * uR + (pL - pR)) / (wL + wR);

        // The side from which the gas comes, and everything outward from the contact.
        const bool fromLeft = starU > Float(0);
        const Float rho = fromLeft ? rhoL : rhoR;
        const Float p = fromLeft ? pL : pR;
        const Float u = fromLeft ? uL : uR;
        const Float w = fromLeft ? wL : wR;
        const Float z = fromLeft ? zL : zR;
        const Float along = fromLeft ? u : -u;
        const Float starAlong = std::abs(starU);
        const Float starRho = std::max(rho / (Float(1) - rho * (star - p) / (w * w)), tiny);
        const Float starC = std::sqrt(gamma * star / starRho);
        const bool shock = star > p;
        const Float head = shock ? along - w / rho : along - z / rho;
        const Float tail = shock ? along - w / rho : starAlong - starC;
        const Float width = std::max(tail - head, tiny);
        const Float part = shock ? (head < Float(0) ? Float(1) : Float(0))
                                 : std::min(std::max(-head / width, Float(0)), Float(1));
        const Float edgeRho = rho + part * (starRho - rho);
        const Float edgeP = p + part * (star - p);
        const Float edgeU = u + part * (starU - u);
        const Float mass = edgeRho * edgeU;
        fluxes.Mass[i] = mass;
        fluxes.Momentum[i] = edgeP;
        fluxes.Energy[i] = edgeU * edgeP / (gamma - Float(1));
        fluxes.Ux[i] = edgeU;
    }
}
