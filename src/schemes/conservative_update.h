// The new state of the cells from the fluxes through their edges.
#pragma once

#include <algorithm>

#include "schemes/riemann_solver.h"
#include "schemes/strip.h"

// The state after the step, before it is handed over.
template <typename Float>
struct NewState {
    Row<Float> Rho, P, Ux;
};

// New values of cells first..last. Each cell is advanced as seen by an observer who moves with the
// gas in it before the step: momentum and energy then enter as differences from rest. Mass,
// momentum along the grid, and internal energy plus energy of motion along the grid are conserved.
template <typename Float>
void UpdateCells(const StripState<Float>& strip, const Row<Float>& stepPerWidth,
                 const EdgeFluxes<Float>& fluxes, Float gamma, NewState<Float>& next, int first,
                 int last) {
    const Float half = Float(0.5);
    for (int i = first; i <= last; ++i) {
        const Float ratio = stepPerWidth[i];
        const Float driftL = fluxes.Ux[i] - strip.Ux[i];
        const Float driftR = fluxes.Ux[i + 1] - strip.Ux[i];
        const Float massL = fluxes.Mass[i];
        const Float massR = fluxes.Mass[i + 1];
        const Float momentumL = fluxes.Momentum[i] + driftL * massL;
        const Float momentumR = fluxes.Momentum[i + 1] + driftR * massR;
        const Float energyL =
            fluxes.Energy[i] + driftL * (fluxes.Momentum[i] + half * driftL * massL);
        const Float energyR =
            fluxes.Energy[i + 1] + driftR * (fluxes.Momentum[i + 1] + half * driftR * massR);

        const Float rho = strip.Rho[i] + ratio * (massL - massR);
        const Float momentum = ratio * (momentumL - momentumR);
        const Float change = momentum / rho;
        const Float heat = ratio * (energyL - energyR) - half * momentum * change;
        next.Rho[i] = rho;
        next.Ux[i] = strip.Ux[i] + change;
        next.P[i] = strip.P[i] + (gamma - Float(1)) * heat;
    }
}

// New values of a quantity that the gas carries, cells first..last.
//   a         in: cell averages
//   fluxes    in: mass fluxes, edges first..last+1
//   newRho    in: new densities
//   flow      scratch: edges first..last+1
template <typename Float>
void UpdateCarried(const StripState<Float>& strip, const Float* a,
                   const Parabolas<Float>& parabolas, const Row<Float>& stepPerWidth,
                   const EdgeFluxes<Float>& fluxes, const Row<Float>& newRho, Row<Float>& edgeValue,
                   Float* result, int first, int last) {
    for (int i = first; i <= last + 1; ++i) {
        const Float mass = fluxes.Mass[i];
        const Float shareL = Share(mass, stepPerWidth[i - 1] / strip.Rho[i - 1]);
        const Float shareR = Share(-mass, stepPerWidth[i] / strip.Rho[i]);
        const Float fromL =
            a[i - 1] + RightPart(parabolas.FromLeft[i - 1], parabolas.ToRight[i - 1], shareL);
        const Float fromR = a[i] + LeftPart(parabolas.FromLeft[i], parabolas.ToRight[i], shareR);
        edgeValue[i] = mass > Float(0) ? fromL : fromR;
    }
    for (int i = first; i <= last; ++i) {
        const Float in = fluxes.Mass[i] * (edgeValue[i] - a[i]);
        const Float out = fluxes.Mass[i + 1] * (edgeValue[i + 1] - a[i]);
        result[i] = a[i] + stepPerWidth[i] * (in - out) / newRho[i];
    }
}
