// The piecewise parabolic method on a fixed grid as published in J. Comput. Phys. 54, 174 (1984):
// parabolas of density, pressure and velocity on cells of any widths, traced along characteristics
// to the edges, where a Riemann problem is solved with shocks for all waves.
#pragma once

#include "verify/peers/peer_grid.h"

class ClassicPpm : public Peer {
public:
    ClassicPpm(const char* name, bool flattened, bool steepened)
        : name_(name), flattened_(flattened), steepened_(steepened) {}

    const char* Name() const override { return name_; }
    double LargestCourant() const override { return 0.95; }
    bool TakesUnevenCells() const override { return true; }
    void Step(PeerGrid& grid, double timeStep) const override;

private:
    const char* name_;
    bool flattened_;  // parabolas flattened in shocks (eqs. A.1, A.2)
    bool steepened_;  // density steepened in contacts (eqs. 1.14 to 1.17, 3.2)
};
