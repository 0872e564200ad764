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

// Second differences that agree within this factor are smooth and not limited. The idea is that of
// J. Comput. Phys. 227, 7069 (2008); found by trial.
template <typename Float>
constexpr Float SmoothRatio = Float(1.5);

// The differences between one cell and the next around a cell on a grid of equal widths: First is
// from the second cell on the left to the first, Fourth from the first on the right to the second.
template <typename Float>
struct Differences {
    Float First, Second, Third, Fourth;

    // Whether the second differences of the cell and both neighbours have one sign and agree within
    // SmoothRatio. Such data need no limits, so that crests keep their height.
    [[gnu::always_inline]] bool AreSmooth() const {
        const Float here = Third - Second;
        const Float left = Along(Second - First, here);
        const Float right = Along(Fourth - Third, here);
        const Float least = Min(Min(left, right), Abs(here));
        const Float most = Max(Max(left, right), Abs(here));
        return most <= SmoothRatio<Float> * least;
    }
    // The rises of the parabola through the edge values of fourth order.
    [[gnu::always_inline]] Float SmoothFromLeft() const {
        return Float(0.5) * Second + Float(1.0 / 12.0) * (Third - First);
    }
    [[gnu::always_inline]] Float SmoothToRight() const {
        return Float(0.5) * Third - Float(1.0 / 12.0) * (Fourth - Second);
    }
};

// The parabola of a cell: as above where the data are smooth; elsewhere the edge values are made of
// limited slopes, and the parabola is monotone: J. Comput. Phys. 54, 174 (1984), eqs. (1.6) to
// (1.10).
template <typename Float>
[[gnu::always_inline]] inline void LimitedParabola(const Differences<Float>& d, Float& fromLeft,
                                                   Float& toRight) {
    const Float half = Float(0.5);
    const Float two = Float(2);
    const Float sixth = Float(1.0 / 6.0);
    // Differences along the way that the cell rises. Of its own two, one is below 0 at an extremum;
    // what comes of it is cut to 0 at the end.
    const Float rise = d.Second + d.Third;
    const Float along1 = Along(d.First, rise);
    const Float along2 = Along(d.Second, rise);
    const Float along3 = Along(d.Third, rise);
    const Float along4 = Along(d.Fourth, rise);
    // Slopes: the mean of two differences, but at most twice the smaller, and 0 at an extremum.
    const Float slopeLeft = NonNegative(Min(half * (along1 + along2), two * Min(along1, along2)));
    const Float slopeHere = Min(half * Abs(rise), two * Min(along2, along3));
    const Float slopeRight = NonNegative(Min(half * (along3 + along4), two * Min(along3, along4)));
    const Float below = half * along2 + sixth * (slopeHere - slopeLeft);
    const Float above = half * along3 - sixth * (slopeRight - slopeHere);
    // Monotone: neither part more than twice the other.
    const Float belowCut = Along(NonNegative(Min(below, two * above)), rise);
    const Float aboveCut = Along(NonNegative(Min(above, two * below)), rise);
    const bool smooth = d.AreSmooth();
    fromLeft = Select(smooth, d.SmoothFromLeft(), belowCut);
    toRight = Select(smooth, d.SmoothToRight(), aboveCut);
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
