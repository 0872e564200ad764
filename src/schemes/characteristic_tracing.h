// States on either side of the edges, averaged over the part of the cells from which each kind of
// wave reaches the edge during the step. J. Comput. Phys. 54, 174 (1984), section 3.
#pragma once

#include "schemes/cell_preparation.h"
#include "schemes/jump_steepening.h"
#include "schemes/parabola.h"
#include "schemes/strip.h"

// The states on the two sides of each edge.
template <typename Float>
struct EdgeStates {
    Row<Float> RhoLeft, PLeft, UxLeft;
    Row<Float> RhoRight, PRight, UxRight;
};

// The share of a cell, 0 to 1, that a kind of wave with the given outward speed at the cell's
// centre carries through an edge. `rise` is the change of that speed across the cell toward the
// edge. Moving the speed from the centre to the edge, and back by three quarters of what the wave
// sweeps, makes the flux of a simple wave right to third order in the step.
template <typename Float>
[[gnu::always_inline]] inline Float SweptShare(Float speed, Float rise, Float stepPerWidth) {
    const Float atEdge = speed + rise * (Float(0.5) - Float(0.75) * (speed * stepPerWidth));
    return Between(Float(0), atEdge * stepPerWidth, Float(1));
}

// The parabolas of the three characteristic variables of each cell: p + z u, p - z u and c c rho -
// p, with z = rho c and c fixed in the cell.
template <typename Float>
struct CharacteristicParabolas {
    Parabolas<Float> Plus, Minus, Zero;
};

// Interpolates and limits cells first..last. Reads cells first-2..last+2 of the strip.
template <typename Float>
void InterpolateCharacteristics(const StripState<Float>& strip, const CellRows<Float>& cells,
                                CharacteristicParabolas<Float>& parabolas, int first, int last) {
    const Float* rho = strip.Rho;
    const Float* p = strip.P;
    const Float* u = strip.Ux;
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float z = cells.Impedance[i];
        const Float square = cells.SoundSpeed[i] * cells.SoundSpeed[i];
        const Float p1 = p[i - 1] - p[i - 2];
        const Float p2 = p[i] - p[i - 1];
        const Float p3 = p[i + 1] - p[i];
        const Float p4 = p[i + 2] - p[i + 1];
        const Float u1 = z * (u[i - 1] - u[i - 2]);
        const Float u2 = z * (u[i] - u[i - 1]);
        const Float u3 = z * (u[i + 1] - u[i]);
        const Float u4 = z * (u[i + 2] - u[i + 1]);
        const Float r1 = square * (rho[i - 1] - rho[i - 2]);
        const Float r2 = square * (rho[i] - rho[i - 1]);
        const Float r3 = square * (rho[i + 1] - rho[i]);
        const Float r4 = square * (rho[i + 2] - rho[i + 1]);
        LimitedParabola(p1 + u1, p2 + u2, p3 + u3, p4 + u4, parabolas.Plus.FromLeft[i],
                        parabolas.Plus.ToRight[i]);
        LimitedParabola(p1 - u1, p2 - u2, p3 - u3, p4 - u4, parabolas.Minus.FromLeft[i],
                        parabolas.Minus.ToRight[i]);
        LimitedParabola(r1 - p1, r2 - p2, r3 - p3, r4 - p4, parabolas.Zero.FromLeft[i],
                        parabolas.Zero.ToRight[i]);
    }
}

