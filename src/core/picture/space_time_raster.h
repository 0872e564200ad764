// The space-time picture: a table of cells by stored states as an image in 256 grays.
#pragma once

#include <cstdint>
#include <vector>

#include "core/picture/space_time_average.h"
#include "core/picture/space_time_range.h"
#include "core/picture/space_time_spread.h"
#include "core/picture/space_time_table.h"

// An image of 8 bits a pixel, and the working storage of its paints. A byte is a gray level, 0
// black and 255 white. The first row in memory is the bottom row of the image.
//
// A paint allocates only if the table has more states than any before.
//
// What was computed for a stored state is kept for the next paint, and used again as long as the
// table has the same address, N and generation. So code that writes the store must never change a
// stored state under the same generation. It may add states at any time; whatever else it does to
// the arrays (allocate or resize them, write state 0 again) needs a new generation. If the table
// has fewer states than were painted before, everything is computed again.
struct SpaceTimeRaster {
    int biWidth = 0;  // pixels
    int biHeight = 0;
    int biSizeImage = 0;  // bytes, all rows
    int DibRowBytes = 0;  // bytes from one row to the next
    std::vector<std::uint8_t> DibBits;

    std::vector<std::uint8_t> Pix;  // the levels of the picture, W for each of the H rows
    SpaceTimeTable Painted;         // the table that everything below was computed from
    SpaceTimeRange Range;
    SpreadWork Spread;
    AverageWork Average;
};

// Bytes of a row of pwidth pixels: rounded up to a multiple of 4.
int ScanAlign(int pwidth);

// A black image of that size, at least 1 by 1.
SpaceTimeRaster MakeSpaceTimeRaster(int width, int height);

// Paints the table as W by H pixels into the lower left corner of the raster, enlarged by the
// largest whole factor that fits. Sets Lo and Hi to the extremes of the table's finite values. A
// table without cells or states changes nothing.
void DrawSpaceTime(const SpaceTimeTable& table, double& Lo, double& Hi, int W, int H,
                   SpaceTimeRaster& raster);

// The two halves of DrawSpaceTime: from the table to the levels Pix, and from these to the image.
void ResampleSpaceTime(const SpaceTimeTable& table, double& Lo, double& Hi, int W, int H,
                       SpaceTimeRaster& raster);
void BlitSpaceTime(int W, int H, SpaceTimeRaster& raster);
