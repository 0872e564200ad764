// Loops over chunks of cells. Work that only some flows need is done only in the chunks that need
// it; which ones those are never shows in the result. Functions that hand kernels to these loops
// are marked [[gnu::flatten]]: a kernel that is not inlined is not vectorized.
#pragma once

#include <cstdint>
#include <type_traits>

// Kernels run over whole chunks of this many cells, so that no vector is half full. What they
// compute past the last cell is never used.
constexpr int CellsAtOnce = 16;

// The last cell of the whole chunks that cover cells first..last.
constexpr int PaddedLast(int first, int last) {
    return first - 1 + (last - first + CellsAtOnce) / CellsAtOnce * CellsAtOnce;
}

// A mask as wide as the float, so that the results of comparisons can be ORed without conversion.
template <typename Float>
using Flag = std::conditional_t<sizeof(Float) == 4, std::uint32_t, std::uint64_t>;

// Whether the test holds for any of cells first..last.
template <typename Float, typename Test>
[[gnu::always_inline]] inline bool Any(int first, int last, Test test) {
    Flag<Float> found = 0;
#pragma omp simd reduction(| : found)
    for (int i = first; i <= last; ++i) found |= test(i) ? ~Flag<Float>(0) : Flag<Float>(0);
    return found != 0;
}

// The same for the chunk that begins at `first`, whose length the compiler knows.
template <typename Float, typename Test>
[[gnu::always_inline]] inline bool AnyInChunk(int first, Test test) {
    Flag<Float> found = 0;
#pragma omp simd reduction(| : found)
    for (int i = first; i < first + CellsAtOnce; ++i)
        found |= test(i) ? ~Flag<Float>(0) : Flag<Float>(0);
    return found != 0;
}

// Calls kernel(i) for the cells of the chunk that begins at `first`.
template <typename Kernel>
[[gnu::always_inline]] inline void RunChunk(int first, Kernel kernel) {
#pragma omp simd
    for (int i = first; i < first + CellsAtOnce; ++i) kernel(i);
}

// Calls body(chunk) with the first cell of each chunk of cells first..last, a whole number of them.
// Returns the sum of what it returns: the cells on which extra work was done.
template <typename Body>
[[gnu::always_inline]] inline int ForEachChunk(int first, int last, Body body) {
    int cells = 0;
    for (int chunk = first; chunk <= last; chunk += CellsAtOnce) cells += body(chunk);
    return cells;
}

// Calls full(i) for all cells of the chunks in which needed(i) holds for any cell, and plain(i) for
// the cells of the others. The two must agree where needed(i) does not hold. Returns the number of
// cells in chunks of the first kind.
template <typename Float, typename Test, typename Full, typename Plain>
[[gnu::always_inline]] inline int RunWhereNeeded(int first, int last, Test needed, Full full,
                                                 Plain plain) {
    return ForEachChunk(first, last, [&](int chunk) {
        if (AnyInChunk<Float>(chunk, needed)) {
            RunChunk(chunk, full);
            return CellsAtOnce;
        }
        RunChunk(chunk, plain);
        return 0;
    });
}

// The same where nothing is to be done in the other chunks.
template <typename Float, typename Test, typename Full>
[[gnu::always_inline]] inline int RunWhereNeeded(int first, int last, Test needed, Full full) {
    return ForEachChunk(first, last, [&](int chunk) {
        if (!AnyInChunk<Float>(chunk, needed)) return 0;
        RunChunk(chunk, full);
        return CellsAtOnce;
    });
}

// The first cell of the first chunk that holds a cell for which test(i). If there is none, the
// chunk after the last one.
template <typename Float, typename Test>
[[gnu::always_inline]] inline int FirstChunkWhere(int first, int last, Test test) {
    int chunk = first;
    while (chunk <= last && !AnyInChunk<Float>(chunk, test)) chunk += CellsAtOnce;
    return chunk;
}

// A range of cells.
struct CellRange {
    int First;
    int Last;  // below First if there are none
    int Count() const { return Last < First ? 0 : Last + 1 - First; }
};

// The chunks from the first to the last that hold a cell for which test(i), as a range of cells;
// {last + 1, first - 1} if there are none. The chunks start at `first` and may run past `last`.
template <typename Float, typename Test>
[[gnu::always_inline]] inline CellRange ChunksWhere(int first, int last, Test test) {
    CellRange range = {last + 1, first - 1};
    ForEachChunk(first, last, [&](int chunk) {
        if (!AnyInChunk<Float>(chunk, test)) return 0;
        if (range.First > chunk) range.First = chunk;
        range.Last = chunk + CellsAtOnce - 1;
        return 0;
    });
    return range;
}
