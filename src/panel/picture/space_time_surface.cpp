#include "panel/picture/space_time_surface.h"

#include "panel/controls.h"

SpaceTimeSurface& PictureSurface(const Controls& controls) {
    return static_cast<SpaceTimeSurface&>(*controls.pctSpaceTime);
}
