// Limited parabolas of density, velocity and pressure, each by itself, from work that neighbouring
// cells share: a slope for each cell, and from the slopes a value at each edge.
#pragma once

#include "schemes/arithmetic.h"
#include "schemes/jump_steepening.h"
#include "schemes/parabola.h"
#include "schemes/strip.h"

// Data are smooth at an edge if the third difference is at most this share of the sum of the two
// second differences beside it, which then agree within a factor of 1.5. Found by trial.
template <typename Float>
constexpr Float SmoothShare = Float(0.2);
// A jump is mostly a contact if the relative difference of pressure is below this times gamma times
// that of density. J. Comput. Phys. 54, 174 (1984), eq. (3.2).
template <typename Float>
constexpr Float MostlyContact = Float(0.1);
// A cell is squeezed if its pressure is this many times that of either neighbour, in a compression.
// Found by trial: from 1.05 to 2 the results agree within a few per cent; at 1 the ripples of
// strong shocks count too, and everything with a shock loses a fifth.
template <typename Float>
constexpr Float SqueezeRatio = Float(1.3);

// A shock is thin where this share of a rise of pressure over four cells falls on the middle two,
// and the rise there is more than ThinRiseJump of the lower pressure. Its cells keep
// ThinShockSteepness of their parabolas. Found by trial on slow shocks: none of it kept widens the
// fast ones, all of it kept leaves 2.5 times the noise on Test 4.
template <typename Float>
constexpr Float ThinRiseShare = Float(0.9);
template <typename Float>
constexpr Float ThinRiseJump = Float(0.3);
template <typename Float>
constexpr Float ThinShockSteepness = Float(0.5);

// The parabolas of a row of cells, each in two forms: with limited edge values, but not monotone
// yet, and with unlimited ones, for cells both of whose edges lie in smooth data (1, else 0).
template <typename Float>
struct RoughParabolas {
    Parabolas<Float> Limited, Unlimited;
    Row<Float> SmoothEdge;
    Row<Float> HalfSlope;  // half of the limited slope
};

// Half the slope of a cell between the differences to its two neighbours: half their mean, but no
// more than the smaller one, and 0 at an extremum.
template <typename Float>
[[gnu::always_inline]] inline Float LimitedHalfSlope(Float left, Float right) {
    const Float zero = Opaque(Float(0));
    const Float low = Min(Max(left, right), zero);
    const Float high = Max(Min(left, right), zero);
    return Clamp(low, Float(0.25) * (left + right), high);
}

// Fills both forms for cells first..last. Edge values are of fourth order (J. Comput. Phys. 54, 174
// (1984), eqs. 1.6 to 1.8). The data around an edge are smooth where the second differences of the
// two cells beside it have one sign and agree within a factor of 1.5, so that the third difference
// is at most a fifth of their sum. Reads cells first-2..last+2.
template <typename Float>
void InterpolateEdges(const Float* a, RoughParabolas<Float>& parabolas, int first, int last) {
    const Float third = Float(1.0 / 3.0);
    const Float twelfth = Float(1.0 / 12.0);
    Float* halfSlope = parabolas.HalfSlope.Origin();
    Float* limitedLeft = parabolas.Limited.FromLeft.Origin();
    Float* limitedRight = parabolas.Limited.ToRight.Origin();
    Float* fromLeft = parabolas.Unlimited.FromLeft.Origin();
    Float* toRight = parabolas.Unlimited.ToRight.Origin();
    Float* smoothEdge = parabolas.SmoothEdge.Origin();
    const int end = PaddedLast(first, last + 1);
#pragma omp simd
    for (int i = first - 1; i <= PaddedLast(first - 1, last + 1); ++i)
        halfSlope[i] = LimitedHalfSlope(a[i] - a[i - 1], a[i + 1] - a[i]);
#pragma omp simd
    for (int i = first; i <= end; ++i) {
        const Float left = a[i - 1] - a[i - 2];
        const Float here = a[i] - a[i - 1];
        const Float right = a[i + 1] - a[i];
        const Float bends = right - left;
        const Float turn = (right - here) - (here - left);
        const Float middle = Float(0.5) * here;
        const Float unlimited = twelfth * bends;
        const Float limited = third * (halfSlope[i] - halfSlope[i - 1]);
        toRight[i - 1] = middle - unlimited;
        fromLeft[i] = middle + unlimited;
        limitedRight[i - 1] = middle - limited;
        limitedLeft[i] = middle + limited;
        smoothEdge[i] = Select(Abs(turn) <= SmoothShare<Float> * Abs(bends), Float(1), Float(0));
    }
    // The cell behind the last edge, where padded kernels look too.
    toRight[end] = limitedRight[end] = smoothEdge[end + 1] = Float(0);
}

// Whether a jump of density in cell i is mostly a contact: the relative difference of pressure is
// below a tenth of gamma times that of density, which is more than a tenth. J. Comput. Phys. 54,
// 174 (1984), eq. (3.2).
template <typename Float>
[[gnu::always_inline]] inline bool IsMostlyContact(const StripState<Float>& strip, Float gamma,
                                                   int i) {
    const Float* rho = strip.Rho;
    const Float* p = strip.P;
    const Float rise = Abs(rho[i + 1] - rho[i - 1]);
    const Float leastRho = Min(rho[i + 1], rho[i - 1]);
    const Float pressureJump = Abs(p[i + 1] - p[i - 1]);
    const Float leastP = Min(p[i + 1], p[i - 1]);
    return (pressureJump * leastRho < MostlyContact<Float> * gamma * (rise * leastP)) &
           (rise > ContactRise<Float> * leastRho);
}

