#include "model/start_up.h"

#include "display/control_values.h"
#include "display/controls.h"
#include "display/space_time_places.h"
#include "display/surface.h"
#include "model/experiment_state.h"
#include "model/number_text.h"
#include "panel/prompt.h"
#include "setup/default_problem.h"

namespace {

// A raster of the surface's present size.
SpaceTimeRaster RasterFor(const Surface& surface) {
    return MakeSpaceTimeRaster(RoundToEven(surface.ScaleWidth()),
                               RoundToEven(surface.ScaleHeight()));
}

}  // namespace

void Form_Initialize(ExperimentState& state, Controls& controls) {
    state.StudentIDDefault = CaptionOf(controls.lblStudentID);
    controls.pctSpaceTime->Place(SmallSpaceTime);
    state.Raster1 = RasterFor(*controls.pctSpaceTime);
    controls.pctSpaceTime->Place(BigSpaceTime);
    state.Raster2 = RasterFor(*controls.pctSpaceTime);
    controls.pctSpaceTime->Place(SmallSpaceTime);
    state.BeforeStoreChanges = [surface = controls.pctSpaceTime] { surface->Settle(); };
    PutListText(controls.lstGrayVariable, "Density");
    state.StudentName = Prompt(controls, "Type your name", "Get Student Name", "Jane Q. Student");
    InitDefaultProblem(state, controls);
}

void Form_Unload(ExperimentState& state, Controls& controls) {
    state.Stopped = 1;
    controls.pctSpaceTime->Settle();
    state.Raster1 = SpaceTimeRaster();
    state.Raster2 = SpaceTimeRaster();
}
