// The grid that the peers work on: conserved averages of a gamma-law gas with neighbour zones, and
// the run of a peer to a given time.
#pragma once

#include <vector>

#include "verify/families/family_problem.h"

struct Primitive {
    double Rho;
    double P;
    double U;
};

struct Conserved {
    double Mass;
    double Momentum;
    double Energy;  // internal and kinetic, by volume
};

Primitive ToPrimitive(const Conserved& cell, double gamma);
Conserved ToConserved(const Primitive& state, double gamma);
Conserved FluxOf(const Primitive& state, double gamma);
double SoundSpeed(const Primitive& state, double gamma);

// N cells with Zone neighbour cells on either side. Element i of Cells is cell i - Zone, counted
// from 0; Edges[i] is the left edge of the cell at element i.
struct PeerGrid {
    static constexpr int Zone = 6;

    explicit PeerGrid(const FamilyProblem& problem);

    int First() const { return Zone; }  // the elements of the real cells: First() to Last()
    int Last() const { return Zone + N - 1; }
    double Width(int i) const { return Edges[i + 1] - Edges[i]; }
    void FillZones();
    // Lifts density and pressure to the instrument's floors. False if a number is not finite.
    bool RaiseToFloors();

    int N;
    double Gamma;
    bool Periodic;
    bool WallOnLeft;
    bool WallOnRight;
    std::vector<double> Edges;
    std::vector<Conserved> Cells;
};

// A published scheme, written as its paper has it.
class Peer {
public:
    virtual ~Peer() = default;
    virtual const char* Name() const = 0;
    // The Courant number up to which the scheme is used; a larger target is lowered to it.
    virtual double LargestCourant() const = 0;
    virtual bool TakesUnevenCells() const = 0;
    // One step of the real cells.
    virtual void Step(PeerGrid& grid, double timeStep) const = 0;
};

// Takes the problem to its time in steps of the Courant target, growing from the first step by at
// most 2.5 per cent a step as the instrument's do. Density and pressure have the instrument's
// floors. The result holds NaN if the scheme broke down.
GasCells RunPeer(const Peer& peer, const FamilyProblem& problem);
