// Jumps that move with the gas: contacts in the density, and edges in what the gas carries. A cell
// that holds one is taken to hold the value of its left neighbour up to some point and that of its
// right neighbour beyond; its average says where the point is. Moved so, a jump stays one cell wide
// for ever, and nothing overshoots.
#pragma once

#include "schemes/arithmetic.h"
#include "schemes/strip.h"

// How far cells first..last hold a jump rather than a smooth slope, from 0 to 1, by the size of the
// third difference against the first. J. Comput. Phys. 54, 174 (1984), eqs. (1.15) and (1.16).
// Reads cells first-2..last+2. Returns whether there is any.
template <typename Float>
bool FindJumps(const Float* a, Row<Float>& jump, int first, int last) {
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float left = a[i] - a[i - 1];
        const Float right = a[i + 1] - a[i];
        const Float rise = left + right;
        const Float bendLeft = Along(left - (a[i - 1] - a[i - 2]), rise);
        const Float bendRight = Along((a[i + 2] - a[i + 1]) - right, rise);
        const Float size = Size(rise);
        // 20 (third / (6 size) - 0.05), cut to 0..1
        const Float third = bendLeft - bendRight;
        const Float raw = Between(Float(0), Float(20.0 / 6.0) * third - size, size);
        const bool turning = (bendLeft > Float(0)) & (bendRight < Float(0));
        const bool rising = (Along(left, rise) > Float(0)) & (Along(right, rise) > Float(0));
        jump[i] = Choose(turning & rising, raw / Most(size, Tiny<Float>()), Float(0));
    }
    return Largest(jump.Origin(), first, last) > Float(0);
}

// Takes away the jumps of density that are no contacts: where the pressure differs by more than
// 0.01 gamma of the relative difference of density, or the density by less than a tenth.
template <typename Float>
void KeepContacts(const StripState<Float>& strip, Float gamma, Row<Float>& jump, int first,
                  int last) {
    const Float* rho = strip.Rho;
    const Float* p = strip.P;
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float rise = Size(rho[i + 1] - rho[i - 1]);
        const Float leastRho = Least(rho[i + 1], rho[i - 1]);
        const Float rush = Size(p[i + 1] - p[i - 1]);
        const Float leastP = Least(p[i + 1], p[i - 1]);
        const bool contact = (rush * leastRho < Float(0.01) * gamma * (rise * leastP)) &
                             (rise > Float(0.1) * leastRho);
        const Float share = jump[i];
        jump[i] = Choose(contact, share, Float(0));
    }
}

// The average, less the cell's own, over the share nu of a cell that holds a jump, next to its edge
// with the neighbour of value `near`; `far` is the other neighbour.
template <typename Float>
[[gnu::always_inline]] inline Float PartOfJump(Float far, Float here, Float near, Float nu) {
    const Float rise = near - far;
    const Float safeRise = Signed(Most(Size(rise), Tiny<Float>()), rise);
    const Float filled = (here - far) / safeRise;
    const Float past = Most(nu - filled, Float(0)) / Most(nu, Tiny<Float>());
    return (near - here) - rise * past;
}
