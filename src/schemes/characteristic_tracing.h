// States on either side of the edges, averaged over the part of the cells from which each kind of
// wave reaches the edge during the step. J. Comput. Phys. 54, 174 (1984), section 3.
#pragma once

#include "schemes/cell_preparation.h"
#include "schemes/jump_steepening.h"
#include "schemes/parabola.h"
#include "schemes/strip.h"
#include "schemes/uneven_parabola.h"

// How far back from the edge, in parts of what a wave sweeps, its speed is taken. 3/4 makes the
// flux of a simple wave third-order in the step (derived, not chosen).
template <typename Float>
constexpr Float SweptBack = Float(0.75);
// Where the gas expands by more than 0.04 c per cell, the part is ExpansionGain du/c +
// ExpansionBase, with du the change of velocity across the cell, up to SweptBackMax. It sharpens
// the ends of strong rarefactions, which the first steps round off. Found by trial on Test 3 and on
// streams that part; an onset at 0 spoils finite sound waves, one at 0.08 loses a tenth on Test 3.
template <typename Float>
constexpr Float ExpansionGain = Float(20);
template <typename Float>
constexpr Float ExpansionBase = Float(-0.05);
template <typename Float>
constexpr Float SweptBackMax = Float(1.5);
// A contact has its rise in one cell: it counts where neither step beside the cell is more than
// WideShare of the rise across it, fully where neither is more than WideShare - 1 / NarrowGain. The
// foot of a ramp has a step beside it of half the rise or more. Found by trial; from 0.35 down
// blast waves lose a sixth.
template <typename Float>
constexpr Float WideShare = Float(0.45);
template <typename Float>
constexpr Float NarrowGain = Float(5);

// The states on the two sides of each edge.
template <typename Float>
struct EdgeStates {
    Row<Float> RhoLeft, PLeft, UxLeft;
    Row<Float> RhoRight, PRight, UxRight;
};

// Gives an edge without a cell on its right the same state there as on its left; no real cell reads
// it.
template <typename Float>
void CloseEdge(EdgeStates<Float>& states, int i) {
    states.RhoRight[i] = states.RhoLeft[i];
    states.PRight[i] = states.PLeft[i];
    states.UxRight[i] = states.UxLeft[i];
}

// The shares of a cell that a kind of wave carries out through its right and its left edge, given
// the speed of the wave at the cell's centre and the change of that speed across the cell. Below 0
// where the wave goes the other way. Moving the speed from the centre to the edge, and back by
// three quarters of what the wave sweeps, makes the flux of a simple wave right to third order in
// the step.
//   back    that part, 3/4 or more
template <typename Float>
struct SweptShares {
    Float Right, Left;

    [[gnu::always_inline]] SweptShares(Float speed, Float rise, Float stepPerWidth, Float back) {
        const Float spread = rise * stepPerWidth;
        const Float centre = (speed * stepPerWidth) * (Float(1) - back * spread);
        Right = Float(0.5) * spread + centre;
        Left = Float(0.5) * spread - centre;
    }
};

// The parabolas of the three characteristic variables of each cell: p + z u, p - z u and c c rho -
// p, with z = rho c and c fixed in the cell.
template <typename Float>
struct CharacteristicParabolas {
    Parabolas<Float> Plus, Minus, Zero;
};

// Differences of the three around cell i.
template <typename Float>
struct CharacteristicDifferences {
    Differences<Float> Plus, Minus, Zero;

    [[gnu::always_inline]] CharacteristicDifferences(const StripState<Float>& strip,
                                                     const CellRows<Float>& cells, int i) {
        const Float* rho = strip.Rho;
        const Float* p = strip.P;
        const Float* u = strip.Ux;
        const Float z = cells.Impedance[i];
        const Float square = cells.SoundSpeed[i] * cells.SoundSpeed[i];
        const Float p1 = p[i - 1] - p[i - 2];
        const Float p2 = p[i] - p[i - 1];
        const Float p3 = p[i + 1] - p[i];
        const Float p4 = p[i + 2] - p[i + 1];
        const Float u1 = z * (u[i - 1] - u[i - 2]);
        const Float u2 = z * (u[i] - u[i - 1]);
        const Float u3 = z * (u[i + 1] - u[i]);
        const Float u4 = z * (u[i + 2] - u[i + 1]);
        const Float r1 = square * (rho[i - 1] - rho[i - 2]);
        const Float r2 = square * (rho[i] - rho[i - 1]);
        const Float r3 = square * (rho[i + 1] - rho[i]);
        const Float r4 = square * (rho[i + 2] - rho[i + 1]);
        Plus = {p1 + u1, p2 + u2, p3 + u3, p4 + u4};
        Minus = {p1 - u1, p2 - u2, p3 - u3, p4 - u4};
        Zero = {r1 - p1, r2 - p2, r3 - p3, r4 - p4};
    }
};

