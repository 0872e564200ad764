// One strip of the grid as the kernels see it. Kernels take it by value: pointers that a loop would
// have to look up anew keep it from using vectors. Pointers are origins: p[i] is the value of strip
// cell i, real cells being 1 to Cells, and edge i lies between cells i-1 and i.
#pragma once

#include <algorithm>
#include <cstddef>

#include "schemes/arithmetic.h"
#include "schemes/chunks.h"
#include "schemes/operation_counts.h"

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
    Float Difcon = Float(0);
    Float Shkjmp = Float(0);
    Float Wavhaf = Float(0);
};

// Wider strips are advanced in blocks of at most this many cells, so that the rows of a block stay
// in the first-level cache.
template <typename Float>
constexpr int BlockCells = static_cast<int>(1024 / sizeof(Float));

// One row of scratch values: cells (or edges) -18 to BlockCells + 47. Cell -2, with which the
// chunks of cells begin, lies on a cache line of its own. Rows fill an odd number of lines, so that
// rows that are worked on together do not meet in the same few places of the cache.
template <typename Float>
class alignas(64) Row {
public:
    Float* Origin() { return values_ + Before; }
    const Float* Origin() const { return values_ + Before; }
    Float& operator[](int i) { return values_[Before + i]; }
    const Float& operator[](int i) const { return values_[Before + i]; }

private:
    static constexpr int Before = CellsAtOnce + 2;
    Float values_[Before + BlockCells<Float> + 3 * CellsAtOnce];
};

// The inputs of a block, each row continued past its end.
template <typename Float>
struct InputRows {
    Row<Float> Edges, Rho, P, Ux, Uy, Smoke;
};

// Copies cells 1-NeighbourCells..cells+NeighbourCells of a row and repeats the last one as far as
// padded kernels read.
template <typename Float>
const Float* CopyRow(const Float* from, int cells, Row<Float>& row) {
    const int last = cells + NeighbourCells;
#pragma omp simd
    for (int i = 1 - NeighbourCells; i <= last; ++i) row[i] = from[i];
    for (int i = last + 1; i <= last + CellsAtOnce; ++i) row[i] = from[last];
    return row.Origin();
}

// The same for edges, of which there is one more; cells of the last one's width follow.
template <typename Float>
const Float* CopyEdges(const Float* from, int cells, Row<Float>& row) {
    const int last = cells + NeighbourCells;
#pragma omp simd
    for (int i = 1 - NeighbourCells; i <= last + 1; ++i) row[i] = from[i];
    const Float width = from[last + 1] - from[last];
    for (int i = last + 2; i <= last + 1 + CellsAtOnce; ++i) row[i] = row[i - 1] + width;
    return row.Origin();
}

template <typename Float>
StripState<Float> CopyStrip(const StripState<Float>& strip, InputRows<Float>& rows) {
    const int n = strip.Cells;
    return {CopyEdges(strip.Edges, n, rows.Edges),
            CopyRow(strip.Rho, n, rows.Rho),
            CopyRow(strip.P, n, rows.P),
            CopyRow(strip.Ux, n, rows.Ux),
            CopyRow(strip.Uy, n, rows.Uy),
            strip.Smoke ? CopyRow(strip.Smoke, n, rows.Smoke) : nullptr,
            n};
}

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

// Advances the strip block by block with advance(block, its result, work done), and returns the
// largest of the blocks' Courant numbers. What was done is counted at the given costs.
template <typename Float, typename Advance>
Float AdvanceInBlocks(const StripState<Float>& strip, const StripResult<Float>& result,
                      std::span<const WorkCost> costs, int* counters, Advance advance) {
    Float courant = Float(0);
    for (int offset = 0; offset < strip.Cells; offset += BlockCells<Float>) {
        const int cells = std::min(BlockCells<Float>, strip.Cells - offset);
        WorkDone work = {cells};
        courant = Max(courant, advance(Block(strip, offset, cells), Block(result, offset), work));
        CountOperations(work, CommonCosts, counters);
        CountOperations(work, costs, counters);
    }
    return courant;
}
