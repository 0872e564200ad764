// From cells that have moved with the gas back to the grid: what has crossed the fixed edges.
// J. Comput. Phys. 54, 115 (1984); J. Comput. Phys. 54, 174 (1984), section 2.
#pragma once

#include "schemes/jump_steepening.h"
#include "schemes/lagrangian_step.h"
#include "schemes/parabola.h"

// Where the density times the square of the change of velocity across a cell exceeds this times the
// pressure, the velocity is made less steep: the part that leaves the cell must not take heat with
// it that the rest does not have. Found by trial; 2 to 6 work.
template <typename Float>
constexpr Float MotionLimit = Float(4);
// What leaves a cell takes no more of its mass and heat beyond the average than this share of what
// would empty the rest. Found by trial; 1 empties cells in Test 3.
template <typename Float>
constexpr Float SweptLimit = Float(0.5);

// The parabolas of the moved cells, and how far they hold a contact instead, 0 to 1.
template <typename Float>
struct MovedShapes {
    Parabolas<Float> Rho, P, Ux;
    Row<Float> Contact;
};

// What the characteristic variables of the moved cells are made with: z, 1/z and 1/(c c) of the gas
// around, since those of a cold cell beside a hot one would weigh one variable out of all
// proportion.
template <typename Float>
struct MovedWeights {
    Row<Float> Impedance, PerImpedance, PerSquare;
};

// Fills the weights of cells first..last. They are worked out ahead of the parabolas: a root and a
// division at the head of so long a loop would keep the processor waiting.
template <typename Float>
void WeighMovedCells(const MovedCells<Float>& moved, Float gamma, MovedWeights<Float>& weights,
                     int first, int last) {
    const Float half = Float(0.5);
    const Float* rho = moved.Rho.Origin();
    const Float* p = moved.P.Origin();
#pragma omp simd
    for (int i = first; i <= last; ++i) {
        const Float aroundP = p[i] + half * (p[i - 1] + p[i + 1]);
        const Float aroundRho = rho[i] + half * (rho[i - 1] + rho[i + 1]);
        const Float z = half * Sqrt(gamma * (aroundP * aroundRho));
        const Float perZ = Float(1) / z;
        const Float perC = half * (aroundRho * perZ);
        weights.Impedance[i] = z;
        weights.PerImpedance[i] = perZ;
        weights.PerSquare[i] = perC * perC;
    }
}

// Interpolates moved cell i in its characteristic variables, u + p/z, u - p/z and rho - p/(c c),
// and limits those. Reads cells i-2..i+2.
template <typename Float>
[[gnu::always_inline]] inline void InterpolateMovedCell(const MovedCells<Float>& moved,
                                                        const MovedWeights<Float>& weights,
                                                        MovedShapes<Float>& shapes, int i) {
    const Float half = Float(0.5);
    const Float* rho = moved.Rho.Origin();
    const Float* p = moved.P.Origin();
    const Float* u = moved.Ux.Origin();
    const Float z = weights.Impedance[i];
    const Float perZ = weights.PerImpedance[i];
    const Float perSquare = weights.PerSquare[i];

    const Float p1 = p[i - 1] - p[i - 2];
    const Float p2 = p[i] - p[i - 1];
    const Float p3 = p[i + 1] - p[i];
    const Float p4 = p[i + 2] - p[i + 1];
    const Float u1 = u[i - 1] - u[i - 2];
    const Float u2 = u[i] - u[i - 1];
    const Float u3 = u[i + 1] - u[i];
    const Float u4 = u[i + 2] - u[i + 1];
    const Float w1 = perZ * p1;
    const Float w2 = perZ * p2;
    const Float w3 = perZ * p3;
    const Float w4 = perZ * p4;
    Float plusBelow, plusAbove, minusBelow, minusAbove, zeroBelow, zeroAbove;
    LimitedParabola(Differences<Float>{u1 + w1, u2 + w2, u3 + w3, u4 + w4}, plusBelow, plusAbove);
    LimitedParabola(Differences<Float>{u1 - w1, u2 - w2, u3 - w3, u4 - w4}, minusBelow, minusAbove);
    LimitedParabola(Differences<Float>{(rho[i - 1] - rho[i - 2]) - perSquare * p1,
                                       (rho[i] - rho[i - 1]) - perSquare * p2,
                                       (rho[i + 1] - rho[i]) - perSquare * p3,
                                       (rho[i + 2] - rho[i + 1]) - perSquare * p4},
                    zeroBelow, zeroAbove);

    const Float halfZ = half * z;
    const Float below = halfZ * (plusBelow - minusBelow);
    const Float above = halfZ * (plusAbove - minusAbove);
    shapes.P.FromLeft[i] = below;
    shapes.P.ToRight[i] = above;
    shapes.Ux.FromLeft[i] = half * (plusBelow + minusBelow);
    shapes.Ux.ToRight[i] = half * (plusAbove + minusAbove);
    shapes.Rho.FromLeft[i] = zeroBelow + perSquare * below;
    shapes.Rho.ToRight[i] = zeroAbove + perSquare * above;
}

