// The fluxes through the edges from the states on their two sides.
#pragma once

#include <limits>

#include "schemes/characteristic_tracing.h"
#include "schemes/edge_star.h"
#include "schemes/strip.h"

// Fluxes as seen by an observer who moves with the gas at the edge, at velocity Ux: of mass, of
// momentum and of energy (internal, and of the motion along the grid). The last two follow for any
// other observer from these four. Written so, a fast cold flow loses no digits of its pressure.
template <typename Float>
struct EdgeFluxes {
    Row<Float> Mass = {};  // 0 past the edges that are solved, where padded kernels look too
    Row<Float> Momentum;
    Row<Float> Energy;
    Row<Float> Ux;
};

// Whether the two sides of an edge are so close that sound waves are solution enough: the error is
// of second order in the jump, two parts in a hundred thousand of the pressure. States of negative
// density never are.
template <typename Float>
[[gnu::always_inline]] inline bool IsWeak(const EdgeStates<Float>& states, int i) {
    const Float tolerance = Float(0.01);
    const Float least = Min(states.PLeft[i], states.PRight[i]);
    const Float rhoL = states.RhoLeft[i];
    const Float rhoR = states.RhoRight[i];
    const Float densest = Max(rhoL, rhoR);
    const Float closing = states.UxLeft[i] - states.UxRight[i];
    const Float jump = Abs(states.PLeft[i] - states.PRight[i]) - tolerance * least;
    const Float ram = densest * (closing * closing) - tolerance * tolerance * least;
    return (Max(jump, ram) <= Float(0)) & (rhoL > Float(0)) & (rhoR > Float(0));
}

// What an edge is solved for: the pressure and the velocity between the two waves, and the density
// beside the edge there.
template <typename Float>
struct EdgeSolution {
    Float P, Ux, Rho;
    Float Push;   // the pressure that acts on the momentum
    Float Share;  // how far the edge is inside the waves rather than in the gas before them
};

// By sound waves in the gas of the two cells. Where the gas moves faster than sound the edge lies
// in the gas before the waves: the share falls from 1 to 0 at once, so that a wave that stands
// still on the grid loses nothing.
template <typename Float>
[[gnu::always_inline]] inline EdgeSolution<Float> SolveWeakEdge(const StripState<Float>& strip,
                                                                const CellRows<Float>& cells,
                                                                const EdgeStates<Float>& states,
                                                                Float quarterPlus, int i) {
    const Float zL = cells.Impedance[i - 1];
    const Float zR = cells.Impedance[i];
    const Float pL = states.PLeft[i];
    const Float pR = states.PRight[i];
    const Float uL = states.UxLeft[i];
    const Float uR = states.UxRight[i];
    const Float rhoL = states.RhoLeft[i];
    const Float rhoR = states.RhoRight[i];
    const EdgeStar<Float> met = MeetAsSound(zL, pL, uL, zR, pR, uR);
    const Float star = met.P;
    const Float starU = met.Ux;
    const bool fromLeft = starU > Float(0);
    // 1 over the sound speed of the cell
    const Float perCL = cells.PerImpedance[i - 1] * strip.Rho[i - 1];
    const Float perCR = cells.PerImpedance[i] * strip.Rho[i];
    const Float perC = Select(fromLeft, perCL, perCR);
    const Float p = Select(fromLeft, pL, pR);
    const Float rho = Select(fromLeft, rhoL, rhoR);
    const Float along = Select(fromLeft, uL, -uR);
    const Float middle = along + quarterPlus * (Abs(starU) - along);
    const Float share = Select(middle * perC < Float(1), Float(1), Float(0));
    return {star, starU, rho + (star - p) * (perC * perC), star, share};
}

