// The step of the Lagrangian scheme: the cells move with the gas, and what has then crossed the
// edges of the grid makes one conservative update of the cells as they were.
//
// The reach of a cell's result: its fluxes and those of its neighbours (which decide about mending)
// need the shapes of the moved cells on either side of their edges, those two moved cells more on
// either side, and each of these the motion of its edges, from two cells on either side: six in
// all.
#pragma once

#include "schemes/carried_quantity.h"
#include "schemes/gas_update.h"
#include "schemes/operation_counts.h"
#include "schemes/remap.h"
#include "schemes/ripple_damping.h"

// What the way back to the grid is worked on with.
template <typename Float>
struct RemapRows {
    MovedCells<Float> Moved;
    MovedWeights<Float> Weights;
    MovedShapes<Float> Shapes;
};

template <typename Float>
struct LagrangianRows {
    InputRows<Float> Inputs;
    CellRows<Float> Cells;
    Row<Float> Failed;
    EdgeMotion<Float> Motion;
    union {
        SoundStates<Float> Sound;  // until the edges move
        RemapRows<Float> Remap;
        UpdateRows<Float> After;
    };
    EdgeFluxes<Float> Fluxes;

    LagrangianRows() {}
};

namespace lagrangian {

// Cost of a cell: of what every step does, of where the gas stays and where it changes, and of what
// only the chunks do that need it: where an edge is not weak, where a moved cell is looked at more
// closely, where its velocity is made less steep, where there is a contact, and where the gas does
// not cross all edges the same way.
constexpr CellCost SearchCost = {2, 5, 2, 2, 1};
constexpr CellCost KeepingCost = {0, 1, 0, 0, 0};
constexpr CellCost GasCost = {199, 182, 5, 136, 1};
constexpr CellCost StrongEdgeCost = {30, 55, 5, 16, 3};
constexpr CellCost SuspicionCost = {13, 6, 0, 5, 0};
constexpr CellCost TemperingCost = {3, 6, 1, 1, 0};
constexpr CellCost ContactCost = {19, 6, 3, 15, 0};
constexpr CellCost MixedEdgeCost = {0, 0, 0, 11, 0};

}  // namespace lagrangian

// Continues a row past its last element, as far as padded kernels read.
template <typename Float>
void Continue(Row<Float>& row, int last, int beyond) {
    for (int i = last + 1; i <= last + beyond; ++i) row[i] = row[last];
}

// A range of cells.
struct CellRange {
    int First;
    int Last;  // below First if there are none
    int Count() const { return std::max(Last + 1 - First, 0); }
};

// The cells 1..n that a step can change: six on either side of two neighbours that differ. The
// others stay as they are, to the bit.
template <typename Float>
CellRange FindChanging(const StripState<Float>& strip) {
    const int n = strip.Cells;
    const Float* rho = strip.Rho;
    const Float* p = strip.P;
    const Float* u = strip.Ux;
    const auto differs = [=](int i) {
        return !((rho[i] == rho[i - 1]) & (p[i] == p[i - 1]) & (u[i] == u[i - 1]));
    };
    CellRange differing = {n + 7, -6};
    for (int chunk = 2 - NeighbourCells; chunk <= n + NeighbourCells; chunk += CellsAtOnce) {
        if (!AnyInChunk<Float>(chunk, differs)) continue;
        differing.First = std::min(differing.First, chunk);
        differing.Last = chunk + CellsAtOnce - 1;
    }
    if (differing.Count() == 0) return {n + 2, n};
    while (!differs(differing.First)) ++differing.First;
    while (!differs(differing.Last)) --differing.Last;
    return {std::max(differing.First - 6, 1), std::min(differing.Last + 5, n)};
}

