// From the argument lists of the entry points to the records that the kernels work on.
#pragma once

#include <algorithm>

#include "schemes/strip.h"

// Rows as the full scheme receives them are 25 of equal content; this is the place of the middle
// one.
constexpr int MiddleRow = 12;

// The strip from the first elements of its arrays: element 0 is cell 1 - boundary.
template <typename Float>
StripState<Float> StripAt(const Float* edges, const Float* rho, const Float* p, const Float* ux,
                          const Float* uy, const Float* smoke, int width, int boundary) {
    const int origin = boundary - 1;
    return {edges + origin, rho + origin, p + origin,
            ux + origin,    uy + origin,  smoke ? smoke + origin : nullptr,
            width};
}

template <typename Float>
StripResult<Float> ResultAt(Float* rho, Float* p, Float* ux, Float* uy, Float* smoke,
                            int boundary) {
    const int origin = boundary - 1;
    return {rho + origin, p + origin, ux + origin, uy + origin, smoke ? smoke + origin : nullptr};
}

// The same strip without the cells at its end that lie past the neighbour zone of the grid: there
// the edges cease to rise and density and pressure are 0. What remains are cells of the grid, each
// with its neighbours. At least one cell is left.
template <typename Float>
StripState<Float> WithinGrid(StripState<Float> strip, int boundary) {
    int last = strip.Cells + boundary;
    const auto isCell = [&](int i) {
        return strip.Edges[i + 1] > strip.Edges[i] && strip.Rho[i] > Float(0) &&
               strip.P[i] > Float(0);
    };
    while (last > 1 + boundary && !isCell(last)) --last;
    strip.Cells = last - boundary;
    return strip;
}
