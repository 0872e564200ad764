// Piecewise parabolas from averages over cells of unequal width. J. Comput. Phys. 54, 174 (1984),
// eqs. (1.6) to (1.10).
#pragma once

#include "schemes/arithmetic.h"
#include "schemes/parabola.h"

// Widths that differ from those of the two cells on either side by less than this share count as
// equal: positions in 32 bits do not tell them better apart on fine grids. The error of equal-width
// formulas is then far below that of the scheme.
template <typename Float>
constexpr Float EvenWidths = Float(0.01);

// The slope of a cell per its own width, as a sum of the differences to its neighbours: eq. (1.7).
template <typename Float>
struct SlopeWeights {
    Float Left, Right;

    [[gnu::always_inline]] SlopeWeights(Float widthLeft, Float width, Float widthRight) {
        const Float share = width / ((widthLeft + widthRight) + width);
        Left = share * (width + Float(2) * widthRight) / (widthLeft + width);
        Right = share * (width + Float(2) * widthLeft) / (widthRight + width);
    }
    [[gnu::always_inline]] Float Slope(Float left, Float right) const {
        return Left * left + Right * right;
    }
};

// The slope, limited: at most twice the smaller difference, and 0 at an extremum. Eq. (1.8).
template <typename Float>
[[gnu::always_inline]] inline Float LimitedSlope(Float slope, Float left, Float right) {
    const Float least = Min(Along(left, slope), Along(right, slope));
    return CopySign(NonNegative(Min(Abs(slope), Float(2) * least)), slope);
}

// The rise from a cell's average to its edge with the next cell, as a sum of the difference between
// the two and of their slopes: eq. (1.6). `behind` is the width of the neighbour on the cell's
// other side, `beyond` that of the neighbour's neighbour.
template <typename Float>
struct EdgeWeights {
    Float Difference, SlopeHere, SlopeNext;

    [[gnu::always_inline]] EdgeWeights(Float behind, Float here, Float next, Float beyond) {
        const Float perAll = Float(1) / ((behind + here) + (next + beyond));
        const Float before = (behind + here) / (Float(2) * here + next);
        const Float after = (beyond + next) / (Float(2) * next + here);
        const Float share = here / (here + next);
        Difference = share + Float(2) * perAll * next * share * (before - after);
        SlopeHere = perAll * next * after;
        SlopeNext = -(perAll * here * before);
    }
    [[gnu::always_inline]] Float Rise(Float difference, Float slopeHere, Float slopeNext) const {
        return Difference * difference + (SlopeHere * slopeHere + SlopeNext * slopeNext);
    }
};

// The weights of a cell, from the widths of it and of the two cells on either side.
template <typename Float>
struct UnevenStencil {
    SlopeWeights<Float> SlopeLeft, SlopeHere, SlopeRight;
    EdgeWeights<Float> EdgeLeft, EdgeRight;
    // 1 over the distances between the centres, but for a factor of 2
    Float PerFirst, PerSecond, PerThird, PerFourth;

    [[gnu::always_inline]] UnevenStencil(Float w1, Float w2, Float w3, Float w4, Float w5)
        : SlopeLeft(w1, w2, w3),
          SlopeHere(w2, w3, w4),
          SlopeRight(w3, w4, w5),
          EdgeLeft(w4, w3, w2, w1),
          EdgeRight(w2, w3, w4, w5),
          PerFirst(Float(1) / (w1 + w2)),
          PerSecond(Float(1) / (w2 + w3)),
          PerThird(Float(1) / (w3 + w4)),
          PerFourth(Float(1) / (w4 + w5)) {}

    // The parabola of the cell: not limited where the data are smooth, elsewhere made of limited
    // slopes and monotone.
    [[gnu::always_inline]] void Parabola(const Differences<Float>& d, Float& fromLeft,
                                         Float& toRight) const {
        const Float left = SlopeLeft.Slope(d.First, d.Second);
        const Float here = SlopeHere.Slope(d.Second, d.Third);
        const Float right = SlopeRight.Slope(d.Third, d.Fourth);
        const Float cutLeft = LimitedSlope(left, d.First, d.Second);
        const Float cutHere = LimitedSlope(here, d.Second, d.Third);
        const Float cutRight = LimitedSlope(right, d.Third, d.Fourth);
        const Float rise = d.Second + d.Third;
        const Float below = Along(EdgeLeft.Rise(d.Second, cutHere, cutLeft), rise);
        const Float above = Along(EdgeRight.Rise(d.Third, cutHere, cutRight), rise);
        const Float belowCut = Along(NonNegative(Min(below, Float(2) * above)), rise);
        const Float aboveCut = Along(NonNegative(Min(above, Float(2) * below)), rise);
        const Differences<Float> gradients = {d.First * PerFirst, d.Second * PerSecond,
                                              d.Third * PerThird, d.Fourth * PerFourth};
        const bool smooth = gradients.AreSmooth();
        fromLeft = Select(smooth, EdgeLeft.Rise(d.Second, here, left), belowCut);
        toRight = Select(smooth, EdgeRight.Rise(d.Third, here, right), aboveCut);
    }
};
