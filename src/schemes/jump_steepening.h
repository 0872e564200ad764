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
        Size = ::Abs(rise);
        // 20 (third / (6 size) - 0.05), cut to 0..1
        const Float third = bendLeft - bendRight;
        const Float raw = Clamp(Opaque(Float(0)), Float(20.0 / 6.0) * third - Size, Size);
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
    [[gnu::always_inline]] Float Share() const { return Excess / Max(Size, Opaque(Tiny<Float>)); }
};

// Whether the density beside cell i differs by more than a tenth, as it must at a contact. Most
// chunks are done with once this has been looked at.
template <typename Float>
[[gnu::always_inline]] inline bool IsSteep(const Float* rho, int i) {
    return Abs(rho[i + 1] - rho[i - 1]) > Float(0.1) * Min(rho[i + 1], rho[i - 1]);
}

// Whether a jump of density in cell i is a contact: the density differs by more than a tenth and
// the pressure by less than a twenty-fifth. A closer match would leave contacts to spread wherever
// waves run through them, and to be swept together again afterwards.
template <typename Float>
[[gnu::always_inline]] inline bool IsContact(const StripState<Float>& strip, int i) {
    const Float* p = strip.P;
    const Float pressureJump = Abs(p[i + 1] - p[i - 1]);
    return (pressureJump < Float(0.04) * Min(p[i + 1], p[i - 1])) & IsSteep(strip.Rho, i);
}

// How many cells lay in chunks that were looked at more closely, and in chunks that hold a contact.
struct ContactWork {
    int Suspect;
    int Steepened;
};

// Calls steepen(i) for all cells i of those chunks among cells first..last that hold a jump of
// density for which isContact(i).
template <typename Float, typename Test, typename Steepen>
[[gnu::always_inline]] inline ContactWork ForChunksWithContacts(const Float* rho, int first,
                                                                int last, Test isContact,
                                                                Steepen steepen) {
    ContactWork work = {0, 0};
    for (int chunk = first; chunk <= last; chunk += CellsAtOnce) {
        if (!AnyInChunk<Float>(chunk, [=](int i) { return IsSteep(rho, i); })) continue;
        work.Suspect += CellsAtOnce;
        const auto holdsContact = [&](int i) { return isContact(i) & Jump<Float>(rho, i).IsOne(); };
        if (!AnyInChunk<Float>(chunk, holdsContact)) continue;
        work.Steepened += CellsAtOnce;
#pragma omp simd
        for (int i = chunk; i < chunk + CellsAtOnce; ++i) steepen(i);
    }
    return work;
}

// The average, less the cell's own, over the share nu of a cell that holds a jump, next to its edge
// with the neighbour of value `near`; `far` is the other neighbour.
template <typename Float>
[[gnu::always_inline]] inline Float PartOfJump(Float far, Float here, Float near, Float nu) {
    const Float rise = near - far;
    const Float safeRise = CopySign(Max(Abs(rise), Opaque(Tiny<Float>)), rise);
    const Float filled = (here - far) / safeRise;
    // At most the share itself: a cell that holds no jump may be less than empty, by any amount.
    const Float past = Min(Max(nu - filled, Opaque(Float(0))), nu) / Max(nu, Opaque(Tiny<Float>));
    return (near - here) - rise * past;
}