// Whether cell i is wider or narrower than one of the two cells on either side.
template <typename Float>
[[gnu::always_inline]] inline bool IsUneven(const CellRows<Float>& cells, int i) {
    const Row<Float>& perWidth = cells.StepPerWidth;
    const Float most =
        Max(Max(perWidth[i - 2], perWidth[i - 1]), Max(perWidth[i + 2], perWidth[i + 1]));
    const Float least =
        Min(Min(perWidth[i - 2], perWidth[i - 1]), Min(perWidth[i + 2], perWidth[i + 1]));
    const Float difference = Max(most - perWidth[i], perWidth[i] - least);
    return difference > EvenWidths<Float> * perWidth[i];
}

// Interpolates and limits cells first..last, a whole number of chunks. Reads cells first-2..last+2
// of the strip.
template <typename Float>
[[gnu::flatten]] void InterpolateCharacteristics(StripState<Float> strip,
                                                 const CellRows<Float>& cells,
                                                 CharacteristicParabolas<Float>& parabolas,
                                                 int first, int last, WorkDone& work) {
    const Float* edges = strip.Edges;
    const auto isUneven = [&](int i) { return IsUneven(cells, i); };
    const auto interpolate = [&](int i) {
        const CharacteristicDifferences<Float> d(strip, cells, i);
        LimitedParabola(d.Plus, parabolas.Plus.FromLeft[i], parabolas.Plus.ToRight[i]);
        LimitedParabola(d.Minus, parabolas.Minus.FromLeft[i], parabolas.Minus.ToRight[i]);
        LimitedParabola(d.Zero, parabolas.Zero.FromLeft[i], parabolas.Zero.ToRight[i]);
    };
    const auto interpolateUneven = [&](int i) {
        const CharacteristicDifferences<Float> d(strip, cells, i);
        const UnevenStencil<Float> stencil(edges[i - 1] - edges[i - 2], edges[i] - edges[i - 1],
                                           edges[i + 1] - edges[i], edges[i + 2] - edges[i + 1],
                                           edges[i + 3] - edges[i + 2]);
        const bool uneven = IsUneven(cells, i);
        const auto shape = [&](const Differences<Float>& rises, Parabolas<Float>& parabola) {
            Float below, above, belowEven, aboveEven;
            stencil.Parabola(rises, below, above);
            LimitedParabola(rises, belowEven, aboveEven);
            parabola.FromLeft[i] = Select(uneven, below, belowEven);
            parabola.ToRight[i] = Select(uneven, above, aboveEven);
        };
        shape(d.Plus, parabolas.Plus);
        shape(d.Minus, parabolas.Minus);
        shape(d.Zero, parabolas.Zero);
    };
    work.Add(Work::Uneven,
             RunWhereNeeded<Float>(first, last, isUneven, interpolateUneven, interpolate));
}

// Traces cell i: its right face gives the left state of edge i+1, its left face the right state of
// edge i. A wave that does not reach the face is given what the fastest one brings, so that it adds
// nothing of its own; a caller who knows that the gas is slower than sound saves the choice, for
// the same bits.
template <bool KnownSubsonic, typename Float>
[[gnu::always_inline]] inline void TraceCell(const StripState<Float>& strip,
                                             const CellRows<Float>& cells,
                                             const CharacteristicParabolas<Float>& parabolas,
                                             EdgeStates<Float>& states, int i) {
    const Float half = Float(0.5);
    const Float rho = strip.Rho[i];
    const Float p = strip.P[i];
    const Float u = strip.Ux[i];
    const Float c = cells.SoundSpeed[i];
    const Float perZ = cells.PerImpedance[i];
    const Float perC = perZ * rho;
    const Float perSquare = perC * perC;
    const Float plusBelow = parabolas.Plus.FromLeft[i];
    const Float plusAbove = parabolas.Plus.ToRight[i];
    const Float minusBelow = parabolas.Minus.FromLeft[i];
    const Float minusAbove = parabolas.Minus.ToRight[i];
    const Float zeroBelow = parabolas.Zero.FromLeft[i];
    const Float zeroAbove = parabolas.Zero.ToRight[i];
    const Float ratio = cells.StepPerWidth[i];
    const Float riseU = half * (strip.Ux[i + 1] - strip.Ux[i - 1]);
    const Float riseC = half * (cells.SoundSpeed[i + 1] - cells.SoundSpeed[i - 1]);
    const Float expanding = ExpansionGain<Float> * (riseU * perC) + ExpansionBase<Float>;
    const Float back = Clamp(Opaque(SweptBack<Float>), expanding, Opaque(SweptBackMax<Float>));

    const SweptShares<Float> plus(u + c, riseU + riseC, ratio, back);
    const SweptShares<Float> minus(u - c, riseU - riseC, ratio, back);
    const SweptShares<Float> entropyWave(u, riseU, ratio, back);
    const Float plusOut = NonNegative(plus.Right);
    const Float minusOut = NonNegative(minus.Left);
    Float plusSecond = plusOut;
    Float minusSecond = minusOut;
    if constexpr (!KnownSubsonic) {
        plusSecond = Select(u > c, NonNegative(minus.Right), plusOut);
        minusSecond = Select(-u > c, NonNegative(plus.Left), minusOut);
    }

    const Float rightA = RightPart(plusBelow, plusAbove, plusOut);
    const Float rightB = RightPart(minusBelow, minusAbove, plusSecond);
    const Float rightP = half * (rightA + rightB);
    const Float rightRho = RightPart(zeroBelow, zeroAbove, NonNegative(entropyWave.Right)) + rightP;
    states.PLeft[i + 1] = p + rightP;
    states.UxLeft[i + 1] = u + (half * perZ) * (rightA - rightB);
    states.RhoLeft[i + 1] = rho + perSquare * rightRho;

    const Float leftA = LeftPart(plusBelow, plusAbove, minusSecond);
    const Float leftB = LeftPart(minusBelow, minusAbove, minusOut);
    const Float leftP = half * (leftA + leftB);
    const Float leftRho = LeftPart(zeroBelow, zeroAbove, NonNegative(entropyWave.Left)) + leftP;
    states.PRight[i] = p + leftP;
    states.UxRight[i] = u + (half * perZ) * (leftA - leftB);
    states.RhoRight[i] = rho + perSquare * leftRho;
}

