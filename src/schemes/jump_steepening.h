// Jumps that move with the gas: contacts in the density, and edges in what the gas carries. A cell
// that holds one is taken to hold the value of its left neighbour up to some point and that of its
// right neighbour beyond; its average says where the point is. Moved so, a jump stays one cell wide
// for ever, and nothing overshoots.
#pragma once

#include "schemes/arithmetic.h"
#include "schemes/operation_counts.h"
#include "schemes/parabola.h"
#include "schemes/strip.h"

// A cell holds a jump by the share JumpGain (third difference / (6 first difference) - JumpOnset),
// cut to 0..1. J. Comput. Phys. 54, 174 (1984), eq. (1.16).
constexpr double JumpGain = 20.0;
constexpr double JumpOnset = 0.05;
static_assert(JumpGain * JumpOnset == 1.0);  // spares the kernels a product
// At a contact the density differs over two cells by more than this share of its lower value. Same
// source, eq. (1.16), which has 0.01; found by trial, 0.05 to 0.15 work.
template <typename Float>
constexpr Float ContactRise = Float(0.1);
// And the pressure by less than this share. Found by trial: below 0.03 contacts spread wherever
// waves run through them and are swept together again afterwards; from 0.06 on gas is heaped up.
template <typename Float>
constexpr Float ContactPressureJump = Float(0.04);

// How far a cell holds a jump rather than a smooth slope, by the size of the third difference
// against the first. J. Comput. Phys. 54, 174 (1984), eqs. (1.15) and (1.16).
template <typename Float>
struct Jump {
    Float Size;    // of the first difference
    Float Excess;  // Size times the share

    [[gnu::always_inline]] explicit Jump(const Differences<Float>& d) {
        const Float rise = d.Second + d.Third;
        const Float bendLeft = Along(d.Second - d.First, rise);
        const Float bendRight = Along(d.Fourth - d.Third, rise);
        Size = Abs(rise);
        const Float third = bendLeft - bendRight;
        const Float excess = Float(JumpGain / 6.0) * third - Size;
        const Float raw = Min(NonNegative(excess), Size);
        const bool turning = (bendLeft > Float(0)) & (bendRight < Float(0));
        const bool rising = (Along(d.Second, rise) > Float(0)) & (Along(d.Third, rise) > Float(0));
        Excess = Select(turning & rising, raw, Float(0));
    }
    // In cell i of a.
    [[gnu::always_inline]] Jump(const Float* a, int i)
        : Jump(Differences<Float>{a[i - 1] - a[i - 2], a[i] - a[i - 1], a[i + 1] - a[i],
                                  a[i + 2] - a[i + 1]}) {}
    [[gnu::always_inline]] bool IsOne() const { return Excess > Float(0); }
    // 0 to 1
    [[gnu::always_inline]] Float Share() const { return Excess / Divisor(Size); }
};

// Whether the density beside cell i differs enough for a contact. Cheap and necessary: most chunks
// need no further test.
template <typename Float>
[[gnu::always_inline]] inline bool IsSteep(const Float* rho, int i) {
    return Abs(rho[i + 1] - rho[i - 1]) > ContactRise<Float> * Min(rho[i + 1], rho[i - 1]);
}

// Whether a jump of density in cell i is a contact rather than a shock.
template <typename Float>
[[gnu::always_inline]] inline bool IsContact(const StripState<Float>& strip, int i) {
    const Float* p = strip.P;
    const Float pressureJump = Abs(p[i + 1] - p[i - 1]);
    return (pressureJump < ContactPressureJump<Float> * Min(p[i + 1], p[i - 1])) &
           IsSteep(strip.Rho, i);
}

// Calls steepen(i) for all cells of the chunks among cells first..last that hold a jump of density
// for which isContact(i).
template <typename Float, typename Test, typename Steepen>
[[gnu::always_inline]] inline void RunWhereContacts(const Float* rho, int first, int last,
                                                    Test isContact, Steepen steepen,
                                                    WorkDone& work) {
    const auto isSteep = [=](int i) { return IsSteep(rho, i); };
    const auto holdsContact = [&](int i) { return isContact(i) & Jump<Float>(rho, i).IsOne(); };
    int contacts = 0;
    work.Add(Work::SteepDensity, ForEachChunk(first, last, [&](int chunk) {
                 if (!AnyInChunk<Float>(chunk, isSteep)) return 0;
                 if (AnyInChunk<Float>(chunk, holdsContact)) {
                     RunChunk(chunk, steepen);
                     contacts += CellsAtOnce;
                 }
                 return CellsAtOnce;
             }));
    work.Add(Work::Contact, contacts);
}

// The average, less the cell's own, over the share nu of a cell that holds a jump, next to its edge
// with the neighbour of value `near`; `far` is the other neighbour.
template <typename Float>
[[gnu::always_inline]] inline Float PartOfJump(Float far, Float here, Float near, Float nu) {
    const Float rise = near - far;
    const Float safeRise = CopySign(Divisor(Abs(rise)), rise);
    const Float filled = (here - far) / safeRise;
    // At most the share itself: a cell that holds no jump may be less than empty, by any amount.
    const Float past = Min(NonNegative(nu - filled), nu) / Divisor(nu);
    return (near - here) - rise * past;
}
