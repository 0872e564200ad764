// Shocks, and the flattening of the parabolas inside them.
#pragma once

#include <algorithm>
#include <cmath>

// How steep the parabolas of cells first..last may be: 1 away from shocks, down to 0 inside a shock
// that is thinner than the grid can hold. J. Comput. Phys. 54, 174 (1984), appendix, eqs. (A.1) and
// (A.2).
//   p, u    in:  pressure and velocity, cells first-3..last+3
//   steep   out: cells first..last
//   raw     scratch, cells first-1..last+1
template <typename Float>
void Flattening(const Float* p, const Float* u, Float shockJump, Float* __restrict raw,
                Float* __restrict steep, int first, int last) {
    for (int i = first - 1; i <= last + 1; ++i) {
        const Float near = p[i + 1] - p[i - 1];
        const Float far = p[i + 2] - p[i - 2];
        const Float least = std::min(p[i + 1], p[i - 1]);
        const bool shock = (std::abs(near) > shockJump * least) & (u[i - 1] - u[i + 1] > Float(0));
        // The share of the jump that falls on two cells: 1/2 for a straight line, 1 for a jump.
        const Float size = std::abs(far);
        const Float share = std::abs(near) < size ? std::abs(near) / size : Float(1);
        const Float flat =
            std::min(std::max((share - Float(0.75)) * Float(10), Float(0)), Float(1));
        raw[i] = shock ? flat : Float(0);
    }
    for (int i = first; i <= last; ++i)
        steep[i] = Float(1) - std::max(raw[i], std::max(raw[i - 1], raw[i + 1]));
}
