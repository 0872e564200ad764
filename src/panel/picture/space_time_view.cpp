#include "panel/picture/space_time_view.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <optional>

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/picture/space_time_picture.h"
#include "core/picture/space_time_raster.h"
#include "core/run/scheme_table.h"
#include "core/run/state_store.h"
#include "panel/controls.h"
#include "panel/picture/space_time_places.h"
#include "panel/picture/space_time_surface.h"
#include "panel/plots/line_plots.h"
#include "panel/plots/plot_picking.h"
#include "panel/widgets/control_values.h"
#include "panel/widgets/surface.h"

namespace {

// A table of stored values and the size that its picture is to have, in pixels.
struct PictureOrder {
    SpaceTimeTable Table;
    int Width;
    int Height;
};

// What is to be painted of the first `states` stored states; nothing before there are two.
std::optional<PictureOrder> OrderPicture(const ExperimentState& state, Controls& controls,
                                         int states) {
    if (states <= 1) return std::nullopt;
    const Surface& surface = *controls.pctSpaceTime;
    const int height = RoundToEven(surface.ScaleHeight());
    const int width = RoundToEven(surface.ScaleWidth());
    if (state.SpaceTimeBig != 0) {
        PutCaption(controls.lblVelocityPlot, TextOf(controls.lstGrayVariable));
    }
    const SchemeRow* scheme = FindScheme(state.SchemeName);
    if (scheme != nullptr && !scheme->CarriesSmoke &&
        TextOf(controls.lstGrayVariable) == "FSmoke") {
        PutListText(controls.lstGrayVariable, "Density");
    }
    const OffsetArray<float>* stored = StoredVariable(state, TextOf(controls.lstGrayVariable));
    if (stored == nullptr) return std::nullopt;
    return PictureOrder{StoredTable(state, *stored, states), width, height};
}

AxisLimits DrawPicture(const PictureOrder& order, SpaceTimeRaster& raster, DrawingList& list) {
    return DrawSpaceTimePicture(order.Table, order.Width, order.Height, raster, list);
}

void ShowBoxesUnderPicture(Controls& controls, bool visible) {
    for (QLineEdit* box : {controls.txtPressureMin, controls.txtPressureMax, controls.txtDensityMin,
                           controls.txtDensityMax}) {
        PutVisible(box, visible);
    }
}

}  // namespace

void pctSpaceTime_Paint(ExperimentState& state, Controls& controls) {
    PaintFirstStates(state, controls, state.NStored);
}

void PaintFirstStates(ExperimentState& state, Controls& controls, int states) {
    const std::optional<PictureOrder> order = OrderPicture(state, controls, states);
    if (!order) return;
    SpaceTimeSurface& surface = PictureSurface(controls);
    const bool isBig = state.SpaceTimeBig != 0;
    AxisLimits limits{};
    surface.Replace([&](DrawingList& list) {
        limits = DrawPicture(*order, isBig ? surface.Raster2 : surface.Raster1, list);
    });
    if (isBig) {
        PutText(controls.txtVelocityMin, FormatNumber(limits.Lo, "##0.0####"));
        PutText(controls.txtVelocityMax, FormatNumber(limits.Hi, "##0.0####"));
    }
}

void PaintFirstStatesWhenSeen(ExperimentState& state, Controls& controls, int states) {
    if (state.SpaceTimeBig != 0) {
        PaintFirstStates(state, controls, states);
        return;
    }
    const std::optional<PictureOrder> order = OrderPicture(state, controls, states);
    if (!order) return;
    SpaceTimeSurface& surface = PictureSurface(controls);
    surface.ReplaceWhenSeen([&raster = surface.Raster1, &state, order = *order](DrawingList& list) {
        // Every event but the tick has the picture drawn before it may change what is stored.
        assert(order.Table.Generation == state.StoreGeneration);
        if (order.Table.Generation == state.StoreGeneration) DrawPicture(order, raster, list);
    });
}

void pctSpaceTime_Click(ExperimentState& state, Controls& controls) {
    controls.pctSpaceTime->Place(SmallSpaceTime);
    state.SpaceTimeBig = 0;
    ShowBoxesUnderPicture(controls, true);
    const bool isSound = state.SoundWaveMode != 0;
    const char* format = isSound ? "##0.0######" : "##0.0####";
    PutCaption(controls.lblVelocityPlot, isSound ? "R-  Riemann Invariant" : "Velocity");
    PutText(controls.txtVelocityMin, FormatNumber(isSound ? state.RMinusMin : state.VXMin, format));
    PutText(controls.txtVelocityMax, FormatNumber(isSound ? state.RMinusMax : state.VXMax, format));
    pctSpaceTime_Paint(state, controls);
}

void pctSpaceTime_DblClick(ExperimentState& state, Controls& controls) {
    controls.pctSpaceTime->Place(BigSpaceTime);
    state.SpaceTimeBig = 1;
    ShowBoxesUnderPicture(controls, false);
    PutCaption(controls.lblVelocityPlot, TextOf(controls.lstGrayVariable));
    pctSpaceTime_Paint(state, controls);
}

void pctSpaceTime_MouseDown(ExperimentState& state, Controls& controls, float x, float y) {
    if (state.Stopped != 1 || state.NStored <= 1) return;
    const Surface& surface = *controls.pctSpaceTime;
    const double height = std::abs(surface.ScaleHeight());
    const double length = state.X[state.NGridCells + 1] - state.X[1];
    // The top half row of the picture rounds to one state more than there is.
    const int s =
        std::min(RoundToEven(state.NStored - y / (height / state.NStored)), state.NStored - 1);
    const int m = CellAt(state, x / (surface.ScaleWidth() / length));
    if (m < 1 || !IsStored(state, s)) return;

    LoadStoredState(state, s);
    PickCell(state, controls, m);
    state.StoredStateNumber = s;
    PutText(controls.txtStoredStateNumber, FormatNumber(s, "###0"));
    PaintPlots(state, controls);
    pctSpaceTime_Paint(state, controls);
}

void lstGrayVariable_Click(ExperimentState& state, Controls& controls) {
    pctSpaceTime_Paint(state, controls);
}
