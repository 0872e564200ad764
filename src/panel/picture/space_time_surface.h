// The surface of the space-time picture, with the two images that the picture is worked out in.
#pragma once

#include "core/picture/space_time_raster.h"
#include "panel/widgets/surface.h"

struct Controls;

// The rasters live as long as the window: a change between the two sizes needs no new image.
class SpaceTimeSurface : public Surface {
public:
    using Surface::Surface;

    SpaceTimeRaster Raster1;  // at the normal size
    SpaceTimeRaster Raster2;  // at the big size
};

// pctSpaceTime.
SpaceTimeSurface& PictureSurface(const Controls& controls);
