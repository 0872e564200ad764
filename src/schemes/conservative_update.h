// The new state of the cells from the fluxes through their edges.
#pragma once

#include "schemes/riemann_solver.h"
#include "schemes/strip.h"

// The state after the step, before it is handed over.
template <typename Float>
struct NewState {
    Row<Float> Rho, P, Ux;
};

// New density, pressure and velocity of cells first..last. Each cell is advanced as seen by an
// observer who moves with the gas in it before the step: momentum and energy then enter as
// differences from rest. Mass, momentum along the grid, and internal energy plus energy of the
// motion along the grid are conserved.
template <typename Float>
void UpdateCells(const StripState<Float>& strip, const CellRows<Float>& cells,
                 const EdgeFluxes<Float>& fluxes, Float gamma, NewState<Float>& next, int first,
                 int last) {
    const Float half = Float(0.5);
    const Float gammaLess = gamma - Float(1);
    const Float* mass = fluxes.Mass.Origin();
    const Float* push = fluxes.Momentum.Origin();
    const Float* heatFlux = fluxes.Energy.Origin();
    const Float* edgeU = fluxes.Ux.Origin();
    Float* newRho = next.Rho.Origin();
    Float* newP = next.P.Origin();
    Float* newU = next.Ux.Origin();
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float ratio = cells.StepPerWidth[i];
        const Float driftL = edgeU[i] - strip.Ux[i];
        const Float driftR = edgeU[i + 1] - strip.Ux[i];
        const Float carriedL = driftL * mass[i];
        const Float carriedR = driftR * mass[i + 1];
        const Float momentumL = push[i] + carriedL;
        const Float momentumR = push[i + 1] + carriedR;
        const Float energyL = heatFlux[i] + driftL * (push[i] + half * carriedL);
        const Float energyR = heatFlux[i + 1] + driftR * (push[i + 1] + half * carriedR);

        const Float rho = strip.Rho[i] + ratio * (mass[i] - mass[i + 1]);
        const Float momentum = ratio * (momentumL - momentumR);
        const Float change = momentum / rho;
        const Float heat = ratio * (energyL - energyR) - half * (momentum * change);
        newRho[i] = rho;
        newU[i] = strip.Ux[i] + change;
        newP[i] = strip.P[i] + gammaLess * heat;
    }
}
