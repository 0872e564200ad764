#include "core/picture/space_time_average.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstddef>
#include <limits>

namespace {

// Clamped to what fits into a byte as a level.
double RawLevelOfMean(double mean, const GrayScale& gray) {
    return Clamped((mean - gray.Lo) * gray.Scale, -LevelLift, 250.0);
}

std::uint8_t Level(double raw) {
    return static_cast<std::uint8_t>(static_cast<int>(RoundHalfEven(raw) + LevelLift));
}

// Finds the samples under each pixel. A whole sample covers `part` of a pixel.
void FindSamples(int samples, int pixels, double part, std::vector<Span>& spans,
                 std::vector<Samples>& found) {
    FindSpans(pixels, static_cast<double>(samples) / pixels, spans);
    found.clear();
    for (const Span& span : spans) {
        const double tail = span.LastPart * part;
        const bool counts = tail > Negligible && span.Last <= samples;
        found.push_back({std::min(span.First, samples), std::min(span.Last, samples + 1), span.Last,
                         span.FirstPart * part, counts ? tail : 0.0});
    }
}

// How much of a pixel a whole sample covers: wx for cells and columns, wy for states and rows.
double PartOfPixel(int samples, int pixels) {
    return 1 / (static_cast<double>(samples) / pixels);
}

void UpdateSums(const SpaceTimeTable& table, AverageWork& work) {
    const double wx = PartOfPixel(work.N, work.W);
    work.Sums.resize(RowStart(table.NS + 1, work.W));
    for (int j = work.States + 1; j <= table.NS; ++j) {
        const float* const state = table.State(j);
        double* sum = work.Sums.data() + RowStart(j, work.W);
        for (const Samples& cells : work.Columns) {
            double within = 0.0;
            for (int i = cells.First + 1; i < cells.End; ++i) within += state[i];
            *sum = state[cells.First] * cells.Head + within * wx;
            if (cells.Tail > 0.0) *sum += state[cells.Last] * cells.Tail;
            ++sum;
        }
    }
    work.States = table.NS;
}

// Adds the terms of one state in the fixed order.
void AddState(const float* state, double weight, const Samples& cells, double wx, double& sum) {
    sum += state[cells.First] * (weight * cells.Head);
    const double cellWeight = weight * wx;
    for (int i = cells.First + 1; i < cells.End; ++i) sum += state[i] * cellWeight;
    if (cells.Tail > 0.0) sum += state[cells.Last] * (weight * cells.Tail);
}

double MeanInOrder(const SpaceTimeTable& table, const Samples& cells, const Samples& states,
                   double wx, double wy) {
    double sum = 0.0;
    AddState(table.State(states.First), states.Head, cells, wx, sum);
    for (int j = states.First + 1; j < states.End; ++j) {
        AddState(table.State(j), wy, cells, wx, sum);
    }
    if (states.Tail > 0.0) AddState(table.State(states.Last), states.Tail, cells, wx, sum);
    return sum;
}

// Sets Row to the means of a pixel row, from the kept sums.
void AddSums(const Samples& states, double wy, AverageWork& work) {
    const int W = work.W;
    double* const row = work.Row.data();
    const double* sums = work.Sums.data() + RowStart(states.First, W);
    for (int c = 0; c < W; ++c) row[c] = sums[c] * states.Head;
    const auto add = [&](int j, double weight) {
        sums = work.Sums.data() + RowStart(j, W);
        for (int c = 0; c < W; ++c) row[c] += sums[c] * weight;
    };
    for (int j = states.First + 1; j < states.End; ++j) add(j, wy);
    if (states.Tail > 0.0) add(states.Last, states.Tail);
}

bool IsDoubtful(double raw, double clear) {
    return std::abs(raw - RoundHalfEven(raw)) > clear;
}

// Turns the means of a pixel row into raw levels, and these into levels. True if any is doubtful.
bool RowToLevels(const GrayScale& gray, double clear, std::vector<double>& means,
                 std::uint8_t* pix) {
    const std::size_t width = means.size();
    double* const row = means.data();
    const GrayScale scale = gray;
    bool doubtful = false;
    for (std::size_t c = 0; c < width; ++c) row[c] = RawLevelOfMean(row[c], scale);
    for (std::size_t c = 0; c < width; ++c) doubtful |= IsDoubtful(row[c], clear);
    for (std::size_t c = 0; c < width; ++c) pix[c] = Level(row[c]);
    return doubtful;
}

// A bound for the difference of the raw levels of the two sums. The n terms of a mean have weights
// that add up to 1 within a few roundings, so that either sum lies within n + 3 roundings of the
// largest value from the true mean; the scaling adds a few roundings of the raw level. Four times
// that, to be safe.
double RawLevelDoubt(const SpaceTimeRange& range, const GrayScale& gray, double terms) {
    constexpr double rounding = std::numeric_limits<double>::epsilon();
    const double largest = std::max(std::abs(range.Low), std::abs(range.High));
    return 4 * rounding * ((terms + 3) * largest * gray.Scale + 250.0);
}

}  // namespace

void AverageSpaceTime(const SpaceTimeTable& table, const SpaceTimeRange& range,
                      const GrayScale& gray, int W, int H, AverageWork& work, std::uint8_t* Pix) {
    assert(table.N > W && table.NS > H && W >= 1 && H >= 1);
    const double wx = PartOfPixel(table.N, W);
    const double wy = PartOfPixel(table.NS, H);
    if (work.N != table.N || work.W != W) {
        work.N = table.N;
        work.W = W;
        work.States = 0;
        work.Row.assign(Index(W), 0.0);
        FindSamples(table.N, W, wx, work.Spans, work.Columns);
    }
    UpdateSums(table, work);
    FindSamples(table.NS, H, wy, work.Spans, work.Rows);

    const double terms = (1 / wx + 2) * (1 / wy + 2);
    const double clear = 0.5 - RawLevelDoubt(range, gray, terms);
    for (const Samples& states : work.Rows) {
        AddSums(states, wy, work);
        if (RowToLevels(gray, clear, work.Row, Pix)) {
            for (int c = 0; c < W; ++c) {
                if (!IsDoubtful(work.Row[Index(c)], clear)) continue;
                const double mean = MeanInOrder(table, work.Columns[Index(c)], states, wx, wy);
                Pix[c] = Level(RawLevelOfMean(mean, gray));
            }
        }
        Pix += W;
    }
}