// By how much the energy of the motion inside moved cell i is too large for its heat, 0 or less if
// it is not: what changes of velocity across the cell may be some two times the speed of sound.
template <typename Float>
[[gnu::always_inline]] inline Float ExcessMotion(const MovedCells<Float>& moved,
                                                 const MovedShapes<Float>& shapes, int i) {
    const Float rise = shapes.Ux.FromLeft[i] + shapes.Ux.ToRight[i];
    return moved.Rho[i] * (rise * rise) - MotionLimit<Float> * moved.P[i];
}

// Makes the velocity in cell i less steep where that is so.
template <typename Float>
[[gnu::always_inline]] inline void TemperCell(const MovedCells<Float>& moved,
                                              MovedShapes<Float>& shapes, int i) {
    const Float room = MotionLimit<Float> * moved.P[i];
    const Float excess = NonNegative(ExcessMotion(moved, shapes, i));
    const Float steepness = room / (room + excess);
    shapes.Ux.FromLeft[i] = steepness * shapes.Ux.FromLeft[i];
    shapes.Ux.ToRight[i] = steepness * shapes.Ux.ToRight[i];
}

// How far moved cell i holds a contact, 0 to 1. The ends of a ramp show a share of a jump too, and
// a jump put there would eat its way into the ramp from step to step, so half a share counts as
// none. Found by trial: contacts show the whole share, so that anything from its fourth power to
// counting nothing less than the whole gives the same on the eight tests, and within 2 per cent on
// blast waves.
template <typename Float>
[[gnu::always_inline]] inline Float ContactShare(const StripState<Float>& moved, int i) {
    const Float share = Jump<Float>(moved.Rho, i).Share();
    const Float sure = Max(Float(2) * share - Float(1), Opaque(Float(0)));
    return Select(IsContact(moved, i), sure, Float(0));
}

// Cheap necessary condition for a contact: above 0 if the density differs by more than ContactRise.
template <typename Float>
[[gnu::always_inline]] inline Float ExcessRise(const Float* rho, int i) {
    const Float least = Min(rho[i + 1], rho[i - 1]);
    return Abs(rho[i + 1] - rho[i - 1]) - ContactRise<Float> * least;
}

// Shapes cells first..last, a whole number of chunks.
template <typename Float>
[[gnu::flatten]] void ShapeMovedCells(StripState<Float> strip, const MovedCells<Float>& moved,
                                      Float gamma, MovedWeights<Float>& weights,
                                      MovedShapes<Float>& shapes, int first, int last,
                                      WorkDone& work) {
    strip.Rho = moved.Rho.Origin();
    strip.P = moved.P.Origin();
    const auto isCold = [&](int i) { return ExcessMotion(moved, shapes, i) > Float(0); };
    const auto isContact = [&](int i) {
        return Jump<Float>(strip.Rho, i).IsOne() & IsContact(strip, i);
    };
    int tempered = 0;
    int contacts = 0;
    WeighMovedCells(moved, gamma, weights, first, last);
    const int suspect = ForEachChunk(first, last, [&](int chunk) {
        Float most = Float(0);
#pragma omp simd reduction(max : most)
        for (int i = chunk; i < chunk + CellsAtOnce; ++i) {
            InterpolateMovedCell(moved, weights, shapes, i);
            shapes.Contact[i] = Float(0);
            most = Max(most, Max(ExcessMotion(moved, shapes, i), ExcessRise(strip.Rho, i)));
        }
        if (!(most > Float(0))) return 0;
        if (AnyInChunk<Float>(chunk, isCold)) {
            RunChunk(chunk, [&](int i) { TemperCell(moved, shapes, i); });
            tempered += CellsAtOnce;
        }
        if (AnyInChunk<Float>(chunk, isContact)) {
            RunChunk(chunk, [&](int i) { shapes.Contact[i] = ContactShare(strip, i); });
            contacts += CellsAtOnce;
        }
        return CellsAtOnce;
    });
    work.Add(Work::SteepDensity, suspect);
    work.Add(Work::Tempering, tempered);
    work.Add(Work::Contact, contacts);
}

// The upstream cell of an edge, seen from the edge: parabolas by their rises near the edge and far
// from it, and shares of the cell that lie next to the edge.
template <typename Float>
[[gnu::always_inline]] inline Float NearPart(Float near, Float far, Float share) {
    return (Float(1) - share) * (near + share * (far - near));
}

// Where the gas that crosses the edges of a chunk comes from.
enum class Upstream { Left, Right, Mixed };

// The value that belongs to the upstream side of an edge, from those of both.
template <Upstream From, typename Float>
[[gnu::always_inline]] inline Float OfUpstream(bool fromLeft, Float left, Float right) {
    if constexpr (From == Upstream::Left) return left;
    if constexpr (From == Upstream::Right) return right;
    return Select(fromLeft, left, right);
}

