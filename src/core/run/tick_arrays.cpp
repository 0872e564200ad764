#include "core/run/tick_arrays.h"

#include <algorithm>

#include "core/model/experiment_state.h"
#include "core/model/limits.h"

StripPlan PlanStrips(int nGridCells, int widestStrip) {
    const int count = (nGridCells + widestStrip - 1) / widestStrip;
    return {count, (nGridCells + count - 1) / count};
}

template <typename Float>
StripArrays<Float>::StripArrays(int widest, int boundary) : Widest(widest) {
    const int rows = Rows * (widest + 2 * boundary);
    for (OffsetArray<Float>* array : {&RhoRows, &PRows, &UxRows, &UyRows, &ZeroRows}) {
        *array = OffsetArray<Float>(1 - boundary, rows - boundary);
    }
    for (OffsetArray<Float>* array : {&RhoStrip, &PStrip, &UxStrip, &UyStrip, &SmokeStrip}) {
        *array = OffsetArray<Float>(1 - boundary, widest + boundary + 1);
        std::fill_n(array->At(1), widest, NotGiven<Float>);
    }
}

template struct StripArrays<double>;
template struct StripArrays<float>;

NarrowedGrid::NarrowedGrid(int last) {
    for (OffsetArray<float>* array : {&XS, &RhoS, &PS, &UxS, &UyS, &SmokeS, &UzOutS}) {
        *array = OffsetArray<float>(FirstCell, last);
    }
}

TickArrays::TickArrays(const ExperimentState& state, const SchemeLibrary& library)
    : Library(library), StepDT(state.DTime) {
    if (!Library.IsLoaded()) return;
    const int n = state.NGridCells;
    const int b = state.NBDY;
    for (OffsetArray<double>* array : {&RhoOut, &POut, &UxOut}) {
        *array = OffsetArray<double>(FirstCell, state.Rho.Last());
    }
    UzOut = OffsetArray<double>(FirstCell, n + b + 1);
    if (Library.Kestrel64 != nullptr) {
        Strip64 = StripArrays<double>(PlanStrips(n, WidestStrip64).StripWidth, b);
        return;
    }
    const StripPlan plan = PlanStrips(n, WidestStrip32);
    Grid32 = NarrowedGrid(std::max(n, plan.StripCount * plan.StripWidth) + b + 1);
    Strip32 = StripArrays<float>(plan.StripWidth, b);
}
