// The space-time picture: a table of cells by stored states as an image in 256 grays.
#pragma once

#include <cstdint>
#include <vector>

#include "core/picture/space_time_average.h"
#include "core/picture/space_time_range.h"
#include "core/picture/space_time_spread.h"
#include "core/picture/space_time_table.h"

// An image of 8 bits for each pixel, and what its paints work with. A byte is a gray level, 0 black
// and 255 white. The first row in memory is the bottom row of the image.
//
// A paint allocates nothing, but when the table has more states than any before.
//
// What was worked out for a stored state is kept for the next paint. It is used again as long as
// the table has the same address, N and generation. So the rule for whoever writes the store: a
// stored state is never changed under the same generation. New states may be added behind the
// painted ones at any time; whatever else happens to the arrays (allocated anew, resized, state 0
// written again) takes a new generation. With fewer states than painted before, all starts over.
struct SpaceTimeRaster {
    int biWidth = 0;  // pixels
    int biHeight = 0;
    int biSizeImage = 0;  // bytes, all rows
    int DibRowBytes = 0;  // bytes from one row to the next
    std::vector<std::uint8_t> DibBits;

    std::vector<std::uint8_t> Pix;  // the levels of the picture, W for each of the H rows
    SpaceTimeTable Painted;         // the table of which the rest is kept
    SpaceTimeRange Range;
    SpreadWork Spread;
    AverageWork Average;
};

// Bytes of one row of pwidth pixels: the next multiple of 4.
int ScanAlign(int pwidth);

// A black image of that size, at least 1 by 1.
SpaceTimeRaster MakeSpaceTimeRaster(int width, int height);

// Paints the table into the lower left W by H pixels of the raster, at a whole multiple of that
// size if it fits more than once. Lo and Hi become the extremes of the table's finite values. A
// table without cells or states leaves the raster as it is.
void DrawSpaceTime(const SpaceTimeTable& table, double& Lo, double& Hi, int W, int H,
                   SpaceTimeRaster& raster);

// The two halves of DrawSpaceTime: the table to the levels Pix, and these to the image.
void ResampleSpaceTime(const SpaceTimeTable& table, double& Lo, double& Hi, int W, int H,
                       SpaceTimeRaster& raster);
void BlitSpaceTime(int W, int H, SpaceTimeRaster& raster);
