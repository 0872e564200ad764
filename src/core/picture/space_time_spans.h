// How samples of equal length overlap a row of unit squares: cells and pixel columns, states and
// pixel rows, or pixels and the cells or states under them.
#pragma once

#include <vector>

// One sample, from position a to position b. Squares count from 1; square k reaches from k-1 to k.
struct Span {
    int First;         // the square in which a lies
    double FirstPart;  // length from a to the far end of that square, above 0 and at most 1
    int Last;          // the square in which b lies, or the next one if b is on an edge
    double LastPart;   // length from the near end of that square to b, from 0 and below 1
};

// The spans of `count` samples of length `step`, side by side from position 0 on. Positions come
// from repeated addition, so the last one may miss the end of the row by a rounding error to either
// side.
void FindSpans(int count, double step, std::vector<Span>& spans);
