// States on either side of the edges, averaged over the part of the cells from which each kind of
// wave reaches the edge during the step. J. Comput. Phys. 54, 174 (1984), section 3.
#pragma once

#include <algorithm>

#include "schemes/strip.h"

// Average, less the cell average, over the share nu (0 to 1) of the cell next to its right edge.
template <typename Float>
inline Float RightPart(Float fromLeft, Float toRight, Float nu) {
    return (Float(1) - nu) * (toRight + nu * (fromLeft - toRight));
}

// The same next to its left edge.
template <typename Float>
inline Float LeftPart(Float fromLeft, Float toRight, Float nu) {
    return -((Float(1) - nu) * (fromLeft + nu * (toRight - fromLeft)));
}

// The limited parabolas of one variable.
template <typename Float>
struct Parabolas {
    Row<Float> FromLeft;
    Row<Float> ToRight;
};

// The states on the two sides of each edge.
template <typename Float>
struct EdgeStates {
    Row<Float> RhoLeft, PLeft, UxLeft;
    Row<Float> RhoRight, PRight, UxRight;
};

// The share of a cell that a signal of this speed sweeps, 0 if it runs the other way.
template <typename Float>
inline Float Share(Float speed, Float stepPerWidth) {
    return std::min(std::max(speed * stepPerWidth, Float(0)), Float(1));
}

// Traces cells first..last: their right faces give the left states of edges first+1..last+1, their
// left faces the right states of edges first..last.
//   c             in: sound speed of the cells
//   stepPerWidth  in: time step over cell width
template <typename Float>
void TraceStates(const StripState<Float>& strip, const Parabolas<Float>& rho,
                 const Parabolas<Float>& p, const Parabolas<Float>& u, const Row<Float>& soundSpeed,
                 const Row<Float>& stepPerWidth, EdgeStates<Float>& states, int first, int last) {
    const Float half = Float(0.5);
    for (int i = first; i <= last; ++i) {
        const Float c = soundSpeed[i];
        const Float z = strip.Rho[i] * c;
        const Float ratio = stepPerWidth[i];
        const Float speed = strip.Ux[i];

        const Float plusR = Share(speed + c, ratio);
        const Float zeroR = Share(speed, ratio);
        const Float minusR = Share(speed - c, ratio);
        const Float plusL = Share(-speed - c, ratio);
        const Float zeroL = Share(-speed, ratio);
        const Float minusL = Share(c - speed, ratio);

        const Float pl = p.FromLeft[i];
        const Float pr = p.ToRight[i];
        const Float ul = u.FromLeft[i];
        const Float ur = u.ToRight[i];
        const Float rl = rho.FromLeft[i];
        const Float rr = rho.ToRight[i];

        {
            const Float plus = RightPart(pl, pr, plusR) + z * RightPart(ul, ur, plusR);
            const Float minus = RightPart(pl, pr, minusR) - z * RightPart(ul, ur, minusR);
            const Float dp = half * (plus + minus);
            const Float entropy = c * c * RightPart(rl, rr, zeroR) - RightPart(pl, pr, zeroR);
            states.PLeft[i + 1] = strip.P[i] + dp;
            states.UxLeft[i + 1] = strip.Ux[i] + half * (plus - minus) / z;
            states.RhoLeft[i + 1] = strip.Rho[i] + (entropy + dp) / (c * c);
        }
        {
            const Float plus = LeftPart(pl, pr, plusL) + z * LeftPart(ul, ur, plusL);
            const Float minus = LeftPart(pl, pr, minusL) - z * LeftPart(ul, ur, minusL);
            const Float dp = half * (plus + minus);
            const Float entropy = c * c * LeftPart(rl, rr, zeroL) - LeftPart(pl, pr, zeroL);
            states.PRight[i] = strip.P[i] + dp;
            states.UxRight[i] = strip.Ux[i] + half * (plus - minus) / z;
            states.RhoRight[i] = strip.Rho[i] + (entropy + dp) / (c * c);
        }
    }
}
