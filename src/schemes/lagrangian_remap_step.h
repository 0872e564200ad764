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
#include "schemes/remap.h"
#include "schemes/ripple_damping.h"

namespace lagrangian {

// Scratch rows of the way back to the grid.
template <typename Float>
struct RemapRows {
    MovedCells<Float> Moved;
    MovedWeights<Float> Weights;
    MovedShapes<Float> Shapes;
};

template <typename Float>
struct StepRows {
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

    StepRows() {}
};

// Continues a row past its last element, as far as padded kernels read.
template <typename Float>
void Continue(Row<Float>& row, int last, int beyond) {
    for (int i = last + 1; i <= last + beyond; ++i) row[i] = row[last];
}

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
    CellRange differing = ChunksWhere<Float>(2 - NeighbourCells, n + NeighbourCells, differs);
    if (differing.Count() == 0) return {n + 2, n};
    while (!differs(differing.First)) ++differing.First;
    while (!differs(differing.Last)) --differing.Last;
    return {std::max(differing.First - 6, 1), std::min(differing.Last + 5, n)};
}

// Steps 1 to 3: the cells that have moved with the gas, and how the edges of cells first..last
// moved.
template <typename Float>
void Move(const StripState<Float>& strip, Float gamma, int first, int last, StepRows<Float>& rows,
          WorkDone& work) {
    // 1. States beside the edges.
    TraceSound(strip, rows.Cells, rows.Sound, first, last);
    // 2. Motion of the edges.
    MoveEdges(strip, rows.Cells, rows.Sound, gamma, rows.Motion, first, last, work);
    Continue(rows.Motion.P, last, 5);
    Continue(rows.Motion.Ux, last, 5);
    // 3. Moved cells.
    MovedCells<Float>& moved = rows.Remap.Moved;
    MoveCells(strip, rows.Cells, rows.Motion, gamma, moved, first, last);
    for (Row<Float>* row : {&moved.Rho, &moved.P, &moved.Ux, &moved.StepPerWidth})
        Continue(*row, last, 5);
}

// Steps 4 and 5: the fluxes through edges firstEdge..lastEdge of the grid; lastEdge is the edge
// behind a whole number of chunks of cells from firstEdge - 1 on.
template <typename Float>
void Remap(const StripState<Float>& strip, Float gamma, int firstEdge, int lastEdge,
           StepRows<Float>& rows, WorkDone& work) {
    const MovedCells<Float>& moved = rows.Remap.Moved;
    MovedShapes<Float>& shapes = rows.Remap.Shapes;
    EdgeFluxes<Float>& fluxes = rows.Fluxes;
    const int lastShape = lastEdge - 1;
    // 4. Shapes of the moved cells.
    ShapeMovedCells(strip, moved, gamma, rows.Remap.Weights, shapes, firstEdge - 1, lastShape,
                    work);
    for (Parabolas<Float>* shape : {&shapes.Rho, &shapes.P, &shapes.Ux}) {
        Continue(shape->FromLeft, lastShape, 1);
        Continue(shape->ToRight, lastShape, 1);
    }
    Continue(shapes.Contact, lastShape, 1);
    // 5. What has crossed the fixed edges.
    SweepEdges(rows.Cells, rows.Motion, moved, shapes, gamma, fluxes, firstEdge, lastEdge, work);
    DampRipples(strip, rows.Cells, RippleDamping(Float(1)), fluxes, firstEdge, lastEdge);
    for (Row<Float>* row : {&fluxes.Mass, &fluxes.Momentum, &fluxes.Energy, &fluxes.Ux})
        Continue(*row, lastEdge, 1);
}

// Steps 6 and 7: brings rows.After.Next to the new density, pressure and velocity of the given
// cells. Returns whether failures had to be mended.
template <typename Float>
bool UpdateRemapped(const StripState<Float>& strip, Float gamma, CellRange cells,
                    StepRows<Float>& rows, WorkDone& work) {
    const int first = cells.First;
    const int last = cells.Last;
    NewState<Float>& next = rows.After.Next;
    // 6. Update.
    UpdateCells(strip, rows.Cells, rows.Fluxes, gamma, next, first - 1,
                PaddedLast(first - 1, last + 1));
    // 7. Positivity.
    if (!MarkFailures(strip, next, rows.Failed, first - 1, last + 1, work)) return false;
    UseFirstOrderFluxes(strip, rows.Cells, rows.Failed, gamma, rows.Fluxes, first, last + 1);
    UpdateCells(strip, rows.Cells, rows.Fluxes, gamma, next, first, last);
    work.Add(Work::Mending, cells.Count());
    return true;
}

// Leaves the given cells as they are, and sets the mass flux through the left edge of each.
template <typename Float>
void KeepCells(const StripState<Float>& strip, CellRange cells, StepRows<Float>& rows) {
#pragma omp simd
    for (int i = cells.First; i <= cells.Last; ++i) {
        rows.Fluxes.Mass[i] = strip.Ux[i] * strip.Rho[i];
        rows.After.Next.Rho[i] = strip.Rho[i];
        rows.After.Next.P[i] = strip.P[i];
        rows.After.Next.Ux[i] = strip.Ux[i];
    }
}

template <typename Float>
Float AdvanceBlock(const StripState<Float>& input, const StepConstants<Float>& constants,
                   const StripResult<Float>& result, StepRows<Float>& rows, WorkDone& work) {
    const StripState<Float> strip = CopyStrip(input, rows.Inputs);
    const int n = strip.Cells;
    const Float gamma = constants.Gamma;
    const Float courant = PrepareStillCells(strip, constants.TimeStep, gamma, rows.Cells,
                                            1 - NeighbourCells, n + NeighbourCells + CellsAtOnce);
    const CellRange changing = FindChanging(strip);
    const int changed = changing.Count();
    work.Add(Work::Preparation, n);
    work.Add(Work::Quiet, n - changed);
    work.Add(Work::Gas, changed);

    bool mended = false;
    if (changed > 0) {
        const int first = changing.First - 4;
        work.Limit = changed;
        Move(strip, gamma, first, PaddedLast(first, changing.Last + 5), rows, work);
        Remap(strip, gamma, changing.First - 1,
              PaddedLast(changing.First - 2, changing.Last + 2) + 1, rows, work);
        work.Limit = n;
        mended = UpdateRemapped(strip, gamma, changing, rows, work);
    }
    KeepCells(strip, {1, changing.First - 1}, rows);
    if (changing.Last < n) KeepCells(strip, {changing.Last + 1, n + 1}, rows);

    UpdateBothCarried(strip, rows.Cells, rows.Fluxes, rows.After, result, work);
    return Max(courant, HandOver(strip, rows.After.Next, mended, rows.Failed, result, work));
}

}  // namespace lagrangian

// Advances the strip by one step and returns its Courant number. The steps are numbered as in
// docs/schemes.md.
template <typename Float>
Float AdvanceLagrangian(const StripState<Float>& strip, const StepConstants<Float>& constants,
                        const StripResult<Float>& result, int* counters) {
    lagrangian::StepRows<Float> rows;
    const auto advance = [&](const StripState<Float>& block, const StripResult<Float>& blockResult,
                             WorkDone& work) {
        return lagrangian::AdvanceBlock(block, constants, blockResult, rows, work);
    };
    return AdvanceInBlocks(strip, result, LagrangianCosts, counters, advance);
}
