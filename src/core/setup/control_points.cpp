#include "core/setup/control_points.h"

#include <cassert>

#include "core/model/experiment_state.h"
#include "core/model/gas.h"
#include "core/model/limits.h"

namespace {

void CopyEntry(ExperimentState& state, int from, int to) {
    state.MSelList[to] = state.MSelList[from];
    state.XSelList[to] = state.XSelList[from];
    state.RhoSelList[to] = state.RhoSelList[from];
    state.PSelList[to] = state.PSelList[from];
    state.VxSelList[to] = state.VxSelList[from];
}

void SetEntry(ExperimentState& state, int k, int cell, double position, const PointValues& values) {
    state.MSelList[k] = cell;
    state.XSelList[k] = position;
    state.RhoSelList[k] = values.Rho;
    state.PSelList[k] = values.P;
    state.VxSelList[k] = values.Vx;
}

void SetCell(ExperimentState& state, int i, const PointValues& values) {
    state.Rho[i] = values.Rho;
    state.P[i] = values.P;
    state.Ux[i] = values.Vx;
    state.Uy[i] = 0.0;
    state.FSmoke[i] = 0.0;
}

PointValues CellValues(const ExperimentState& state, int i) {
    return {state.Rho[i], state.P[i], state.Ux[i]};
}

// The change of (high - low) per cell over a ramp of `cells` cells.
PointValues Slope(const PointValues& low, const PointValues& high, int cells) {
    const double r = 1.0 / cells;
    return {(high.Rho - low.Rho) * r, (high.P - low.P) * r, (high.Vx - low.Vx) * r};
}

// Cells first..last, each its left neighbour plus the slope, so that rounding adds up along the
// ramp.
void LayRamp(ExperimentState& state, int first, int last, const PointValues& slope) {
    for (int i = first; i <= last; ++i) {
        state.P[i] = slope.P + state.P[i - 1];
        state.Ux[i] = slope.Vx + state.Ux[i - 1];
        state.Rho[i] = slope.Rho + state.Rho[i - 1];
        RefreshSoundSpeed(state, i);
    }
}

void ClearTransverse(ExperimentState& state, int first, int last) {
    for (int i = first; i <= last; ++i) {
        state.Uy[i] = 0.0;
        state.FSmoke[i] = 0.0;
    }
}

double PositionOf(const ExperimentState& state, int m, int cellBefore) {
    if (m == 1) return state.X[1] + PositionSetBack;
    if (m == state.NGridCells) return state.X[m + 1] - PositionSetBack;
    if (cellBefore == m - 1) return state.X[m] + PositionSetBack;
    return state.X[m + 1] - PositionSetBack;
}

// Puts m on the empty list, between the two end cells; gives its entry, or the one whose left ramp
// covers the grid.
int StartList(ExperimentState& state, int m, const PointValues& values) {
    const int n = state.NGridCells;
    const double left = state.X[1];
    const double right = state.X[n + 1];
    int k = 0;
    SetEntry(state, k++, 0, left - PositionSetBack, values);
    SetEntry(state, k++, 1, left + PositionSetBack, values);
    if (m != 1 && m != n) SetEntry(state, k++, m, state.X[m + 1] - PositionSetBack, values);
    SetEntry(state, k++, n, right - PositionSetBack, values);
    SetEntry(state, k, n + 1, right + PositionSetBack, values);
    state.NSelected = k - 1;
    for (int entry = 0; entry <= k; ++entry) SetCell(state, state.MSelList[entry], values);
    return 2;
}

// Opens a place in the list for m and gives its entry.
int MakeRoom(ExperimentState& state, int m) {
    int b = 0;
    while (m > state.MSelList[b]) ++b;  // ends at the closing entry, N+1
    for (int k = state.NSelected + 2; k > b; --k) CopyEntry(state, k - 1, k);
    state.NSelected += 1;
    return b;
}

// Bounding cell `to` and the entry that closes the list there become like the end point.
void CopyEndPoint(ExperimentState& state, int fromEntry, int toEntry, int fromCell, int toCell) {
    const double position = state.XSelList[toEntry];
    CopyEntry(state, fromEntry, toEntry);
    state.MSelList[toEntry] = toCell;
    state.XSelList[toEntry] = position;
    SetCell(state, toCell, CellValues(state, fromCell));
    state.Uy[toCell] = state.Uy[fromCell];
    state.FSmoke[toCell] = state.FSmoke[fromCell];
    RefreshSoundSpeed(state, toCell);
}

// The cells between entry b and the one before it.
void LayLeftRamp(ExperimentState& state, int b, const PointValues& values) {
    const int a = state.MSelList[b - 1];
    const int cell = state.MSelList[b];
    LayRamp(state, a + 1, cell - 1, Slope(CellValues(state, a), values, cell - a));
    ClearTransverse(state, a + 1, cell - 1);
    RefreshSoundSpeed(state, cell);
}

}  // namespace

int FindControlPoint(const ExperimentState& state, int cell) {
    for (int k = 1; k <= state.NSelected; ++k) {
        if (state.MSelList[k] == cell) return k;
    }
    return 0;
}

void InsertControlPoint(ExperimentState& state, int m, const PointValues& values) {
    assert(FindControlPoint(state, m) == 0);
    const int n = state.NGridCells;
    int b = 0;
    int cell = m;
    if (state.NSelected == 0) {
        b = StartList(state, m, values);
        cell = state.MSelList[b];
    } else {
        b = MakeRoom(state, m);
        SetEntry(state, b, m, PositionOf(state, m, state.MSelList[b - 1]), values);
        SetCell(state, m, values);
    }

    LayLeftRamp(state, b, values);

    // Measured from the point towards its right neighbour: down the slope from right to left.
    const int c = state.MSelList[b + 1];
    const PointValues fall = Slope(CellValues(state, c), values, c - cell);
    LayRamp(state, cell + 1, c - 1, {-fall.Rho, -fall.P, -fall.Vx});
    ClearTransverse(state, cell + 1, c - 1);

    if (m == 1) CopyEndPoint(state, 1, 0, 1, 0);
    if (m == n) CopyEndPoint(state, state.NSelected, state.NSelected + 1, n, n + 1);
}

void ReplaceControlPoint(ExperimentState& state, int k, const PointValues& values) {
    assert(state.NSelected > 1);
    const int m = state.MSelList[k];
    SetEntry(state, k, m, PositionOf(state, m, state.MSelList[k - 1]), values);
    SetCell(state, m, values);
    LayLeftRamp(state, k, values);
    if (m == 1) CopyEndPoint(state, 1, 0, 1, 0);
    if (m == state.NGridCells) {
        CopyEndPoint(state, state.NSelected, state.NSelected + 1, m, m + 1);
    }
}

void RemoveControlPoint(ExperimentState& state, int k) {
    for (int i = k; i <= state.NSelected; ++i) CopyEntry(state, i + 1, i);
    state.NSelected -= 1;
    if (state.NSelected <= 0) return;

    const int a = state.MSelList[k - 1];
    const int b = state.MSelList[k];
    const PointValues low = CellValues(state, a);
    LayRamp(state, a + 1, b - 1, Slope(low, CellValues(state, b), b - a));
}
