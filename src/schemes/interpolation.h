// Piecewise parabolas from cell averages. In cell i the parabola is given by its rise from the left
// edge to the average, fromLeft = a - a(left edge), and from the average to the right edge,
// toRight = a(right edge) - a. Both are 0 for a constant.
#pragma once

#include <algorithm>
#include <cmath>

// Edge values of fourth order, edges first..last, on cells of equal width.
//   a  in: cell averages, cells first-2..last+1
// Where the value would fall outside the two cells beside the edge it is drawn back to what a
// second difference common to the neighbourhood allows: J. Comput. Phys. 227, 7069 (2008), eqs.
// (13)-(18), with the constant 1.25 named there.
template <typename Float>
void EdgeValues(const Float* a, Float* __restrict edge, int first, int last) {
    for (int i = first; i <= last; ++i) {
        const Float l2 = a[i - 2];
        const Float l1 = a[i - 1];
        const Float r1 = a[i];
        const Float r2 = a[i + 1];
        const Float mean = Float(0.5) * (l1 + r1);
        const Float bendLeft = (r1 - l1) - (l1 - l2);
        const Float bendRight = (r2 - r1) - (r1 - l1);
        const Float bend = Float(0.5) * (bendLeft + bendRight);
        // Common bend: the least of three of one sign, else none.
        const Float size =
            std::min(std::min(Float(1.25) * std::abs(bendLeft), Float(1.25) * std::abs(bendRight)),
                     std::abs(bend));
        const bool common = bendLeft * bendRight > Float(0);
        const Float limited = common ? std::copysign(size, bend) : Float(0);
        const Float sixth = Float(1) / Float(6);
        const Float value = mean - sixth * bend;
        const bool inside = (value - l1) * (r1 - value) >= Float(0);
        edge[i] = inside ? value : mean - sixth * limited;
    }
}

// Limited parabolas of cells first..last.
//   a       in:  cell averages, cells first-2..last+2
//   edge    in:  edge values, edges first..last+1
//   steep   in:  1 where the parabola may stand, down to 0 where the cell is to be flat
//   fromLeft, toRight   out: cells first..last
// At a smooth crest the parabola keeps the bend that the neighbours share (same paper, eqs. (22) to
// (24)); elsewhere it is made monotone as in J. Comput. Phys. 54, 174 (1984), eq. (1.10).
template <typename Float>
void LimitedParabolas(const Float* a, const Float* edge, const Float* steep,
                      Float* __restrict fromLeft, Float* __restrict toRight, int first, int last) {
    for (int i = first; i <= last; ++i) {
        const Float below = a[i] - edge[i];
        const Float above = edge[i + 1] - a[i];

        // Monotone: neither part may be more than twice the other.
        const Float belowSize = std::abs(below);
        const Float aboveSize = std::abs(above);
        const Float belowCut = std::copysign(std::min(belowSize, Float(2) * aboveSize), below);
        const Float aboveCut = std::copysign(std::min(aboveSize, Float(2) * belowSize), above);

        // Crest: the part of its bend that four second differences agree on.
        const Float bend = Float(6) * (above - below);
        const Float bendHere = (a[i + 1] - a[i]) - (a[i] - a[i - 1]);
        const Float bendLeft = (a[i] - a[i - 1]) - (a[i - 1] - a[i - 2]);
        const Float bendRight = (a[i + 2] - a[i + 1]) - (a[i + 1] - a[i]);
        const Float shared =
            Float(1.25) *
            std::min(std::min(std::abs(bendLeft), std::abs(bendRight)), std::abs(bendHere));
        const Float size = std::abs(bend);
        const bool common = (bend * bendHere > Float(0)) & (bendLeft * bendHere > Float(0)) &
                            (bendRight * bendHere > Float(0));
        const Float kept = common ? (shared < size ? shared / size : Float(1)) : Float(0);

        const bool crest =
            (below * above <= Float(0)) | ((a[i + 1] - a[i]) * (a[i] - a[i - 1]) <= Float(0));
        fromLeft[i] = steep[i] * (crest ? kept * below : belowCut);
        toRight[i] = steep[i] * (crest ? kept * above : aboveCut);
    }
}
