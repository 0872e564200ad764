#include "core/picture/space_time_picture.h"

#include <algorithm>
#include <cstdint>
#include <span>

#include "core/model/experiment_state.h"
#include "core/picture/drawing_list.h"
#include "core/picture/space_time_raster.h"
#include "core/run/state_store.h"

namespace {

struct GrayVariable {
    std::string_view Name;
    OffsetArray<float> ExperimentState::*Stored;
};

constexpr GrayVariable StoredVariables[] = {
    {"Density", &ExperimentState::SRho},   {"Pressure", &ExperimentState::SP},
    {"Velocity", &ExperimentState::SUx},   {"VY", &ExperimentState::SUy},
    {"FSmoke", &ExperimentState::SFSmoke}, {"R+", &ExperimentState::SRPlus},
    {"R-", &ExperimentState::SRMinus},     {"R0 (Entropy)", &ExperimentState::SEntropy},
};

// The first row of a raster in memory is the bottom row of its picture; an image begins at the top.
void AddImage(const SpaceTimeRaster& raster, DrawingList& list) {
    const std::span<std::uint8_t> levels = list.Gray(raster.biWidth, raster.biHeight);
    auto row = levels.begin();
    for (int r = raster.biHeight - 1; r >= 0; --r) {
        const auto bits =
            raster.DibBits.begin() + static_cast<std::ptrdiff_t>(r) * raster.DibRowBytes;
        row = std::copy_n(bits, raster.biWidth, row);
    }
}

}  // namespace

const OffsetArray<float>* StoredVariable(const ExperimentState& state, std::string_view name) {
    for (const GrayVariable& variable : StoredVariables) {
        if (name == variable.Name) return &(state.*variable.Stored);
    }
    return nullptr;
}

SpaceTimeTable StoredTable(const ExperimentState& state, const OffsetArray<float>& stored,
                           int states) {
    return {stored.At(0), state.NGridCells, states, StoreStride(state), state.StoreGeneration};
}

AxisLimits DrawSpaceTimePicture(const SpaceTimeTable& table, int width, int height,
                                SpaceTimeRaster& raster, DrawingList& list) {
    AxisLimits limits{0.0, 0.0};
    DrawSpaceTime(table, limits.Lo, limits.Hi, width, height, raster);
    if (raster.biWidth >= 1 && raster.biHeight >= 1) AddImage(raster, list);
    return limits;
}
