// The space-time picture of a table with more samples than pixels in both directions: the level of
// a pixel is that of the mean of its samples, weighted by how much of each the pixel covers.
//
// The exact picture sums the samples of a pixel one by one in a fixed order. To save most of that
// work during a run, the weighted sums along each state are kept, since they do not depend on the
// number of states, and a pixel row adds up the sums of its states. The two results differ by
// rounding errors, which have a bound. Where a level lies within that bound of a tie between two
// levels, the pixel is computed again in the fixed order. So the picture is the exact one, level
// for level.
#pragma once

#include <cstdint>
#include <vector>

#include "core/picture/space_time_levels.h"
#include "core/picture/space_time_range.h"
#include "core/picture/space_time_spans.h"
#include "core/picture/space_time_table.h"

// The samples under one pixel along one direction, cells or states, and their weights.
struct Samples {
    int First;    // the sample in which the pixel begins
    int End;      // samples First+1 to End-1 lie within the pixel
    int Last;     // the sample in which the pixel ends; counts only if Tail is above 0
    double Head;  // weight of First, above 0
    double Tail;  // weight of Last, 0 if negligible
};

// Working arrays, and what is kept of a table from one paint to the next.
struct AverageWork {
    // The cells under each pixel column; valid for N and W.
    int N = 0;
    int W = 0;
    std::vector<Samples> Columns;

    // For the first States states: W weighted sums along each.
    int States = 0;
    std::vector<double> Sums;

    // For one paint.
    std::vector<Span> Spans;
    std::vector<Samples> Rows;  // the states under each pixel row
    std::vector<double> Row;
};

// Fills the W by H levels of Pix; the first row belongs to state 1. `work` must hold what was kept
// of the same table; the caller sets States to 0 for another one. `range` covers all states.
void AverageSpaceTime(const SpaceTimeTable& table, const SpaceTimeRange& range,
                      const GrayScale& gray, int W, int H, AverageWork& work, std::uint8_t* Pix);
