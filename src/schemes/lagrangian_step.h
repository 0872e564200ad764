// The step as seen by observers who move with the gas: where the edges between the cells go, and
// what the cells hold when they have gone with them. J. Comput. Phys. 54, 174 (1984), section 2.
#pragma once

#include "schemes/cell_preparation.h"
#include "schemes/edge_star.h"
#include "schemes/parabola.h"
#include "schemes/riemann_solver.h"
#include "schemes/strip.h"

// Second differences that agree within this factor are smooth and not limited. Found by trial.
template <typename Float>
constexpr Float SmoothBends = Float(2);
// The least share of a cell's density and pressure that the sides of its edges keep, and the
// largest multiple of the density. They bound the sound-wave relation in strong waves. Found by
// trial.
template <typename Float>
constexpr Float LeastBeside = Float(0.1);
template <typename Float>
constexpr Float LargestBeside = Float(3);
// The shares of its width and its pressure that a moved cell keeps at least. The step is too long
// where they matter, and the result is mended later.
template <typename Float>
constexpr Float LeastWidth = Float(0.05);
template <typename Float>
constexpr Float LeastPressure = Float(0.001);

// Fills what is known of cells first..last before the step, all but PerImpedance, and returns the
// Courant number of cells 1..n. Streams that part in a near vacuum leave values here whose products
// no 32-bit float can hold, so that each is divided by alone.
template <typename Float>
Float PrepareStillCells(StripState<Float> strip, Float timeStep, Float gamma,
                        CellRows<Float>& cells, int first, int last) {
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float ratio = timeStep / (strip.Edges[i + 1] - strip.Edges[i]);
        const Float perRho = Float(1) / strip.Rho[i];
        const Float c = Sqrt(gamma * (strip.P[i] * perRho));
        cells.StepPerWidth[i] = ratio;
        cells.StepPerMass[i] = ratio * perRho;
        cells.SoundSpeed[i] = c;
        cells.Signal[i] = Abs(strip.Ux[i]) + c;
        cells.Impedance[i] = strip.Rho[i] * c;
    }
    return CourantNumber(cells, strip.Cells);
}

// The pressure on the edges and their velocity, both constant during the step.
template <typename Float>
struct EdgeMotion {
    Row<Float> P, Ux;
};

// Cells that have moved with the gas: what they hold, and the share of their volume that gas of
// unit speed sweeps through an edge during the step.
template <typename Float>
struct MovedCells {
    Row<Float> Rho, P, Ux, StepPerWidth;
};

// The slope of a cell from the differences to its two neighbours: their mean, but at most twice the
// smaller one, and 0 at an extremum. One of the two parts is 0.
template <typename Float>
struct CutSlope {
    Float Rising, Falling;

    [[gnu::always_inline]] CutSlope(Float a, Float b, Float mean) {
        const Float two = Float(2);
        Rising = NonNegative(Min(mean, two * Min(a, b)));
        Falling = Min(Max(mean, two * Max(a, b)), Opaque(Float(0)));
    }
    [[gnu::always_inline]] Float Total() const { return Rising + Falling; }
    // The part of a rise that is along the slope and no larger.
    [[gnu::always_inline]] Float Cut(Float rise) const { return Clamp(Falling, rise, Rising); }
};

// The data on both sides of an edge as one cubic through four cells, by its rises in the cell on
// the left and in that on the right, each from the cell's left edge to its average and from there
// to its right edge. The value on the edge between them is of fourth order.
template <typename Float>
struct EdgeCubic {
    Float LeftFromLeft, LeftToRight;
    Float RightFromLeft, RightToRight;

