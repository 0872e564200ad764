#include "core/picture/space_time_range.h"

#include <algorithm>
#include <array>

namespace {

constexpr float Largest = std::numeric_limits<float>::max();

void RaiseTo(float value, float& high) {
    const float finite = value <= Largest ? value : -Largest;
    high = finite > high ? finite : high;
}

void LowerTo(float value, float& low) {
    const float finite = value >= -Largest ? value : Largest;
    low = finite < low ? finite : low;
}

// Extends the range by cells 1..N of one state. Each lane keeps the extremes of every sixteenth
// cell: with a single maximum each comparison would wait for the one before.
void ScanState(const float* state, int N, SpaceTimeRange& range) {
    constexpr int lanes = 16;
    std::array<float, lanes> high;
    std::array<float, lanes> low;
    high.fill(range.High);
    low.fill(range.Low);

    int i = 1;
    for (; i + lanes <= N + 1; i += lanes) {
        for (int lane = 0; lane < lanes; ++lane) {
            RaiseTo(state[i + lane], high[static_cast<std::size_t>(lane)]);
            LowerTo(state[i + lane], low[static_cast<std::size_t>(lane)]);
        }
    }
    for (; i <= N; ++i) {
        RaiseTo(state[i], high[0]);
        LowerTo(state[i], low[0]);
    }
    range.High = *std::max_element(high.begin(), high.end());
    range.Low = *std::min_element(low.begin(), low.end());
}

}  // namespace

void ScanSpaceTimeRange(const SpaceTimeTable& table, SpaceTimeRange& range, double& Lo,
                        double& Hi) {
    for (int j = range.States + 1; j <= table.NS; ++j) ScanState(table.State(j), table.N, range);
    range.States = table.NS;

    const bool found = range.Low <= range.High;
    Lo = found ? range.Low : 0.0F;
    Hi = found ? range.High : 0.0F;
}
