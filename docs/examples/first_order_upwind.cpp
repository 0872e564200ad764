// A difference scheme of one's own, in one file. It is the least that does the work: constant
// states in the cells, first order in space and time, and between two cells the flux of Harten, Lax
// and van Leer (SIAM Rev. 25, 35, 1983), which knows the fastest wave to either side and nothing of
// the contact between them. Shocks come out some cells wide, contacts wider and wider.
//
// It takes the place of Kestrel: see writing-a-scheme.md.
//
//     g++ -O3 -ffp-contract=off -shared -fPIC -I FOLDER-OF-THE-HEADER
//         -o libKestrel64.so first_order_upwind.cpp
#include <algorithm>
#include <cmath>

#include "scheme_entry_points.h"

namespace {

struct Cell {
    double rho, p, u;          // density, pressure, velocity along the grid
    double transverse, smoke;  // carried with the gas
    double c;                  // sound speed
};

// What passes through an edge, per unit of time. The energy is that of heat and of the motion along
// the grid: the transverse motion does no work in a flow that varies along the grid only.
struct Flux {
    double mass, momentum, energy, transverse, smoke;
};

// Everything on entry is an array with the first cell of the neighbour zone as element 0. All 25
// rows are equal, so that the first will do.
struct Strip {
    const double *density, *pressure, *velocity, *transverse, *smoke;
    double gamma;

    Cell At(int i) const {
        const double c = std::sqrt(gamma * pressure[i] / density[i]);
        return {density[i], pressure[i], velocity[i], transverse[i], smoke[i], c};
    }
};

Flux FluxBetween(const Cell& left, const Cell& right, double gamma) {
    const double slowest = std::min({left.u - left.c, right.u - right.c, 0.0});
    const double fastest = std::max({left.u + left.c, right.u + right.c, 0.0});
    const double product = slowest * fastest;
    const double span = fastest - slowest;
    const auto mean = [&](double fluxLeft, double fluxRight, double valueLeft, double valueRight) {
        return (fastest * fluxLeft - slowest * fluxRight + product * (valueRight - valueLeft)) /
               span;
    };
    const double massLeft = left.rho * left.u;
    const double massRight = right.rho * right.u;
    const double energyLeft = left.p / (gamma - 1.0) + 0.5 * massLeft * left.u;
    const double energyRight = right.p / (gamma - 1.0) + 0.5 * massRight * right.u;

    Flux flux;
    flux.mass = mean(massLeft, massRight, left.rho, right.rho);
    flux.momentum =
        mean(massLeft * left.u + left.p, massRight * right.u + right.p, massLeft, massRight);
    flux.energy = mean((energyLeft + left.p) * left.u, (energyRight + right.p) * right.u,
                       energyLeft, energyRight);
    const Cell& upwind = flux.mass > 0.0 ? left : right;
    flux.transverse = flux.mass * upwind.transverse;
    flux.smoke = flux.mass * upwind.smoke;
    return flux;
}

// The cell after the step; `share` is time step over cell width. What the fluxes bring is reckoned
// as an observer sees it who moves with the cell's gas: that conserves as well, and a flow at Mach
// 1000 keeps the digits of its pressure.
Cell Advanced(const Cell& cell, const Flux& in, const Flux& out, double share, double gamma) {
    const double mass = share * (in.mass - out.mass);
    const double momentum = share * (in.momentum - out.momentum);
    const double energy = share * (in.energy - out.energy);
    const double push = momentum - cell.u * mass;
    const double heat = energy - cell.u * momentum + 0.5 * cell.u * cell.u * mass;

    Cell next = cell;
    next.rho = cell.rho + mass;
    next.u = cell.u + push / next.rho;
    next.p = cell.p + (gamma - 1.0) * (heat - 0.5 * push * push / next.rho);
    const double transverse = share * (in.transverse - out.transverse);
    const double smoke = share * (in.smoke - out.smoke);
    next.transverse = cell.transverse + (transverse - cell.transverse * mass) / next.rho;
    next.smoke = cell.smoke + (smoke - cell.smoke * mass) / next.rho;
    return next;
}

// What the meter shows: the arithmetic of a cell and of the edge on its right. The first edge of
// the strip is not counted, as its neighbour has counted it.
void CountOperations(int cells, int* counters) {
    const int adds = 41, mults = 39, divisions = 11, selections = 7, roots = 1;
    counters[0] += cells * (adds + mults + divisions + roots);
    counters[1] += cells * adds;
    counters[2] += cells * mults;
    counters[3] += cells * divisions;
    counters[4] += cells * selections;
    counters[5] += cells * roots;
}

}  // namespace

// Holds what follows to the type that the program calls.
extern "C" Kestrel64Entry KESTREL64;

extern "C" void KESTREL64(const double* edges, const double* densityRows,
                          const double* pressureRows, const double* velocityRows,
                          const double* transverseRows, const double* /*thirdRows*/,
                          const double* smoke, double* densityResult, double* pressureResult,
                          double* velocityResult, double* transverseResult, double* /*thirdResult*/,
                          double* smokeResult, const double* timeStep, double* courant,
                          const double* gamma, const double* /*rhoFloor*/,
                          const double* /*auxFloor*/, const double* /*pFloor*/,
                          const double* /*vFloor*/, const double* /*difcon*/,
                          const double* /*shkjmp*/, const double* /*wavhaf*/, const int* width,
                          const int* boundary, int* opCounters) {
    const Strip strip = {densityRows, pressureRows, velocityRows, transverseRows, smoke, *gamma};
    const int first = *boundary;  // element of the strip's cell 1
    const int last = first + *width - 1;

    Cell cell = strip.At(first);
    Flux in = FluxBetween(strip.At(first - 1), cell, *gamma);
    for (int i = first; i <= last; ++i) {
        const Cell right = strip.At(i + 1);
        const Flux out = FluxBetween(cell, right, *gamma);
        const double share = *timeStep / (edges[i + 1] - edges[i]);
        Cell next = Advanced(cell, in, out, share, *gamma);

        // 1 asks for the step again, shorter. A step that would empty a cell leaves it as it was.
        double number = (std::abs(cell.u) + cell.c) * share;
        if (!(next.rho > 0.0 && next.p > 0.0)) {
            next = cell;
            number = std::max(number, 1.0);
        }
        *courant = std::max(*courant, number);

        densityResult[i] = next.rho;
        pressureResult[i] = next.p;
        velocityResult[i] = next.u;
        transverseResult[i] = next.transverse;
        smokeResult[i] = next.smoke;

        cell = right;
        in = out;
    }
    CountOperations(*width, opCounters);
}