// The fluxes through edge i, from what the moved gas has swept over it.
template <bool HasContacts, Upstream From, typename Float>
[[gnu::always_inline]] inline void SweepEdge(const CellRows<Float>& cells,
                                             const EdgeMotion<Float>& motion,
                                             const MovedCells<Float>& moved,
                                             const MovedShapes<Float>& shapes, Float perGammaLess,
                                             EdgeFluxes<Float>& fluxes, int i) {
    const Float one = Opaque(Float(1));
    const Float most = SweptLimit<Float>;
    const int l = i - 1;
    const Float speed = motion.Ux[i];
    const Float push = motion.P[i];
    const bool fromLeft = speed > Float(0);
    const auto upstream = [&](const Row<Float>& row) {
        return OfUpstream<From>(fromLeft, row[l], row[i]);
    };
    const auto near = [&](const Parabolas<Float>& shape) {
        return OfUpstream<From>(fromLeft, shape.ToRight[l], shape.FromLeft[i]);
    };
    const auto far = [&](const Parabolas<Float>& shape) {
        return OfUpstream<From>(fromLeft, shape.FromLeft[l], shape.ToRight[i]);
    };
    const Float rho = upstream(moved.Rho);
    const Float p = upstream(moved.P);
    const Float ratio = Abs(speed) * upstream(moved.StepPerWidth);
    const Float share = Min(ratio, one);
    const Float perRatio = one / Divisor(ratio);
    Float rise = Along(NearPart(near(shapes.Rho), far(shapes.Rho), share), speed);
    if constexpr (HasContacts) {
        const Float nearRho = OfUpstream<From>(fromLeft, moved.Rho[i], moved.Rho[l]);
        const Float farRho = OfUpstream<From>(fromLeft, moved.Rho[l - 1], moved.Rho[i + 1]);
        const Float jump = PartOfJump(farRho, rho, nearRho, share);
        rise = rise + upstream(shapes.Contact) * (jump - rise);
    }
    const Float room = most * NonNegative(perRatio - one);
    const Float sweptRho = rho + Clamp(-most * rho, rise, room * rho);
    const Float riseP = Along(NearPart(near(shapes.P), far(shapes.P), share), speed);
    const Float sweptP = p + Clamp(-most * p, riseP, room * p);
    const Float mass = speed * sweptRho;
    // Velocity is spread over the mass, and the mass over the volume: the mean of both shares.
    const Float shareOfMass = Min(Abs(mass) * upstream(cells.StepPerMass), one);
    const Float shareU = Float(0.5) * (share + shareOfMass);
    const Float riseU = Along(NearPart(near(shapes.Ux), far(shapes.Ux), shareU), speed);
    const Float u = Select(speed == Float(0), Float(0), upstream(moved.Ux) + riseU);
    fluxes.Mass[i] = mass;
    fluxes.Momentum[i] = push;
    fluxes.Energy[i] = perGammaLess * (speed * sweptP) + push * (speed - u);
    fluxes.Ux[i] = u;
}

// The fluxes through edges first..last, a whole number of chunks. The upstream side is chosen edge
// by edge only where the gas does not all go one way, or at a contact.
template <typename Float>
[[gnu::flatten]] void SweepEdges(const CellRows<Float>& cells, const EdgeMotion<Float>& motion,
                                 const MovedCells<Float>& moved, const MovedShapes<Float>& shapes,
                                 Float gamma, EdgeFluxes<Float>& fluxes, int first, int last,
                                 WorkDone& work) {
    const Float perGammaLess = Float(1) / (gamma - Float(1));
    const auto touchesContact = [&](int i) {
        return Max(shapes.Contact[i - 1], shapes.Contact[i]) > Float(0);
    };
    const auto isFromLeft = [&](int i) { return motion.Ux[i] > Float(0); };
    const auto isFromRight = [&](int i) { return !(motion.Ux[i] > Float(0)); };
    const int mixed = ForEachChunk(first, last, [&](int chunk) {
        const auto sweep = [&]<bool HasContacts, Upstream From>() {
            RunChunk(chunk, [&](int i) {
                SweepEdge<HasContacts, From>(cells, motion, moved, shapes, perGammaLess, fluxes, i);
            });
        };
        if (AnyInChunk<Float>(chunk, touchesContact)) {
            sweep.template operator()<true, Upstream::Mixed>();
            return CellsAtOnce;
        }
        if (!AnyInChunk<Float>(chunk, isFromRight)) {
            sweep.template operator()<false, Upstream::Left>();
            return 0;
        }
        if (!AnyInChunk<Float>(chunk, isFromLeft)) {
            sweep.template operator()<false, Upstream::Right>();
            return 0;
        }
        sweep.template operator()<false, Upstream::Mixed>();
        return CellsAtOnce;
    });
    work.Add(Work::MixedEdge, mixed);
}
