// Piecewise parabolas from cell averages.
#pragma once

#include "schemes/arithmetic.h"
#include "schemes/strip.h"

// The parabolas of a row of cells, by their rise from the left edge to the average and from the
// average to the right edge. Both are 0 for a constant.
template <typename Float>
struct Parabolas {
    Row<Float> FromLeft;
    Row<Float> ToRight;
};

// The slope of a cell between the differences to its two neighbours: their mean, but at most twice
// the smaller one, and 0 at an extremum.
template <typename Float>
[[gnu::always_inline]] inline Float LimitedSlope(Float left, Float right) {
    const Float mean = Float(0.5) * (left + right);
    const Float bound = Float(2) * Least(Along(left, mean), Along(right, mean));
    return Signed(Most(Least(Size(mean), bound), Float(0)), mean);
}

// The limited parabola of a cell on a grid of equal widths, from the differences between one cell
// and the next: d1 is from the second cell on the left to the first, d4 from the first on the right
// to the second.
//
// The edge values are of fourth order, with limited slopes, and the parabola is monotone:
// J. Comput. Phys. 54, 174 (1984), eqs. (1.6) to (1.10). Where the second differences of the cell
// and both neighbours have one sign and agree within a factor of 1.5, the data are smooth, and
// neither limit applies, so that crests keep their height; the idea is that of J. Comput. Phys.
// 227, 7069 (2008).
template <typename Float>
[[gnu::always_inline]] inline void LimitedParabola(Float d1, Float d2, Float d3, Float d4,
                                                   Float& fromLeft, Float& toRight) {
    const Float half = Float(0.5);
    const Float sixth = Float(1.0 / 6.0);
    const Float bendHere = d3 - d2;
    const Float bendLeft = Along(d2 - d1, bendHere);
    const Float bendRight = Along(d4 - d3, bendHere);
    const Float size = Size(bendHere);
    const Float least = Least(Least(bendLeft, bendRight), size);
    const Float most = Most(Most(bendLeft, bendRight), size);
    const bool smooth = most <= Float(1.5) * least;

    const Float slopeLeft = Choose(smooth, half * (d1 + d2), LimitedSlope(d1, d2));
    const Float slopeHere = Choose(smooth, half * (d2 + d3), LimitedSlope(d2, d3));
    const Float slopeRight = Choose(smooth, half * (d3 + d4), LimitedSlope(d3, d4));
    const Float below = half * d2 + sixth * (slopeHere - slopeLeft);
    const Float above = half * d3 - sixth * (slopeRight - slopeHere);

    // Monotone: of one sign, and neither part more than twice the other.
    const Float belowAlong = Along(below, slopeHere);
    const Float aboveAlong = Along(above, slopeHere);
    const Float belowCut = Most(Least(belowAlong, Float(2) * aboveAlong), Float(0));
    const Float aboveCut = Most(Least(aboveAlong, Float(2) * belowAlong), Float(0));
    const bool flat = slopeHere == Float(0);
    const Float belowLimited = Choose(flat, Float(0), Along(belowCut, slopeHere));
    const Float aboveLimited = Choose(flat, Float(0), Along(aboveCut, slopeHere));
    fromLeft = Choose(smooth, below, belowLimited);
    toRight = Choose(smooth, above, aboveLimited);
}

// Average, less the cell average, over the share nu (0 to 1) of the cell next to its right edge.
template <typename Float>
[[gnu::always_inline]] inline Float RightPart(Float fromLeft, Float toRight, Float nu) {
    return (Float(1) - nu) * (toRight + nu * (fromLeft - toRight));
}

// The same next to its left edge.
template <typename Float>
[[gnu::always_inline]] inline Float LeftPart(Float fromLeft, Float toRight, Float nu) {
    return (Float(1) - nu) * (nu * (fromLeft - toRight) - fromLeft);
}
