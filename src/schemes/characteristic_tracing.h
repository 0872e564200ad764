// States on either side of the edges, averaged over the part of the cells from which each kind of
// wave reaches the edge during the step. J. Comput. Phys. 54, 174 (1984), section 3.
#pragma once

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
inline Float SweptShare(Float speed, Float rise, Float stepPerWidth) {
    const Float atEdge = speed + rise * (Float(0.5) - Float(0.75) * (speed * stepPerWidth));
    return Between(Float(0), atEdge * stepPerWidth, Float(1));
}

// Traces cells first..last: their right faces give the left states of edges first+1..last+1, their
// left faces the right states of edges first..last. Interpolation and limits work on the three
// characteristic variables of the cell, p + z u, p - z u and c c rho - p, with z = rho c and c
// fixed in the cell. A wave that does not reach the face is given what the fastest one brings, so
// that it adds nothing of its own.
//   soundSpeed   in: cells first-1..last+1
// Reads cells first-2..last+2 of the strip.
template <typename Float>
void TraceStates(const StripState<Float>& strip, const Row<Float>& soundSpeed,
                 const Row<Float>& stepPerWidth, const Row<Float>& steepness,
                 EdgeStates<Float>& states, int first, int last) {
    const Float half = Float(0.5);
    const Float* __restrict rho = strip.Rho;
    const Float* __restrict p = strip.P;
    const Float* __restrict u = strip.Ux;
    const Float* __restrict cRow = soundSpeed.Origin();
    const Float* __restrict ratioRow = stepPerWidth.Origin();
    const Float* __restrict steepRow = steepness.Origin();
    Float* __restrict rhoL = states.RhoLeft.Origin();
    Float* __restrict pL = states.PLeft.Origin();
    Float* __restrict uL = states.UxLeft.Origin();
    Float* __restrict rhoR = states.RhoRight.Origin();
    Float* __restrict pR = states.PRight.Origin();
    Float* __restrict uR = states.UxRight.Origin();
    for (int i = first; i <= last; ++i) {
        const Float c = cRow[i];
        const Float z = rho[i] * c;
        const Float perZ = Float(1) / z;
        const Float square = c * c;
        const Float perSquare = (perZ * rho[i]) * (perZ * rho[i]);

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
        const Float steep = steepRow[i];
        const Parabola<Float> plus = LimitedParabola(p1 + u1, p2 + u2, p3 + u3, p4 + u4);
        const Parabola<Float> minus = LimitedParabola(p1 - u1, p2 - u2, p3 - u3, p4 - u4);
        const Parabola<Float> zero = LimitedParabola(r1 - p1, r2 - p2, r3 - p3, r4 - p4);

        const Float ratio = ratioRow[i];
        const Float riseU = half * (u[i + 1] - u[i - 1]);
        const Float riseC = half * (cRow[i + 1] - cRow[i - 1]);
        {
            const Float sharePlus = SweptShare(u[i] + c, riseU + riseC, ratio);
            const Float shareMinus = SweptShare(u[i] - c, riseU - riseC, ratio);
            const Float shareZero = SweptShare(u[i], riseU, ratio);
            const Float reach = Choose(u[i] > c, shareMinus, sharePlus);
            const Float a = steep * RightPart(plus, sharePlus);
            const Float b = steep * RightPart(minus, reach);
            const Float dp = half * (a + b);
            pL[i + 1] = p[i] + dp;
            uL[i + 1] = u[i] + (half * perZ) * (a - b);
            rhoL[i + 1] = rho[i] + perSquare * (steep * RightPart(zero, shareZero) + dp);
        }
        {
            const Float sharePlus = SweptShare(-u[i] - c, riseU + riseC, ratio);
            const Float shareMinus = SweptShare(c - u[i], riseU - riseC, ratio);
            const Float shareZero = SweptShare(-u[i], riseU, ratio);
            const Float reach = Choose(-u[i] > c, sharePlus, shareMinus);
            const Float a = steep * LeftPart(plus, reach);
            const Float b = steep * LeftPart(minus, shareMinus);
            const Float dp = half * (a + b);
            pR[i] = p[i] + dp;
            uR[i] = u[i] + (half * perZ) * (a - b);
            rhoR[i] = rho[i] + perSquare * (steep * LeftPart(zero, shareZero) + dp);
        }
    }
}

// Gives the traced densities of cells first..last that hold a contact the jump's profile instead of
// the parabola's, by the share that `jump` says. The pressure is even there, so that the density is
// all that differs.
template <typename Float>
void SteepenContacts(const StripState<Float>& strip, const Row<Float>& stepPerWidth,
                     const Row<Float>& jump, EdgeStates<Float>& states, int first, int last) {
    const Float* __restrict rho = strip.Rho;
    const Float* __restrict u = strip.Ux;
    for (int i = first; i <= last; ++i) {
        const Float riseU = Float(0.5) * (u[i + 1] - u[i - 1]);
        const Float shareR = SweptShare(u[i], riseU, stepPerWidth[i]);
        const Float shareL = SweptShare(-u[i], riseU, stepPerWidth[i]);
        const Float right = rho[i] + PartOfJump(rho[i - 1], rho[i], rho[i + 1], shareR);
        const Float left = rho[i] + PartOfJump(rho[i + 1], rho[i], rho[i - 1], shareL);
        const Float gainR = right - states.RhoLeft[i + 1];
        const Float gainL = left - states.RhoRight[i];
        states.RhoLeft[i + 1] = states.RhoLeft[i + 1] + jump[i] * gainR;
        states.RhoRight[i] = states.RhoRight[i] + jump[i] * gainL;
    }
}
