// The source of the space-time picture: one variable of the state store.
#pragma once

#include <cstddef>

inline std::size_t Index(int index) {
    return static_cast<std::size_t>(index);
}

// Where row number `row`, counted from 1, begins among rows of that width.
inline std::size_t RowStart(int row, int width) {
    return Index(row - 1) * Index(width);
}

// A table of N cells by NS stored states, read and never written. Cells and states count from 1;
// the two bounding cells of a state, 0 and N+1, are never read.
struct SpaceTimeTable {
    const float* A = nullptr;  // cell 0 of the first state
    int N = 0;                 // cells, at least 1
    int NS = 0;                // stored states, at least 1
    int Stride = 0;            // elements from one state to the next, N+2
    int Generation = 0;        // unchanged as long as states are only added; see SpaceTimeRaster

    // The address of cell 0 of state j, so that State(j)[i] is cell i.
    const float* State(int j) const { return A + RowStart(j, Stride); }
};
