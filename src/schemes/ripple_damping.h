// What takes the sawtooth out of the density that a slow shock leaves behind.
#pragma once

#include "schemes/arithmetic.h"
#include "schemes/riemann_solver.h"

// The largest share of a step that passes through an edge while the fastest signal crosses a cell,
// and the `wavhaf` at which half of it does. Found by trial on Tests 4 and 6; shares of 0.2 to 0.3
// work.
template <typename Float>
constexpr Float LargestDamping = Float(0.3);
template <typename Float>
constexpr Float HalfWavhaf = Float(0.2);

// The strength of the damping from the constant `wavhaf`: 0 at 0 and below, a quarter at 1, 0.3 far
// above.
template <typename Float>
Float RippleDamping(Float wavhaf) {
    const Float w = Clamp(Float(0), wavhaf, Float(1e6));
    return LargestDamping<Float> * w / (w + HalfWavhaf<Float>);
}

// Lets mass pass through the edges first..last from the higher to the lower cell where the density
// of four cells goes up and down in turn, the shortest wave that the grid holds, one cell to half a
// wavelength. The pressure and the velocity stay as they are.
//   strength   per crossing of a cell by the fastest signal; the smallest of the three steps
//   decides
// Reads cells first-2..last+1.
template <typename Float>
void DampRipples(const StripState<Float>& strip, const CellRows<Float>& cells, Float strength,
                 EdgeFluxes<Float>& fluxes, int first, int last) {
    const Float* rho = strip.Rho;
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float here = rho[i] - rho[i - 1];
        const Float left = Along(rho[i - 1] - rho[i - 2], here);
        const Float right = Along(rho[i + 1] - rho[i], here);
        // Above 0 only if both neighbouring steps go the other way.
        const Float step = NonNegative(Min(-Max(left, right), Abs(here)));
        const Float speed = strength * Max(cells.Signal[i - 1], cells.Signal[i]);
        fluxes.Mass[i] = fluxes.Mass[i] - CopySign(speed * step, here);
    }
}