// By two waves of the shock's kind; inside a rarefaction that straddles the edge the state is
// interpolated between its ends. Where the acoustic pressure is negative nine tenths of it act on
// the momentum, which drains the heat that the averages of so strong a rarefaction would hold too
// much. Traced states of no density or pressure, as between cells of which one holds next to
// nothing, have no waves: what comes out is no number, and the cells on both sides are mended.
template <typename Float>
[[gnu::always_inline]] inline EdgeSolution<Float> SolveStrongEdge(const EdgeStates<Float>& states,
                                                                  Float gamma, int i) {
    const Float half = Float(0.5);
    const Float one = Float(1);
    const Float zero = Float(0);
    const Float halfPlus = half * (gamma + one);
    const Float halfMinus = half * (gamma - one);
    const Float rhoL = states.RhoLeft[i];
    const Float rhoR = states.RhoRight[i];
    const Float pL = states.PLeft[i];
    const Float pR = states.PRight[i];
    const Float uL = states.UxLeft[i];
    const Float uR = states.UxRight[i];

    const Float squareL = gamma * (pL * rhoL);
    const Float squareR = gamma * (pR * rhoR);
    const Float zL = Sqrt(squareL);
    const Float zR = Sqrt(squareR);
    const EdgeStar<Float> met = MeetAsShocks<Float>(
        {rhoL, pL, uL, zL, squareL}, {rhoR, pR, uR, zR, squareR}, halfPlus, halfMinus);
    const Float star = met.P;
    const Float starU = met.Ux;

    // The side that the gas comes from; speeds along the way that the gas at the edge moves.
    const bool fromLeft = starU > zero;
    const Float rho = Select(fromLeft, rhoL, rhoR);
    const Float p = Select(fromLeft, pL, pR);
    const Float z = Select(fromLeft, zL, zR);
    const Float along = Select(fromLeft, uL, -uR);
    const Float stiffness = WaveStiffness(halfPlus, halfMinus, p, star);
    const Float starRho = rho * stiffness / WaveStiffness(halfPlus, halfMinus, star, p);
    // Where the wave on this side begins and ends: one speed for a shock; for a rarefaction the
    // tail follows from the head, since what the wave leaves unchanged fixes the sound speed.
    const bool shock = star > p;
    // Both speeds are multiplied by the density here.
    const Float behindHead = Select(shock, Sqrt(rho * stiffness), z) - rho * along;
    const Float width = Select(shock, zero, rho * (halfPlus * (Abs(starU) - along)));
    const Float inFan =
        Clamp(Opaque(Float(0)), behindHead / Max(width, Opaque(Tiny<Float>)), Opaque(Float(1)));
    // Gas that would leave the edge on the side that it comes from has ended before: between two
    // streams that part faster than it can expand there is next to nothing.
    const Float speed = along + inFan * (Abs(starU) - along);
    const Float reached = Select(speed < zero, one, inFan);
    // Roots have seen to all such states but those with both below zero.
    const Float share = Select((rhoL > zero) & (rhoR > zero), reached,
                               Float(std::numeric_limits<double>::quiet_NaN()));
    return {star, starU, starRho, Select(met.AcousticP < zero, Float(0.9) * met.AcousticP, star),
            share};
}

// Puts the fluxes through edge i together.
template <typename Float>
[[gnu::always_inline]] inline void SampleEdge(const EdgeStates<Float>& states,
                                              const EdgeSolution<Float>& solution,
                                              Float perGammaLess, EdgeFluxes<Float>& fluxes,
                                              int i) {
    const Float rhoL = states.RhoLeft[i];
    const Float rhoR = states.RhoRight[i];
    const Float pL = states.PLeft[i];
    const Float pR = states.PRight[i];
    const Float uL = states.UxLeft[i];
    const Float uR = states.UxRight[i];
    // Gas that stands still comes from neither side. All that shows of the choice then is how the
    // pressure is rounded, and the higher one is taken so that a mirror image takes the same.
    const bool fromLeft = (solution.Ux > Float(0)) | ((solution.Ux == Float(0)) & (pL > pR));
    const Float rho = Select(fromLeft, rhoL, rhoR);
    const Float p = Select(fromLeft, pL, pR);
    const Float u = Select(fromLeft, uL, uR);
    const Float edgeP = p + solution.Share * (solution.P - p);
    const Float edgeU = u + solution.Share * (solution.Ux - u);
    fluxes.Mass[i] = (rho + solution.Share * (solution.Rho - rho)) * edgeU;
    fluxes.Momentum[i] = p + solution.Share * (solution.Push - p);
    fluxes.Energy[i] = perGammaLess * (edgeU * edgeP);
    fluxes.Ux[i] = edgeU;
}

// Solves the Riemann problems at edges first..last, a whole number of chunks: weak edges by sound
// waves, the others in full. Returns how many edges lie in chunks that are not weak throughout.
template <typename Float>
int SolveRiemannProblems(StripState<Float> strip, const CellRows<Float>& cells,
                         const EdgeStates<Float>& states, Float gamma, EdgeFluxes<Float>& fluxes,
                         int first, int last) {
    const Float perGammaLess = Float(1) / (gamma - Float(1));
    const Float quarterPlus = Float(0.25) * (gamma + Float(1));
    int strongEdges = 0;
    for (int chunk = first; chunk <= last; chunk += CellsAtOnce) {
        const int end = chunk + CellsAtOnce;
        if (AnyInChunk<Float>(chunk, [&](int i) { return !IsWeak(states, i); })) {
            strongEdges += CellsAtOnce;
#pragma omp simd
            for (int i = chunk; i < end; ++i) {
                const bool weak = IsWeak(states, i);
                const EdgeSolution<Float> a = SolveWeakEdge(strip, cells, states, quarterPlus, i);
                const EdgeSolution<Float> b = SolveStrongEdge(states, gamma, i);
                const EdgeSolution<Float> solution = {
                    Select(weak, a.P, b.P), Select(weak, a.Ux, b.Ux), Select(weak, a.Rho, b.Rho),
                    Select(weak, a.Push, b.Push), Select(weak, a.Share, b.Share)};
                SampleEdge(states, solution, perGammaLess, fluxes, i);
            }
        } else {
#pragma omp simd
            for (int i = chunk; i < end; ++i) {
                SampleEdge(states, SolveWeakEdge(strip, cells, states, quarterPlus, i),
                           perGammaLess, fluxes, i);
            }
        }
    }
    return strongEdges;
}
