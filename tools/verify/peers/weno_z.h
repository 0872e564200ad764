// Fifth-order finite volumes with the weights of WENO-Z (J. Comput. Phys. 227, 3191 (2008)),
// reconstructed wave by wave, a three-wave flux (HLLC, Shock Waves 4, 25 (1994)) and three
// Runge-Kutta stages (J. Comput. Phys. 77, 439 (1988)).
#pragma once

#include "verify/peers/peer_grid.h"

class WenoZ : public Peer {
public:
    const char* Name() const override { return "WENO-Z"; }
    double LargestCourant() const override { return 0.5; }
    bool TakesUnevenCells() const override { return false; }
    void Step(PeerGrid& grid, double timeStep) const override;
};