// Gives the densities at the edges of cells that hold a contact what the neighbours expect there
// from their own slopes, which the contact does not reach (eq. 1.14 there), by what the share of
// the jump is above one half: a smooth slope that shows less is left alone. Cells first..last, a
// whole number of chunks.
template <typename Float>
[[gnu::flatten]] void SteepenContacts(StripState<Float> strip, Float gamma,
                                      RoughParabolas<Float>& density, int first, int last,
                                      WorkDone& work) {
    const Float* rho = strip.Rho;
    const Float* halfSlope = density.HalfSlope.Origin();
    Float* fromLeft = density.Limited.FromLeft.Origin();
    Float* toRight = density.Limited.ToRight.Origin();
    const auto isContact = [=](int i) { return IsMostlyContact(strip, gamma, i); };
    const auto steepen = [=](int i) {
        const Float share = Jump<Float>(rho, i).Share();
        const Float sure = Max(Float(2) * share - Float(1), Opaque(Float(0)));
        const Float part = Select(IsMostlyContact(strip, gamma, i), sure, Float(0));
        const Float below = (rho[i] - rho[i - 1]) - halfSlope[i - 1];
        const Float above = (rho[i + 1] - rho[i]) - halfSlope[i + 1];
        fromLeft[i] = fromLeft[i] + part * (below - fromLeft[i]);
        toRight[i] = toRight[i] + part * (above - toRight[i]);
    };
    RunWhereContacts(rho, first, last, isContact, steepen, work);
}

// By how much the pressure of cell i tops that of both neighbours: above 0 in a cell that two
// streams have just run into. The velocities around it are those of the streams and say nothing of
// the gas inside, which waves are about to leave both ways: a slope between them would let the
// streams flow on into the cell, whatever its pressure.
template <typename Float>
[[gnu::always_inline]] inline Float SqueezeExcess(const Float* p, int i) {
    return p[i] - SqueezeRatio<Float> * Max(p[i - 1], p[i + 1]);
}

// Above 0 where most of a rise of pressure falls on the two cells beside cell i: in a compression,
// a shock as thin as the grid can hold (compare eq. A.1 there).
template <typename Float>
[[gnu::always_inline]] inline Float ThinRiseExcess(const Float* p, int i) {
    const Float near = Abs(p[i + 1] - p[i - 1]);
    const Float far = Abs(p[i + 2] - p[i - 2]);
    const Float least = Min(p[i + 1], p[i - 1]);
    return Min(near - ThinRiseShare<Float> * far, near - ThinRiseJump<Float> * least);
}

// Makes the parabolas of cells in thin shocks less steep, and flat those of squeezed cells, among
// cells first..last, a whole number of chunks.
template <typename Float>
[[gnu::flatten]] void FlattenShocks(StripState<Float> strip, RoughParabolas<Float>& density,
                                    RoughParabolas<Float>& velocity,
                                    RoughParabolas<Float>& pressure, int first, int last,
                                    WorkDone& work) {
    const Float* p = strip.P;
    const Float* u = strip.Ux;
    const auto isFlattened = [=](int i) {
        return Min(u[i - 1] - u[i + 1], Max(SqueezeExcess(p, i), ThinRiseExcess(p, i))) > Float(0);
    };
    const auto flatten = [&](int i) {
        const Float reduced =
            Select(SqueezeExcess(p, i) > Float(0), Float(0), ThinShockSteepness<Float>);
        const Float steepness = Select(isFlattened(i), reduced, Float(1));
        for (RoughParabolas<Float>* rough : {&density, &velocity, &pressure}) {
            for (Parabolas<Float>* form : {&rough->Limited, &rough->Unlimited}) {
                form->FromLeft[i] = steepness * form->FromLeft[i];
                form->ToRight[i] = steepness * form->ToRight[i];
            }
        }
    };
    work.Add(Work::Shock, RunWhereNeeded<Float>(first, last, isFlattened, flatten));
}

// The rises of cell i: of its limited form, made monotone (eq. 1.10 there), or of the unlimited one
// in smooth data, so that crests keep their height.
template <typename Float>
[[gnu::always_inline]] inline void ParabolaOf(const RoughParabolas<Float>& parabolas, int i,
                                              Float& fromLeft, Float& toRight) {
    const Float zero = Opaque(Float(0));
    const Float below = parabolas.Limited.FromLeft[i];
    const Float above = parabolas.Limited.ToRight[i];
    const Float mostBelow = Float(2) * above;
    const Float mostAbove = Float(2) * below;
    const Float belowCut = Clamp(Min(mostBelow, zero), below, Max(mostBelow, zero));
    const Float aboveCut = Clamp(Min(mostAbove, zero), above, Max(mostAbove, zero));
    const bool smooth = parabolas.SmoothEdge[i] + parabolas.SmoothEdge[i + 1] > Float(1.5);
    fromLeft = Select(smooth, parabolas.Unlimited.FromLeft[i], belowCut);
    toRight = Select(smooth, parabolas.Unlimited.ToRight[i], aboveCut);
}
