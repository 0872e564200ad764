// How samples of one length fall on a row of unit squares: cells on pixel columns, states on pixel
// rows, or pixels on cells and states.
#pragma once

#include <vector>

// One sample from position a to position b. Squares count from 1; square k reaches from k-1 to k.
struct Span {
    int First;         // the square in which a lies
    double FirstPart;  // length from a to the far end of that square, above 0 and at most 1
    int Last;          // the square in which b lies, or the one that b only touches
    double LastPart;   // length from the near end of that square to b, from 0 and below 1
};

// Lays count samples of length step side by side from 0 on. The positions come from repeated
// addition, so that the last one may lie a rounding beside the end of the row, on either side.
void LaySpans(int count, double step, std::vector<Span>& spans);
