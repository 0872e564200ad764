// The space-time picture of a table with no more samples than pixels in at least one of the two
// directions: each sample is spread over the pixels that it touches.
//
// A state j contributes two kinds of pixel rows. Its full row fills every pixel row that the state
// covers up to the far end and, until later states are blended over it, the row in which it ends.
// Its first row is blended over what earlier states have left in the row where it begins, weighted
// by the part of that row that the state covers. So pixel row r is the full row of one state, its
// base, with the first rows of the states that begin in r blended over it in order.
//
// Both kinds blend neighbouring cells: the pixel column in which cell i begins has the edge level
//     h[i] = (1 - part) * L[i-1] + part * L[i],
// where L is the level of a cell and part is the part of the column that belongs to cell i.
//
// - With at least as many columns as cells, a column either has the edge level of one cell or lies
//   within one cell. Within a cell the first row shows the raw level, LevelLift darker than the
//   full row. The full row is the first row rounded, plus LevelLift within the cells.
// - With more cells than columns, several cells begin in a column. The full row has the edge level
//   of the last of them; in the first row they are blended one after the other, each rounded.
#pragma once

#include <cstdint>
#include <vector>

#include "core/picture/space_time_levels.h"
#include "core/picture/space_time_spans.h"
#include "core/picture/space_time_table.h"

// Working arrays, and what is kept of a table from one paint to the next. With more cells than
// columns the levels of a state are kept, since computing them is most of the work; they depend on
// the table's values, on N, W and the gray scale, but not on the number of states and the height of
// the picture. With fewer cells nothing is kept: reading rows back would take longer than computing
// them again. Columns count from 0 here.
struct SpreadWork {
    // How cells and columns overlap; valid for N and W.
    int N = 0;
    int W = 0;
    std::vector<double> Lead;  // 1 - part of cell i, 0..N
    std::vector<double> Own;   // part of cell i, 0..N
    std::vector<int>
        Source;  // N <= W: i where a column has the edge level of cell i, N+i within cell i
    std::vector<double> Lift;    // N <= W: LevelLift in columns within a cell, else 0
    std::vector<int> FirstCell;  // N > W: cells FirstCell[c] to FirstCell[c+1]-1 begin in column c
    bool RepeatsLastCell = false;  // N > W: the last cell ends short of the edge and is drawn again

    // N > W: for the first States states.
    int States = 0;
    GrayScale Gray;
    std::vector<std::uint8_t> Levels;    // N+1 per state, for cells 0 to N
    std::vector<std::uint8_t> FullRows;  // W levels per state
    std::vector<std::uint8_t> Even;      // W per state, 1 where all cells have the same level

    // For one paint.
    struct PixelRow {
        int Base = 0;   // the state whose full row lies underneath; 0 for black
        int First = 0;  // states First to End-1 are blended over it
        int End = 0;
    };
    std::vector<Span> Spans;
    std::vector<PixelRow> Rows;
    std::vector<double> Level;
    std::vector<double> EdgeLevel;
    std::vector<double> First;  // N <= W: the first row of state FirstOf
    int FirstOf = 0;
    std::vector<double> Row;
};

// Fills the W by H levels of Pix; the first row belongs to state 1. `work` must hold what was kept
// of the same table; the caller sets States to 0 for another one.
void SpreadSpaceTime(const SpaceTimeTable& table, const GrayScale& gray, int W, int H,
                     SpreadWork& work, std::uint8_t* Pix);
