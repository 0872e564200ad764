// What keeps density and pressure positive: cells that the full scheme would empty or cool below
// zero get the fluxes of a first-order scheme through both edges.
#pragma once

#include <algorithm>

#include "schemes/conservative_update.h"
#include "schemes/operation_counts.h"

// A cell must keep at least this share of the least density and pressure that it and its neighbours
// hold. Far below what any wave leaves behind that is resolved; found by trial, 1e-4 to 1e-2 work.
template <typename Float>
constexpr Float LeastKept = Float(0.001);

// Whether cell i would keep less than it must, or is NaN.
template <typename Float>
inline bool Fails(const Float* old, Float now, int i) {
    const Float least = Min(old[i], Min(old[i - 1], old[i + 1]));
    return !(now > LeastKept<Float> * least) | !(now <= Opaque(LargestFinite<Float>));
}

// Tells whether any of cells first..last failed, and if so marks those that did with 1, the others
// with 0.
template <typename Float>
bool MarkFailures(StripState<Float> strip, const NewState<Float>& next, Row<Float>& failed,
                  int first, int last, WorkDone& work) {
    const auto fails = [&](int i) {
        return Fails(strip.Rho, next.Rho[i], i) | Fails(strip.P, next.P[i], i);
    };
    work.Add(Work::FailureSearch, last + 1 - first);
    if (!Any<Float>(first, last, fails)) return false;
    work.Add(Work::Marking, last + 1 - first);
#pragma omp simd
    for (int i = first; i <= last; ++i) failed[i] = Select(fails(i), Float(1), Float(0));
    return true;
}

// Puts the fluxes of the first-order scheme with the largest local signal speed on those of the
// edges first..last that bound a marked cell. On cells of equal width they keep positive states
// positive up to Courant number 1, but for rounding.
template <typename Float>
void UseFirstOrderFluxes(const StripState<Float>& strip, const CellRows<Float>& cells,
                         const Row<Float>& failed, Float gamma, EdgeFluxes<Float>& fluxes,
                         int first, int last) {
    const Float half = Float(0.5);
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float rhoL = strip.Rho[i - 1];
        const Float rhoR = strip.Rho[i];
        const Float uL = strip.Ux[i - 1];
        const Float uR = strip.Ux[i];
        const Float heatL = strip.P[i - 1] / (gamma - Float(1));
        const Float heatR = strip.P[i] / (gamma - Float(1));
        const Float fastest = Max(cells.Signal[i - 1], cells.Signal[i]);

        // Seen by an observer between the two cells.
        const Float drift = half * (uR - uL);
        const Float goingL = rhoL * (fastest + uL);
        const Float goingR = rhoR * (uR - fastest);
        const Float mass = half * (goingL + goingR);
        const Float momentum = half * ((strip.P[i - 1] + strip.P[i]) + drift * (goingR - goingL));
        const Float energy =
            half *
            ((heatL * (fastest + uL) + heatR * (uR - fastest)) +
             (half * drift * drift * (goingL + goingR) + drift * (strip.P[i] - strip.P[i - 1])));

        const bool replace = failed[i - 1] + failed[i] > Float(0);
        fluxes.Mass[i] = Select(replace, mass, fluxes.Mass[i]);
        fluxes.Momentum[i] = Select(replace, momentum, fluxes.Momentum[i]);
        fluxes.Energy[i] = Select(replace, energy, fluxes.Energy[i]);
        fluxes.Ux[i] = Select(replace, half * (uL + uR), fluxes.Ux[i]);
    }
}

// Writes cells 1..Cells of the result. If some were mended, those that fail even so keep their old
// state, and the return value is 1, a Courant number at which no caller takes the step; otherwise
// 0.
template <typename Float>
Float HandOver(const StripState<Float>& strip, const NewState<Float>& next, bool mended,
               Row<Float>& failed, const StripResult<Float>& result, WorkDone& work) {
    const int n = strip.Cells;
    const bool keepsAny = mended && MarkFailures(strip, next, failed, 1, n, work);
    if (!keepsAny) {
        std::copy_n(&next.Rho[1], n, result.Rho + 1);
        std::copy_n(&next.P[1], n, result.P + 1);
        std::copy_n(&next.Ux[1], n, result.Ux + 1);
        return Float(0);
    }
    for (int i = 1; i <= n; ++i) {
        const bool keep = failed[i] > Float(0);
        result.Rho[i] = keep ? strip.Rho[i] : next.Rho[i];
        result.P[i] = keep ? strip.P[i] : next.P[i];
        result.Ux[i] = keep ? strip.Ux[i] : next.Ux[i];
    }
    return Float(1);
}
