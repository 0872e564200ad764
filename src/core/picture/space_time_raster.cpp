#include "core/picture/space_time_raster.h"

#include <algorithm>
#include <cassert>
#include <cstddef>

#include "core/picture/space_time_levels.h"

namespace {

void ForgetStates(SpaceTimeRaster& raster) {
    raster.Range = {};
    raster.Spread.States = 0;
    raster.Average.States = 0;
}

// True if the first states of the table are the painted ones.
bool Continues(const SpaceTimeTable& table, const SpaceTimeTable& painted) {
    return table.A == painted.A && table.N == painted.N && table.Stride == painted.Stride &&
           table.Generation == painted.Generation && table.NS >= painted.NS;
}

}  // namespace

int ScanAlign(int pwidth) {
    return (pwidth + 3) & ~3;
}

SpaceTimeRaster MakeSpaceTimeRaster(int width, int height) {
    SpaceTimeRaster raster;
    raster.biWidth = std::max(width, 1);
    raster.biHeight = std::max(height, 1);
    raster.DibRowBytes = ScanAlign(raster.biWidth);
    raster.biSizeImage = raster.biHeight * raster.DibRowBytes;
    raster.DibBits.assign(static_cast<std::size_t>(raster.biSizeImage), 0);
    return raster;
}

void DrawSpaceTime(const SpaceTimeTable& table, double& Lo, double& Hi, int W, int H,
                   SpaceTimeRaster& raster) {
    if (table.N < 1 || table.NS < 1 || W < 1 || H < 1) return;
    ResampleSpaceTime(table, Lo, Hi, W, H, raster);
    BlitSpaceTime(W, H, raster);
}

void ResampleSpaceTime(const SpaceTimeTable& table, double& Lo, double& Hi, int W, int H,
                       SpaceTimeRaster& raster) {
    if (!Continues(table, raster.Painted)) ForgetStates(raster);
    raster.Painted = table;
    ScanSpaceTimeRange(table, raster.Range, Lo, Hi);
    const GrayScale gray = FindGrayScale(Lo, Hi);

    raster.Pix.resize(static_cast<std::size_t>(W) * static_cast<std::size_t>(H));
    if (table.N > W + 1 && table.NS > H + 1) {
        AverageSpaceTime(table, raster.Range, gray, W, H, raster.Average, raster.Pix.data());
    } else {
        SpreadSpaceTime(table, gray, W, H, raster.Spread, raster.Pix.data());
    }
}

void BlitSpaceTime(int W, int H, SpaceTimeRaster& raster) {
    assert(raster.Pix.size() == static_cast<std::size_t>(W) * static_cast<std::size_t>(H));
    const int zoom = std::min(raster.biWidth / W, raster.biHeight / H);
    const std::ptrdiff_t rowBytes = raster.DibRowBytes;
    auto row = raster.DibBits.begin();
    auto pix = raster.Pix.cbegin();
    for (int r = 0; zoom > 0 && r < H; ++r, pix += W) {
        auto end = std::copy_n(pix, W, row);
        if (zoom > 1) {
            end = row;
            for (int c = 0; c < W; ++c) end = std::fill_n(end, zoom, pix[c]);
        }
        std::fill(end, row + rowBytes, std::uint8_t{0});
        for (int copy = 1; copy < zoom; ++copy) std::copy_n(row, rowBytes, row + copy * rowBytes);
        row += zoom * rowBytes;
    }
    std::fill(row, raster.DibBits.end(), std::uint8_t{0});
}
