// Jumps that move with the gas: contacts in the density, and edges in what the gas carries. A cell
// that holds one is taken to hold the value of its left neighbour up to some point and that of its
// right neighbour beyond; its average says where the point is. Moved so, a jump stays one cell wide
// for ever, and nothing overshoots.
#pragma once

#include "schemes/arithmetic.h"
#include "schemes/parabola.h"
#include "schemes/strip.h"

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
        Size = ::Size(rise);
        // 20 (third / (6 size) - 0.05), cut to 0..1
        const Float third = bendLeft - bendRight;
        const Float raw = Between(Bound<Float>::Zero, Float(20.0 / 6.0) * third - Size, Size);
        const bool turning = (bendLeft > Float(0)) & (bendRight < Float(0));
        const bool rising = (Along(d.Second, rise) > Float(0)) & (Along(d.Third, rise) > Float(0));
        Excess = Choose(turning & rising, raw, Float(0));
    }
    // In cell i of a.
    [[gnu::always_inline]] Jump(const Float* a, int i)
        : Jump(Differences<Float>{a[i - 1] - a[i - 2], a[i] - a[i - 1], a[i + 1] - a[i],
                                  a[i + 2] - a[i + 1]}) {}
    [[gnu::always_inline]] bool IsOne() const { return Excess > Float(0); }
    // 0 to 1
    [[gnu::always_inline]] Float Share() const { return Excess / Most(Size, Bound<Float>::Tiny); }
};

// Whether a jump of density in cell i is a contact: the density differs by more than a tenth and
// the pressure by less than a twenty-fifth. A closer match would leave contacts to spread wherever
// waves run through them, and to be swept together again afterwards.
template <typename Float>
[[gnu::always_inline]] inline bool IsContact(const StripState<Float>& strip, int i) {
    const Float* rho = strip.Rho;
    const Float* p = strip.P;
    const Float rise = Size(rho[i + 1] - rho[i - 1]);
    const Float rush = Size(p[i + 1] - p[i - 1]);
    return (rush < Float(0.04) * Least(p[i + 1], p[i - 1])) &
           (rise > Float(0.1) * Least(rho[i + 1], rho[i - 1]));
}

// The average, less the cell's own, over the share nu of a cell that holds a jump, next to its edge
// with the neighbour of value `near`; `far` is the other neighbour.
template <typename Float>
[[gnu::always_inline]] inline Float PartOfJump(Float far, Float here, Float near, Float nu) {
    const Float rise = near - far;
    const Float safeRise = Signed(Most(Size(rise), Bound<Float>::Tiny), rise);
    const Float filled = (here - far) / safeRise;
    // At most the share itself: a cell that holds no jump may be less than empty, by any amount.
    const Float past =
        Least(Most(nu - filled, Bound<Float>::Zero), nu) / Most(nu, Bound<Float>::Tiny);
    return (near - here) - rise * past;
}