// Traces cells first..last: their right faces give the left states of edges first+1..last+1, their
// left faces the right states of edges first..last. A wave that does not reach the face is given
// what the fastest one brings, so that it adds nothing of its own.
template <typename Float>
void TraceStates(const StripState<Float>& strip, const CellRows<Float>& cells,
                 const Row<Float>& steepness, const CharacteristicParabolas<Float>& parabolas,
                 EdgeStates<Float>& states, int first, int last) {
    const Float half = Float(0.5);
    const Float* rho = strip.Rho;
    const Float* p = strip.P;
    const Float* u = strip.Ux;
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float c = cells.SoundSpeed[i];
        const Float perZ = cells.PerImpedance[i];
        const Float perSquare = (perZ * rho[i]) * (perZ * rho[i]);
        const Float plusBelow = parabolas.Plus.FromLeft[i];
        const Float plusAbove = parabolas.Plus.ToRight[i];
        const Float minusBelow = parabolas.Minus.FromLeft[i];
        const Float minusAbove = parabolas.Minus.ToRight[i];
        const Float zeroBelow = parabolas.Zero.FromLeft[i];
        const Float zeroAbove = parabolas.Zero.ToRight[i];
        const Float steep = steepness[i];
        const Float ratio = cells.StepPerWidth[i];
        const Float riseU = half * (u[i + 1] - u[i - 1]);
        const Float riseC = half * (cells.SoundSpeed[i + 1] - cells.SoundSpeed[i - 1]);
        const Float plusRise = riseU + riseC;
        const Float minusRise = riseU - riseC;

        const Float plusOut = SweptShare(u[i] + c, plusRise, ratio);
        const Float minusOut = SweptShare(u[i] - c, minusRise, ratio);
        const Float zeroOut = SweptShare(u[i], riseU, ratio);
        const Float rightA = steep * RightPart(plusBelow, plusAbove, plusOut);
        const Float rightB =
            steep * RightPart(minusBelow, minusAbove, Choose(u[i] > c, minusOut, plusOut));
        const Float rightP = half * (rightA + rightB);
        states.PLeft[i + 1] = p[i] + rightP;
        states.UxLeft[i + 1] = u[i] + (half * perZ) * (rightA - rightB);
        states.RhoLeft[i + 1] =
            rho[i] + perSquare * (steep * RightPart(zeroBelow, zeroAbove, zeroOut) + rightP);

        const Float plusIn = SweptShare(-u[i] - c, plusRise, ratio);
        const Float minusIn = SweptShare(c - u[i], minusRise, ratio);
        const Float zeroIn = SweptShare(-u[i], riseU, ratio);
        const Float leftA =
            steep * LeftPart(plusBelow, plusAbove, Choose(-u[i] > c, plusIn, minusIn));
        const Float leftB = steep * LeftPart(minusBelow, minusAbove, minusIn);
        const Float leftP = half * (leftA + leftB);
        states.PRight[i] = p[i] + leftP;
        states.UxRight[i] = u[i] + (half * perZ) * (leftA - leftB);
        states.RhoRight[i] =
            rho[i] + perSquare * (steep * LeftPart(zeroBelow, zeroAbove, zeroIn) + leftP);
    }
}

// Gives the traced densities of cells first..last that hold a contact the jump's profile instead of
// the parabola's, by the share that `jump` says. The pressure is even there, so that the density is
// all that differs.
template <typename Float>
void SteepenContacts(const StripState<Float>& strip, const CellRows<Float>& cells,
                     const Row<Float>& jump, EdgeStates<Float>& states, int first, int last) {
    const Float* rho = strip.Rho;
    const Float* u = strip.Ux;
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float riseU = Float(0.5) * (u[i + 1] - u[i - 1]);
        const Float shareR = SweptShare(u[i], riseU, cells.StepPerWidth[i]);
        const Float shareL = SweptShare(-u[i], riseU, cells.StepPerWidth[i]);
        const Float right = rho[i] + PartOfJump(rho[i - 1], rho[i], rho[i + 1], shareR);
        const Float left = rho[i] + PartOfJump(rho[i + 1], rho[i], rho[i - 1], shareL);
        const Float gainR = right - states.RhoLeft[i + 1];
        const Float gainL = left - states.RhoRight[i];
        states.RhoLeft[i + 1] = states.RhoLeft[i + 1] + jump[i] * gainR;
        states.RhoRight[i] = states.RhoRight[i] + jump[i] * gainL;
    }
}
