#include "core/setup/point_replay.h"

#include <algorithm>
#include <cmath>

#include "core/model/experiment_state.h"
#include "core/model/gas.h"
#include "core/model/number_text.h"
#include "core/model/run_stage.h"
#include "core/run/axis_ranges.h"
#include "core/run/first_step.h"
#include "core/run/state_store.h"
#include "core/setup/grid.h"
#include "core/setup/point_mapping.h"
#include "core/setup/smoke.h"

namespace {

double AsShown(double value, const char* format) {
    return ReadNumber(FormatNumber(value, format)).value_or(value);
}

}  // namespace

void Extremes::TakeIn(double v) {
    Lo = std::min(Lo, v);
    Hi = std::max(Hi, v);
}

void Extremes::SetAxis(double noSpan, double& lo, double& hi) const {
    const double span = (Hi - Lo) * AxisMargin;
    const double d = span > 0.0 ? span : VisibleMargin(noSpan, Hi);
    hi = Hi + d;
    lo = Lo - d;
}

PointExtremes::PointExtremes(const ExperimentState& state)
    : Rho{state.RhoSelList[1], state.RhoSelList[1]},
      P{state.PSelList[1], state.PSelList[1]},
      Vx{state.VxSelList[1], state.VxSelList[1]} {}

void LayBareGrid(ExperimentState& state) {
    AllocateArrays(state);
    // A file may have been given fewer cells by hand than its points were placed on.
    if (state.MSelList[state.NSelected] > state.NGridCells) MapControlPoints(state);
    InitSmokePattern(state);
    const int n = state.NGridCells;
    for (int i = 0; i <= n + 1; ++i) {
        const int entry = i < n ? 0 : 1;
        state.Rho[i] = state.RhoSelList[entry];
        state.P[i] = state.PSelList[entry];
        state.Ux[i] = state.VxSelList[entry];
        state.Uy[i] = 0.0;
        state.FSmoke[i] = 0.0;
        RefreshSoundSpeed(state, i);
    }
}

void EnterPoint(ExperimentState& state, int k, PointExtremes& extremes) {
    state.PSel = state.PSelList[k];
    state.P[state.MSelected] = state.PSel;
    extremes.P.TakeIn(state.PSel);
    extremes.P.SetAxis(extremes.P.Hi * AxisMargin, state.PMin, state.PMax);

    state.VxSel = state.VxSelList[k];
    state.Ux[state.MSelected] = state.VxSel;
    extremes.Vx.TakeIn(state.VxSel);
    const double soundSpeed = std::sqrt(state.P[1] * state.Gamma / state.Rho[1]);
    extremes.Vx.SetAxis(AxisMargin * soundSpeed, state.VXMin, state.VXMax);
    state.Uy[state.MSelected] = 0.0;
    state.FSmoke[state.MSelected] = 0.0;
    state.NGridCellsD = state.NGridCells;

    state.RhoSel = state.RhoSelList[k];
    state.Rho[state.MSelected] = state.RhoSel;
    extremes.Rho.TakeIn(state.RhoSel);
    extremes.Rho.SetAxis(extremes.Rho.Hi * AxisMargin, state.RhoMin, state.RhoMax);
}

PointValues ValuesAsShown(const ExperimentState& state, int k) {
    const double rho = AsShown(state.RhoSelList[k], "#0.0000##");
    return {std::max(rho > 0.0 ? rho : state.RhoSelList[k], state.RhoFloor),
            std::max(AsShown(state.PSelList[k], "0.0000##"), state.PFloor),
            AsShown(state.VxSelList[k], "#0.0000##")};
}

void ReplayFirstPoints(ExperimentState& state, int last, PointExtremes& extremes) {
    const bool selects = IsBeforeRun(state);
    for (int k = 1; k <= last; ++k) {
        const PointValues values = ValuesAsShown(state, k);
        state.MSelected = state.MSelList[k];
        EnterPoint(state, k, extremes);
        if (selects) ReplaceControlPoint(state, k, values);
    }
}

void ReplayLastPoint(ExperimentState& state, PointExtremes& extremes) {
    const int k = state.NSelected;
    const PointValues values = ValuesAsShown(state, k);
    state.MSelected = state.MSelList[k];
    EnterPoint(state, k, extremes);
    if (IsBeforeRun(state)) SelectPoint(state, state.MSelected, values);
}

void SelectPoint(ExperimentState& state, int m, const PointValues& values) {
    TakeIntoRange(values.Rho, state.RhoMin, state.RhoMax);
    TakeIntoRange(values.P, state.PMin, state.PMax);
    TakeIntoRange(values.Vx, state.VXMin, state.VXMax);
    if (FindControlPoint(state, m) > 0) DeselectPoint(state, m);
    state.RhoSel = values.Rho;
    state.PSel = values.P;
    state.VxSel = values.Vx;
    state.MSelected = m;
    InsertControlPoint(state, m, values);
    SetInitialDTime(state);
    InitSmokePattern(state);
}

void DeselectPoint(ExperimentState& state, int m) {
    const int k = FindControlPoint(state, m);
    if (k > 0) RemoveControlPoint(state, k);
    SetInitialDTime(state);
    InitSmokePattern(state);
}

void FinishReplay(ExperimentState& state) {
    state.DTime = FirstTimeStep(state);
    SetPeriodClock(state, 1.0 / state.C[1]);
    TakeSnapshot(state, 0);
}
