// The fluxes through the edges from the states on their two sides.
#pragma once

#include <limits>

#include "schemes/characteristic_tracing.h"
#include "schemes/edge_star.h"
#include "schemes/strip.h"

// An edge is weak if the pressures differ by less than this share, and the velocities by less than
// about this share of the sound speed. Found by trial: the sound-wave solution is then off by two
// parts in a hundred thousand of the pressure; 0.005 to 0.02 work.
template <typename Float>
constexpr Float WeakJump = Float(0.01);
template <typename Float>
inline const Float WeakJumpSquare = WeakJump<Float>* WeakJump<Float>;
// The share of a negative acoustic pressure that acts on the momentum. Averages of so strong a
// rarefaction hold too much heat, and this drains part of it. Found by trial on Test 3; 0.8 and 1.0
// are worse.
template <typename Float>
constexpr Float Tension = Float(0.9);

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

// Whether the two sides of an edge are so close that sound waves solve it well enough: the error is
// of second order in the jump.
template <typename Float>
[[gnu::always_inline]] inline bool IsWeakJump(Float pL, Float uL, Float pR, Float uR,
                                              Float densest) {
    const Float least = Min(pL, pR);
    const Float closing = uL - uR;
    const Float jump = Abs(pL - pR) - WeakJump<Float> * least;
    const Float ram = densest * (closing * closing) - WeakJumpSquare<Float> * least;
    return Max(jump, ram) <= Float(0);
}

// The same for edge i; states of negative density are never weak.
template <typename Float>
[[gnu::always_inline]] inline bool IsWeak(const EdgeStates<Float>& states, int i) {
    const Float rhoL = states.RhoLeft[i];
    const Float rhoR = states.RhoRight[i];
    return IsWeakJump(states.PLeft[i], states.UxLeft[i], states.PRight[i], states.UxRight[i],
                      Max(rhoL, rhoR)) &
           (rhoL > Float(0)) & (rhoR > Float(0));
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
    const Float inFan = Clamp01(behindHead / Divisor(width));
    // Gas that would leave the edge on the side that it comes from has ended before: between two
    // streams that part faster than it can expand there is next to nothing.
    const Float speed = along + inFan * (Abs(starU) - along);
    const Float reached = Select(speed < zero, one, inFan);
    // Roots have seen to all such states but those with both below zero.
    const Float share = Select((rhoL > zero) & (rhoR > zero), reached,
                               Float(std::numeric_limits<double>::quiet_NaN()));
    return {star, starU, starRho,
            Select(met.AcousticP < zero, Tension<Float> * met.AcousticP, star), share};
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
// waves, the others in full.
template <typename Float>
[[gnu::flatten]] void SolveRiemannProblems(StripState<Float> strip, const CellRows<Float>& cells,
                                           const EdgeStates<Float>& states, Float gamma,
                                           EdgeFluxes<Float>& fluxes, int first, int last,
                                           WorkDone& work) {
    const Float perGammaLess = Float(1) / (gamma - Float(1));
    const Float quarterPlus = Float(0.25) * (gamma + Float(1));
    const auto isStrong = [&](int i) { return !IsWeak(states, i); };
    const auto solve = [&](int i) {
        const bool weak = IsWeak(states, i);
        const EdgeSolution<Float> a = SolveWeakEdge(strip, cells, states, quarterPlus, i);
        const EdgeSolution<Float> b = SolveStrongEdge(states, gamma, i);
        const EdgeSolution<Float> solution = {
            Select(weak, a.P, b.P), Select(weak, a.Ux, b.Ux), Select(weak, a.Rho, b.Rho),
            Select(weak, a.Push, b.Push), Select(weak, a.Share, b.Share)};
        SampleEdge(states, solution, perGammaLess, fluxes, i);
    };
    const auto solveWeak = [&](int i) {
        SampleEdge(states, SolveWeakEdge(strip, cells, states, quarterPlus, i), perGammaLess,
                   fluxes, i);
    };
    work.Add(Work::StrongEdge, RunWhereNeeded<Float>(first, last, isStrong, solve, solveWeak));
}
