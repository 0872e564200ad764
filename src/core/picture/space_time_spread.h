// The space-time picture of a table that has no more samples than pixels in at least one of the two
// directions: each sample is spread over the pixels that it touches.
//
// A state j puts two kinds of pixel rows into the picture. Its full row stands in every pixel row
// that it covers to the far end and, until later states come over it, in the row where it ends. Its
// first row is blended, with the part of the pixel row that the state covers as the weight, over
// what the states before it have left there. So pixel row r is the full row of one state, its base,
// with the first rows of the states that begin in r blended over it in their order.
//
// Both rows blend neighbouring cells: in the pixel column where cell i begins stands its touch,
//     h[i] = (1 - part) * L[i-1] + part * L[i],
// with L the level of a cell and part the part of the column that belongs to cell i.
//
// - With at least as many columns as cells each column holds the touch of one cell or lies within
//   one cell. There the first row shows the raw level, five levels darker than the full row. The
//   full row is the first row to the nearest level, plus these five.
// - With more cells than columns several cells begin in a column. The full row holds the touch of
//   the last one; in the first row they are blended one after the other, each rounded.
#pragma once

#include <cstdint>
#include <vector>

#include "core/picture/space_time_levels.h"
#include "core/picture/space_time_spans.h"
#include "core/picture/space_time_table.h"

// The working arrays, and what is kept of a table from one paint to the next. With more cells than
// columns the levels of a state are kept, since working them out is most of the work. They depend
// on the table's values, on N, W and on the gray scale, not on the number of states and the height
// of the picture. With fewer cells nothing is kept: the rows would take longer to read back than to
// work out again. Columns count from 0 here.
struct SpreadWork {
    // How the cells fall on the columns; for N and W.
    int N = 0;
    int W = 0;
    std::vector<double> Lead;  // 1 - part of cell i, 0..N
    std::vector<double> Own;   // part of cell i, 0..N
    std::vector<int> Source;   // N <= W: i for the touch of cell i in a column, N+i for its inside
    std::vector<double> Lift;  // N <= W: 5 in the columns inside a cell, else 0
    std::vector<int> FirstCell;  // N > W: cells FirstCell[c] to FirstCell[c+1]-1 begin in column c
    bool EdgeAgain = false;      // N > W: the last cell ends short of the edge and is put once more

    // N > W: of the first States states.
    int States = 0;
    GrayScale Gray;
    std::vector<std::uint8_t> Levels;    // N+1 of each state, for cells 0 to N
    std::vector<std::uint8_t> FullRows;  // W levels of each state
    std::vector<std::uint8_t> Even;      // W of each state, 1 where all cells have one level

    // Of one paint.
    struct PixelRow {
        int Base = 0;   // the state whose full row stands first; 0 for black
        int First = 0;  // states First to End-1 are blended over it
        int End = 0;
    };
    std::vector<Span> Spans;
    std::vector<PixelRow> Rows;
    std::vector<double> Level;
    std::vector<double> Touch;
    std::vector<double> First;  // N <= W: the first row of state FirstOf
    int FirstOf = 0;
    std::vector<double> Row;
};

// Fills the W by H levels of Pix, its first row belonging to state 1. What is kept in the work must
// be of the same table; the caller sets States to 0 when it is not.
void SpreadSpaceTime(const SpaceTimeTable& table, const GrayScale& gray, int W, int H,
                     SpreadWork& work, std::uint8_t* Pix);