    // From the differences between the four cells. Where both second differences have one sign and
    // agree within a factor of 2 the data are smooth and need no limits; elsewhere the value is
    // made of limited slopes, and no rise is against the slope of its cell nor larger.
    [[gnu::always_inline]] EdgeCubic(Float left, Float across, Float right) {
        const Float half = Float(0.5);
        const Float bendLeft = across - left;
        const Float bendRight = right - across;
        const Float alike = Along(bendRight, bendLeft);
        const Float size = Abs(bendLeft);
        const bool smooth = Max(alike, size) <= SmoothBends<Float> * Min(alike, size);

        const Float meanLeft = half * (left + across);
        const Float meanRight = half * (across + right);
        const CutSlope<Float> cutLeft(left, across, meanLeft);
        const CutSlope<Float> cutRight(across, right, meanRight);
        const Float slopeLeft = Select(smooth, meanLeft, cutLeft.Total());
        const Float slopeRight = Select(smooth, meanRight, cutRight.Total());
        const Float bend = Float(1.0 / 6.0) * (slopeRight - slopeLeft);
        const Float twist = Float(0.125) * (bendRight - bendLeft);
        const Float toEdge = half * across - bend;
        const Float fromEdge = half * across + bend;
        const Float before = (slopeLeft - twist) - toEdge;
        const Float behind = (slopeRight - twist) - fromEdge;
        LeftToRight = Select(smooth, toEdge, cutLeft.Cut(toEdge));
        LeftFromLeft = Select(smooth, before, cutLeft.Cut(before));
        RightFromLeft = Select(smooth, fromEdge, cutRight.Cut(fromEdge));
        RightToRight = Select(smooth, behind, cutRight.Cut(behind));
    }
};

// The share of a cell that a sound wave crosses on its way to an edge that moves with the gas, from
// the sound speed at the cell's centre and the changes of velocity and sound speed across the cell,
// toward the edge. The wave is slowed by the gas that it runs into
// and sped up by the gas behind it; with both the flux of a simple wave is right to third order.
template <typename Float>
[[gnu::always_inline]] inline Float SoundShare(Float soundSpeed, Float riseU, Float riseC,
                                               Float stepPerWidth) {
    const Float half = Float(0.5);
    const Float delay = Float(2.0 / 3.0) * stepPerWidth * (half * riseU + riseC);
    const Float share = (soundSpeed + half * riseC) * stepPerWidth * (Float(1) - delay);
    return Clamp01(share);
}

// The states beside the edges, averaged over the part of the cells from which sound reaches the
// edge during the step.
template <typename Float>
struct SoundStates {
    Row<Float> PLeft, UxLeft, PRight, UxRight;
};

// States beside the edges first..last. Reads cells first-2..last+1.
template <typename Float>
void TraceSound(const StripState<Float>& strip, const CellRows<Float>& cells,
                SoundStates<Float>& states, int first, int last) {
    const Float* u = strip.Ux;
    const Float* p = strip.P;
    const Float* c = cells.SoundSpeed.Origin();
    const Float half = Float(0.5);
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const int l = i - 1;
        const Float left = SoundShare(c[l], half * (u[i] - u[l - 1]), half * (c[i] - c[l - 1]),
                                      cells.StepPerWidth[l]);
        const Float right = SoundShare(c[i], half * (u[i + 1] - u[l]), half * (c[l] - c[i + 1]),
                                       cells.StepPerWidth[i]);
        const EdgeCubic<Float> cubic(p[l] - p[l - 1], p[i] - p[l], p[i + 1] - p[i]);
        states.PLeft[i] = p[l] + RightPart(cubic.LeftFromLeft, cubic.LeftToRight, left);
        states.PRight[i] = p[i] + LeftPart(cubic.RightFromLeft, cubic.RightToRight, right);
        const EdgeCubic<Float> cubicU(u[l] - u[l - 1], u[i] - u[l], u[i + 1] - u[i]);
        states.UxLeft[i] = u[l] + RightPart(cubicU.LeftFromLeft, cubicU.LeftToRight, left);
        states.UxRight[i] = u[i] + LeftPart(cubicU.RightFromLeft, cubicU.RightToRight, right);
    }
}

// Whether sound waves solve edge i well enough.
template <typename Float>
[[gnu::always_inline]] inline bool IsWeakEdge(const StripState<Float>& strip,
                                              const SoundStates<Float>& states, int i) {
    return IsWeakJump(states.PLeft[i], states.UxLeft[i], states.PRight[i], states.UxRight[i],
                      Max(strip.Rho[i - 1], strip.Rho[i]));
}

// By sound waves in the gas of the two cells.
template <typename Float>
[[gnu::always_inline]] inline EdgeStar<Float> MoveWeakEdge(const CellRows<Float>& cells,
                                                           const SoundStates<Float>& states,
                                                           int i) {
    return MeetAsSound(cells.Impedance[i - 1], states.PLeft[i], states.UxLeft[i],
                       cells.Impedance[i], states.PRight[i], states.UxRight[i]);
}