// Fills the fluxes through the edges of the given cells, their neighbours included.
template <typename Float>
void LagrangianFluxes(const StripState<Float>& strip, Float gamma, CellRange cells,
                      LagrangianRows<Float>& rows, int* counters) {
    const int count = cells.Count();
    const int first = cells.First - 4;
    const int last = PaddedLast(first, cells.Last + 5);
    TraceSound(strip, rows.Cells, rows.Sound, first, last);
    const int strong = MoveEdges(strip, rows.Cells, rows.Sound, gamma, rows.Motion, first, last);
    CountOperations(lagrangian::StrongEdgeCost, std::min(strong, count), counters);

    MovedCells<Float>& moved = rows.Remap.Moved;
    Continue(rows.Motion.P, last, 5);
    Continue(rows.Motion.Ux, last, 5);
    MoveCells(strip, rows.Cells, rows.Motion, gamma, moved, first, last);
    for (Row<Float>* row : {&moved.Rho, &moved.P, &moved.Ux, &moved.StepPerWidth})
        Continue(*row, last, 5);

    const int firstEdge = cells.First - 1;
    const int lastShape = PaddedLast(firstEdge - 1, cells.Last + 2);
    const int lastEdge = lastShape + 1;
    MovedShapes<Float>& shapes = rows.Remap.Shapes;
    const ShapingWork work =
        ShapeMovedCells(strip, moved, gamma, rows.Remap.Weights, shapes, firstEdge - 1, lastShape);
    for (Parabolas<Float>* shape : {&shapes.Rho, &shapes.P, &shapes.Ux}) {
        Continue(shape->FromLeft, lastShape, 1);
        Continue(shape->ToRight, lastShape, 1);
    }
    Continue(shapes.Contact, lastShape, 1);
    CountOperations(lagrangian::SuspicionCost, std::min(work.Suspect, count), counters);
    CountOperations(lagrangian::TemperingCost, std::min(work.Tempered, count), counters);
    CountOperations(lagrangian::ContactCost, std::min(work.Steepened, count), counters);
    const int mixed =
        SweepEdges(rows.Cells, rows.Motion, moved, shapes, gamma, rows.Fluxes, firstEdge, lastEdge);
    CountOperations(lagrangian::MixedEdgeCost, std::min(mixed, count), counters);
    DampRipples(strip, rows.Cells, RippleDamping(Float(1)), rows.Fluxes, firstEdge, lastEdge);
    EdgeFluxes<Float>& fluxes = rows.Fluxes;
    for (Row<Float>* row : {&fluxes.Mass, &fluxes.Momentum, &fluxes.Energy, &fluxes.Ux})
        Continue(*row, lastEdge, 1);
}

// Brings rows.After.Next to the new density, pressure and velocity of the given cells. Returns
// whether failures had to be mended.
template <typename Float>
bool UpdateRemapped(const StripState<Float>& strip, Float gamma, CellRange cells,
                    LagrangianRows<Float>& rows, int* counters) {
    const int first = cells.First;
    const int last = cells.Last;
    UpdateCells(strip, rows.Cells, rows.Fluxes, gamma, rows.After.Next, first - 1,
                PaddedLast(first - 1, last + 1));
    if (!MarkFailures(strip, rows.After.Next, rows.Failed, first - 1, last + 1, counters))
        return false;
    UseFirstOrderFluxes(strip, rows.Cells, rows.Failed, gamma, rows.Fluxes, first, last + 1);
    UpdateCells(strip, rows.Cells, rows.Fluxes, gamma, rows.After.Next, first, last);
    CountOperations(MendingCost, cells.Count(), counters);
    return true;
}

// Leaves the given cells as they are, and tells what passes through the left edge of each.
template <typename Float>
void KeepCells(const StripState<Float>& strip, CellRange cells, LagrangianRows<Float>& rows) {
#pragma omp simd
    for (int i = cells.First; i <= cells.Last; ++i) {
        rows.Fluxes.Mass[i] = strip.Ux[i] * strip.Rho[i];
        rows.After.Next.Rho[i] = strip.Rho[i];
        rows.After.Next.P[i] = strip.P[i];
        rows.After.Next.Ux[i] = strip.Ux[i];
    }
}

template <typename Float>
Float AdvanceLagrangianBlock(const StripState<Float>& input, const StepConstants<Float>& constants,
                             const StripResult<Float>& result, LagrangianRows<Float>& rows,
                             int* counters) {
    const StripState<Float> strip = CopyStrip(input, rows.Inputs);
    const int n = strip.Cells;
    const Float courant = PrepareStillCells(strip, constants.TimeStep, constants.Gamma, rows.Cells,
                                            1 - NeighbourCells, n + NeighbourCells + CellsAtOnce);
    const CellRange changing = FindChanging(strip);
    CountOperations(lagrangian::SearchCost, n, counters);
    CountOperations(lagrangian::KeepingCost, n - changing.Count(), counters);
    CountOperations(lagrangian::GasCost, changing.Count(), counters);

    bool mended = false;
    if (changing.Count() > 0) {
        LagrangianFluxes(strip, constants.Gamma, changing, rows, counters);
        mended = UpdateRemapped(strip, constants.Gamma, changing, rows, counters);
    }
    KeepCells(strip, {1, changing.First - 1}, rows);
    if (changing.Last < n) KeepCells(strip, {changing.Last + 1, n + 1}, rows);

    UpdateBothCarried(strip, rows.Cells, rows.Fluxes, rows.After, result, counters);
    return Max(courant, HandOver(strip, rows.After.Next, mended, rows.Failed, result, counters));
}

// Advances the strip by one step and returns its Courant number.
template <typename Float>
Float AdvanceLagrangian(const StripState<Float>& strip, const StepConstants<Float>& constants,
                        const StripResult<Float>& result, int* counters) {
    LagrangianRows<Float> rows;
    const auto advance = [&](const StripState<Float>& block,
                             const StripResult<Float>& blockResult) {
        return AdvanceLagrangianBlock(block, constants, blockResult, rows, counters);
    };
    return AdvanceInBlocks(strip, result, advance);
}
