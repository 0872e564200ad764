// One strip of the grid as the kernels see it. Pointers are origins: p[i] is the value of strip
// cell i, real cells being 1 to Cells, and edge i lies between cells i-1 and i.
#pragma once

#include <algorithm>
#include <cstddef>

// Width of the neighbour zones on either side that the entry points are given.
constexpr int NeighbourCells = 6;

template <typename Float>
struct StripState {
    const Float* Edges;
    const Float* Rho;
    const Float* P;
    const Float* Ux;
    const Float* Uy;
    const Float* Smoke;  // null for a scheme that carries none
    int Cells;
};

template <typename Float>
struct StripResult {
    Float* Rho;
    Float* P;
    Float* Ux;
    Float* Uy;
    Float* Smoke;  // null for a scheme that carries none
};

// The numbers that come with a call. The three constants at the end belong to Kestrel alone.
template <typename Float>
struct StepConstants {
    Float TimeStep;
    Float Gamma;
    Float RhoFloor;
    Float AuxFloor;
    Float PFloor;
    Float VFloor;
    Float Difcon;
    Float Shkjmp;
    Float Wavhaf;
};

// Wider strips are advanced in blocks of at most this many cells, so that the rows of a block stay
// in the first-level cache.
template <typename Float>
constexpr int BlockCells = static_cast<int>(1024 / sizeof(Float));

// One row of scratch values: cells (or edges) -7 to BlockCells + 8.
template <typename Float>
class Row {
public:
    Float* Origin() { return values_ + Before; }
    const Float* Origin() const { return values_ + Before; }
    Float& operator[](int i) { return values_[Before + i]; }
    const Float& operator[](int i) const { return values_[Before + i]; }

private:
    static constexpr int Before = 8;
    alignas(64) Float values_[Before + BlockCells<Float> + 8];
};

// The strip from its cell first on, cut to the given number of cells.
template <typename Float>
StripState<Float> Block(const StripState<Float>& strip, int offset, int cells) {
    return {strip.Edges + offset,
            strip.Rho + offset,
            strip.P + offset,
            strip.Ux + offset,
            strip.Uy + offset,
            strip.Smoke ? strip.Smoke + offset : nullptr,
            cells};
}
template <typename Float>
StripResult<Float> Block(const StripResult<Float>& strip, int offset) {
    return {strip.Rho + offset, strip.P + offset, strip.Ux + offset, strip.Uy + offset,
            strip.Smoke ? strip.Smoke + offset : nullptr};
}