// Traces cells first..last, a whole number of chunks.
template <typename Float>
[[gnu::flatten]] void TraceStates(StripState<Float> strip, const CellRows<Float>& cells,
                                  const CharacteristicParabolas<Float>& parabolas,
                                  EdgeStates<Float>& states, int first, int last, WorkDone& work) {
    const auto isSupersonic = [&](int i) { return !(Abs(strip.Ux[i]) <= cells.SoundSpeed[i]); };
    const auto trace = [&](int i) { TraceCell<false>(strip, cells, parabolas, states, i); };
    const auto traceSubsonic = [&](int i) { TraceCell<true>(strip, cells, parabolas, states, i); };
    work.Add(Work::Supersonic,
             RunWhereNeeded<Float>(first, last, isSupersonic, trace, traceSubsonic));
}

// How far a rise of density is confined to cell i, 0 to 1: its steps beside the cell against that
// across it. The foot of a ramp has a step on one side as large as its own.
template <typename Float>
[[gnu::always_inline]] inline Float Narrowness(const Float* rho, int i) {
    const Float rise = rho[i + 1] - rho[i - 1];
    const Float before = Along(rho[i - 1] - rho[i - 2], rise);
    const Float after = Along(rho[i + 2] - rho[i + 1], rise);
    const Float beside = Max(before, after) / Divisor(Abs(rise));
    return Clamp01(NarrowGain<Float> * (WideShare<Float> - beside));
}

// Gives the traced density of cell i, if it holds a contact, the jump's profile instead of the
// parabola's. The pressure is even there, so that the density is all that differs.
template <typename Float>
[[gnu::always_inline]] inline void SteepenContact(const StripState<Float>& strip,
                                                  const CellRows<Float>& cells,
                                                  EdgeStates<Float>& states, int i) {
    const Float* rho = strip.Rho;
    const Float* u = strip.Ux;
    const Jump<Float> jump(rho, i);
    const Float share = Select(IsContact(strip, i), jump.Share() * Narrowness(rho, i), Float(0));
    const SweptShares<Float> swept(u[i], Float(0.5) * (u[i + 1] - u[i - 1]), cells.StepPerWidth[i],
                                   SweptBack<Float>);
    const Float right =
        rho[i] + PartOfJump(rho[i - 1], rho[i], rho[i + 1], NonNegative(swept.Right));
    const Float left = rho[i] + PartOfJump(rho[i + 1], rho[i], rho[i - 1], NonNegative(swept.Left));
    const Float gainR = right - states.RhoLeft[i + 1];
    const Float gainL = left - states.RhoRight[i];
    states.RhoLeft[i + 1] = states.RhoLeft[i + 1] + share * gainR;
    states.RhoRight[i] = states.RhoRight[i] + share * gainL;
}

// Does so in cells first..last, a whole number of chunks.
template <typename Float>
[[gnu::flatten]] void SteepenContacts(StripState<Float> strip, const CellRows<Float>& cells,
                                      EdgeStates<Float>& states, int first, int last,
                                      WorkDone& work) {
    const auto isContact = [=](int i) { return IsContact(strip, i); };
    const auto steepen = [&](int i) { SteepenContact(strip, cells, states, i); };
    RunWhereContacts(strip.Rho, first, last, isContact, steepen, work);
}
