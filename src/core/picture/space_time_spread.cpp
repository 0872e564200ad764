#include "core/picture/space_time_spread.h"

#include <algorithm>
#include <cassert>
#include <cstddef>

#include "core/model/finite_values.h"
#include "core/model/wide_vectors.h"

namespace {

// N <= W: the source of each column.
void FindColumnSources(SpreadWork& work) {
    work.Source.assign(Index(work.W), 1);
    work.Lift.assign(Index(work.W), 0.0);
    const auto inside = [&](int c, int cell) {
        if (c >= work.W) return;
        work.Source[Index(c)] = work.N + cell;
        work.Lift[Index(c)] = LevelLift;
    };
    for (int i = 1; i <= work.N; ++i) {
        const Span& span = work.Spans[Index(i - 1)];
        if (span.First <= work.W) work.Source[Index(span.First - 1)] = i;
        for (int c = span.First; c < span.Last - 1; ++c) inside(c, i);
        if (i == work.N && span.LastPart > Negligible) inside(span.Last - 1, i);
    }
}

// N > W: the cells that begin in each column.
void FindColumnCells(SpreadWork& work) {
    const int end = work.N + 1;
    work.FirstCell.assign(Index(work.W + 1), end);
    for (int i = work.N; i >= 1; --i) {
        const int c = std::min(work.Spans[Index(i - 1)].First, work.W) - 1;
        work.FirstCell[Index(c)] = i;
    }
    for (int c = work.W - 1; c >= 0; --c) {
        int& first = work.FirstCell[Index(c)];
        if (first == end) first = work.FirstCell[Index(c + 1)];
    }
    const Span& last = work.Spans.back();
    work.RepeatsLastCell = last.Last <= work.W && last.LastPart > Negligible;
}

void FindColumns(int N, int W, SpreadWork& work) {
    work.N = N;
    work.W = W;
    work.States = 0;
    work.Lead.assign(Index(N + 1), 0.0);
    work.Own.assign(Index(N + 1), 0.0);
    work.Level.assign(Index(N + 1), 0.0);
    work.EdgeLevel.assign(Index(2 * N + 1), 0.0);
    work.First.assign(Index(W), 0.0);
    work.Row.assign(Index(W), 0.0);

    FindSpans(N, static_cast<double>(W) / N, work.Spans);
    for (int i = 1; i <= N; ++i) {
        work.Own[Index(i)] = work.Spans[Index(i - 1)].FirstPart;
        work.Lead[Index(i)] = 1 - work.Spans[Index(i - 1)].FirstPart;
    }
    if (N <= W) {
        FindColumnSources(work);
    } else {
        FindColumnCells(work);
    }
}

// The base of each pixel row and the states blended over it.
void FindRows(int NS, int H, SpreadWork& work) {
    FindSpans(NS, static_cast<double>(H) / NS, work.Spans);
    work.Rows.assign(Index(H + 1), {});
    const auto fill = [&](int r, int state) {
        if (r <= H) work.Rows[Index(r)].Base = state;
    };
    for (int j = 1; j <= NS; ++j) {
        const Span& span = work.Spans[Index(j - 1)];
        if (span.First > H) return;
        SpreadWork::PixelRow& first = work.Rows[Index(span.First)];
        if (first.End == 0) first.First = j;
        first.End = j + 1;
        for (int r = span.First + 1; r < span.Last; ++r) fill(r, j);
        // A state that ends in the row where it begins still fills the next one.
        if (span.LastPart > Negligible) fill(std::max(span.Last, span.First + 1), j);
    }
}

// Sets Level, and in EdgeLevel the edge levels of cells 1..N followed by their raw levels.
WIDE_VECTORS void FindLevels(const float* state, SpreadWork& work) {
    const int N = work.N;
    const GrayScale gray = work.Gray;
    double* const level = work.Level.data();
    double* const edge = work.EdgeLevel.data();
    double* const raw = edge + N;
    const double* const lead = work.Lead.data();
    const double* const own = work.Own.data();
    if (AllFinite(state + 1, N)) {
        for (int i = 1; i <= N; ++i) raw[i] = FiniteRawLevel(state[i], gray);
    } else {
        for (int i = 1; i <= N; ++i) raw[i] = RawLevel(state[i], gray);
    }
    for (int i = 1; i <= N; ++i) level[i] = RoundHalfEven(raw[i]) + LevelLift;
    for (int i = 1; i <= N; ++i) edge[i] = lead[i] * level[i - 1] + own[i] * level[i];
}

// N <= W: sets First to the first row of state j.
void FindFirstRow(const SpaceTimeTable& table, int j, SpreadWork& work) {
    if (work.FirstOf == j) return;
    work.FirstOf = j;
    FindLevels(table.State(j), work);
    const int* const source = work.Source.data();
    const double* const edge = work.EdgeLevel.data();
    double* const first = work.First.data();
    for (int c = 0; c < work.W; ++c) first[c] = edge[source[c]];
}

void AddLevels(const SpaceTimeTable& table, int j, SpreadWork& work) {
    const int N = work.N;
    FindLevels(table.State(j), work);
    std::uint8_t* const level = work.Levels.data() + RowStart(j, N + 1);
    for (int i = 1; i <= N; ++i) {
        level[i] = static_cast<std::uint8_t>(static_cast<int>(work.Level[Index(i)]));
    }
    level[0] = level[1];  // has weight 0; set so that the first column can be even

    std::uint8_t* const full = work.FullRows.data() + RowStart(j, work.W);
    std::uint8_t* const even = work.Even.data() + RowStart(j, work.W);
    for (int c = 0; c < work.W; ++c) {
        const int first = work.FirstCell[Index(c)];
        const int end = work.FirstCell[Index(c + 1)];
        full[c] = static_cast<std::uint8_t>(RoundHalfEven(work.EdgeLevel[Index(end - 1)]));
        int differences = 0;
        for (int i = first; i < end; ++i) differences |= level[i] ^ level[i - 1];
        even[c] = differences == 0 ? 1 : 0;
    }
    if (work.RepeatsLastCell) full[work.W - 1] = level[N];
}

void AddStates(const SpaceTimeTable& table, SpreadWork& work) {
    work.Levels.resize(RowStart(table.NS + 1, work.N + 1));
    work.FullRows.resize(RowStart(table.NS + 1, work.W));
    work.Even.resize(RowStart(table.NS + 1, work.W));
    for (int j = work.States + 1; j <= table.NS; ++j) AddLevels(table, j, work);
    work.States = table.NS;
}

// N <= W: draws one pixel row.
WIDE_VECTORS void DrawWideRow(const SpreadWork::PixelRow& pixelRow, const SpaceTimeTable& table,
                              SpreadWork& work, std::uint8_t* pix) {
    const int W = work.W;
    const double* const first = work.First.data();
    double* const row = work.Row.data();
    if (pixelRow.Base == 0) {
        std::fill_n(row, W, 0.0);
    } else {
        FindFirstRow(table, pixelRow.Base, work);
        const double* const lift = work.Lift.data();
        for (int c = 0; c < W; ++c) row[c] = RoundHalfEven(first[c]) + lift[c];
    }
    for (int j = pixelRow.First; j < pixelRow.End; ++j) {
        FindFirstRow(table, j, work);
        const double part = work.Spans[Index(j - 1)].FirstPart;
        const double rest = 1 - part;
        for (int c = 0; c < W; ++c) row[c] = RoundHalfEven(row[c] * rest + part * first[c]);
    }
    for (int c = 0; c < W; ++c) pix[c] = static_cast<std::uint8_t>(static_cast<int>(row[c]));
}

// N > W: blends the cells of state j that begin in column c over the level `under`.
std::uint8_t BlendCells(int j, int c, double part, const SpreadWork& work, std::uint8_t under) {
    const double rest = 1 - part;
    const std::uint8_t* const level = work.Levels.data() + RowStart(j, work.N + 1);
    const int first = work.FirstCell[Index(c)];
    const int end = work.FirstCell[Index(c + 1)];
    double pixel = under;
    double before = level[first - 1];
    for (int i = first; i < end; ++i) {
        const double own = level[i];
        const double edge = work.Lead[Index(i)] * before + work.Own[Index(i)] * own;
        pixel = RoundHalfEven(pixel * rest + part * edge);
        before = own;
    }
    return static_cast<std::uint8_t>(pixel);
}

// N > W: draws one pixel row. Where all cells of a column have the level that is there already, a
// blend changes nothing; most columns of a smooth flow are like that.
void DrawDenseRow(const SpreadWork::PixelRow& pixelRow, const SpaceTimeTable& table,
                  const SpreadWork& work, std::uint8_t* pix) {
    const int W = work.W;
    if (pixelRow.Base == 0) {
        std::fill_n(pix, W, std::uint8_t{0});
    } else {
        std::copy_n(work.FullRows.data() + RowStart(pixelRow.Base, W), W, pix);
    }
    for (int j = pixelRow.First; j < pixelRow.End; ++j) {
        const std::uint8_t* const full = work.FullRows.data() + RowStart(j, W);
        const std::uint8_t* const even = work.Even.data() + RowStart(j, W);
        const double part = work.Spans[Index(j - 1)].FirstPart;
        for (int c = 0; c < W; ++c) {
            if (even[c] == 1 && pix[c] == full[c]) continue;
            pix[c] = BlendCells(j, c, part, work, pix[c]);
        }
        if (work.RepeatsLastCell) {
            const double raw = RawLevel(table.State(j)[work.N], work.Gray);
            const double pixel = pix[W - 1] * (1 - part) + part * raw;
            pix[W - 1] = static_cast<std::uint8_t>(RoundHalfEven(pixel));
        }
    }
}

}  // namespace

void SpreadSpaceTime(const SpaceTimeTable& table, const GrayScale& gray, int W, int H,
                     SpreadWork& work, std::uint8_t* Pix) {
    assert(table.N >= 1 && table.NS >= 1 && W >= 1 && H >= 1);
    if (work.N != table.N || work.W != W) FindColumns(table.N, W, work);
    if (!(work.Gray == gray)) work.States = 0;
    work.Gray = gray;
    if (table.N > W) AddStates(table, work);
    work.FirstOf = 0;

    FindRows(table.NS, H, work);
    for (int r = 1; r <= H; ++r) {
        std::uint8_t* const pix = Pix + RowStart(r, W);
        if (table.N <= W) {
            DrawWideRow(work.Rows[Index(r)], table, work, pix);
        } else {
            DrawDenseRow(work.Rows[Index(r)], table, work, pix);
        }
    }
}
