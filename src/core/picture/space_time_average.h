// The space-time picture of a table that has more samples than pixels in both directions: the level
// of a pixel is that of the mean of its samples, weighted by how much of each the pixel covers.
//
// The exact picture adds up the samples of a pixel one by one in a fixed order. What is drawn here
// comes from the weighted sums along each state, which do not depend on the number of states and
// are kept, added up over the states of a pixel row: a fraction of the work during a run. The two
// sums differ by roundings, for which there is a bound. Where a level lies within this bound of a
// tie between two levels, the pixel is worked out once more in the fixed order, so that the picture
// is the exact one, level for level.
#pragma once

#include <cstdint>
#include <vector>

#include "core/picture/space_time_levels.h"
#include "core/picture/space_time_range.h"
#include "core/picture/space_time_spans.h"
#include "core/picture/space_time_table.h"

// The samples under one pixel along one direction, cells or states, and what they weigh.
struct Samples {
    int First;    // the sample in which the pixel begins
    int End;      // samples First+1 to End-1 lie within the pixel
    int Last;     // the sample in which the pixel ends, taken if it has any weight
    double Head;  // weight of First, above 0
    double Tail;  // weight of Last, 0 if that is dust
};

// The working arrays, and what is kept of a table from one paint to the next.
struct AverageWork {
    // The cells under each pixel column; for N and W.
    int N = 0;
    int W = 0;
    std::vector<Samples> Columns;

    // Of the first States states: W weighted sums along each.
    int States = 0;
    std::vector<double> Sums;

    // Of one paint.
    std::vector<Span> Spans;
    std::vector<Samples> Rows;  // the states under each pixel row
    std::vector<double> Row;
};

// Fills the W by H levels of Pix, its first row belonging to state 1. What is kept in the work must
// be of the same table; the caller sets States to 0 when it is not. The range holds all states.
void AverageSpaceTime(const SpaceTimeTable& table, const SpaceTimeRange& range,
                      const GrayScale& gray, int W, int H, AverageWork& work, std::uint8_t* Pix);