// By two waves of the shock's kind. The densities follow from the pressures as in a sound wave.
// Where the acoustic pressure is negative nothing is left that could push. Neither wave leaves gas
// behind it that is faster than gas expands into a vacuum, and the edge moves with a mean of what
// the two leave.
template <typename Float>
[[gnu::always_inline]] inline EdgeStar<Float> MoveStrongEdge(const StripState<Float>& strip,
                                                             const CellRows<Float>& cells,
                                                             const SoundStates<Float>& states,
                                                             Float gamma, int i) {
    const Float half = Float(0.5);
    const Float one = Float(1);
    const Float halfPlus = half * (gamma + one);
    const Float halfMinus = half * (gamma - one);
    const Float least = Opaque(LeastBeside<Float>);
    const Float most = Opaque(LargestBeside<Float>);
    const Float cellRhoL = strip.Rho[i - 1];
    const Float cellRhoR = strip.Rho[i];
    const Float cellPL = strip.P[i - 1];
    const Float cellPR = strip.P[i];
    const Float pL = Max(states.PLeft[i], least * cellPL);
    const Float pR = Max(states.PRight[i], least * cellPR);
    const Float growthL = one + (pL - cellPL) / (gamma * cellPL);
    const Float growthR = one + (pR - cellPR) / (gamma * cellPR);
    const Float rhoL = cellRhoL * Clamp(least, growthL, most);
    const Float rhoR = cellRhoR * Clamp(least, growthR, most);
    const Float uL = states.UxLeft[i];
    const Float uR = states.UxRight[i];
    const Float zL = cells.Impedance[i - 1];
    const Float zR = cells.Impedance[i];

    const EdgeStar<Float> met = MeetAsShocks<Float>(
        {rhoL, pL, uL, zL, zL * zL}, {rhoR, pR, uR, zR, zR * zR}, halfPlus, halfMinus);
    const Float zero = Float(0);
    return {Select(met.AcousticP < zero, zero, met.P), met.Ux, met.AcousticP};
}

// Solves the Riemann problems at edges first..last, a whole number of chunks.
template <typename Float>
[[gnu::flatten]] void MoveEdges(StripState<Float> strip, const CellRows<Float>& cells,
                                const SoundStates<Float>& states, Float gamma,
                                EdgeMotion<Float>& motion, int first, int last, WorkDone& work) {
    const auto isStrong = [&](int i) { return !IsWeakEdge(strip, states, i); };
    const auto move = [&](int i) {
        const bool weak = IsWeakEdge(strip, states, i);
        const EdgeStar<Float> a = MoveWeakEdge(cells, states, i);
        const EdgeStar<Float> b = MoveStrongEdge(strip, cells, states, gamma, i);
        motion.P[i] = Select(weak, a.P, b.P);
        motion.Ux[i] = Select(weak, a.Ux, b.Ux);
    };
    const auto moveWeak = [&](int i) {
        const EdgeStar<Float> a = MoveWeakEdge(cells, states, i);
        motion.P[i] = a.P;
        motion.Ux[i] = a.Ux;
    };
    work.Add(Work::StrongEdge, RunWhereNeeded<Float>(first, last, isStrong, move, moveWeak));
}

// Moves cells first..last between their edges. Each is seen by an observer who moves with the gas
// that it held: momentum and energy then enter as differences from rest.
template <typename Float>
void MoveCells(const StripState<Float>& strip, const CellRows<Float>& cells,
               const EdgeMotion<Float>& motion, Float gamma, MovedCells<Float>& moved, int first,
               int last) {
    const Float half = Float(0.5);
    const Float one = Float(1);
    const Float gammaLess = gamma - one;
    const Float* u = motion.Ux.Origin();
    const Float* push = motion.P.Origin();
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float ratio = cells.StepPerWidth[i];
        const Float pL = push[i];
        const Float pR = push[i + 1];
        const Float driftL = u[i] - strip.Ux[i];
        const Float driftR = u[i + 1] - strip.Ux[i];
        const Float width = Max(one + ratio * (u[i + 1] - u[i]), Opaque(LeastWidth<Float>));
        const Float perWidth = one / width;
        const Float momentum = ratio * (pL - pR);
        const Float change = cells.StepPerMass[i] * (pL - pR);
        const Float work = ratio * (pL * driftL - pR * driftR);
        const Float heat = strip.P[i] + gammaLess * (work - half * (momentum * change));
        moved.Rho[i] = perWidth * strip.Rho[i];
        moved.P[i] = Max(perWidth * heat, LeastPressure<Float> * strip.P[i]);
        moved.Ux[i] = strip.Ux[i] + change;
        moved.StepPerWidth[i] = ratio * perWidth;
    }
}
