#include "panel/window/start_up.h"

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "panel/controls.h"
#include "panel/dialogs/prompt.h"
#include "panel/picture/space_time_places.h"
#include "panel/picture/space_time_surface.h"
#include "panel/problems/default_problem.h"
#include "panel/widgets/control_values.h"

namespace {

// A raster of the surface's present size.
SpaceTimeRaster RasterFor(const Surface& surface) {
    return MakeSpaceTimeRaster(RoundToEven(surface.ScaleWidth()),
                               RoundToEven(surface.ScaleHeight()));
}

}  // namespace

void Form_Initialize(ExperimentState& state, Controls& controls) {
    state.StudentIDDefault = CaptionOf(controls.lblStudentID);
    SpaceTimeSurface& surface = PictureSurface(controls);
    surface.Place(SmallSpaceTime);
    surface.Raster1 = RasterFor(surface);
    surface.Place(BigSpaceTime);
    surface.Raster2 = RasterFor(surface);
    surface.Place(SmallSpaceTime);
    PutListText(controls.lstGrayVariable, "Density");
    state.StudentName = Prompt(controls, "Type your name", "Get Student Name", "Jane Q. Student");
    InitDefaultProblem(state, controls);
}

void Form_Unload(ExperimentState& state, Controls& controls) {
    state.Stopped = 1;
    SpaceTimeSurface& surface = PictureSurface(controls);
    surface.Settle();
    surface.Raster1 = SpaceTimeRaster();
    surface.Raster2 = SpaceTimeRaster();
}
