// The published schemes that ours are measured beside.
#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "core/analysis/exact_riemann.h"
#include "verify/families/grids.h"
#include "verify/peers/classic_ppm.h"
#include "verify/peers/weno_z.h"

namespace {

const ClassicPpm Plain("PPM", false, false);
const ClassicPpm Flattened("PPM-F", true, false);
const ClassicPpm Steepened("PPM-FS", true, true);
const WenoZ Weno;

double SodError(const Peer& peer, int cells) {
    const GasState left = {1.0, 1.0, 0.0, 0.0};
    const GasState right = {0.125, 0.1, 0.0, 0.0};
    const ExactRiemann exact(left, right, 1.4);
    FamilyProblem problem;
    problem.Start = TwoStates(EvenEdges(cells), cells / 2, left, right);
    problem.Time = 0.2;
    const GasCells result = RunPeer(peer, problem);
    const std::vector<double> densities =
        DensitiesOf(exact, 1.4, 0.5, problem.Time, problem.Start.Edges);
    double sum = 0.0;
    for (int k = 0; k < cells; ++k) sum += std::abs(result.Rho[k] - densities[k]) / cells;
    return sum;
}

// Fifth and third order schemes of the literature reach 0.004 to 0.002 on 100 cells.
TEST(Peers, SolveSodsTubeToFirstOrder) {
    for (const Peer* peer : std::array<const Peer*, 4>{&Plain, &Flattened, &Steepened, &Weno}) {
        EXPECT_LT(SodError(*peer, 100), 0.0045) << peer->Name();
        EXPECT_LT(SodError(*peer, 400), 0.0012) << peer->Name();
    }
}

}  // namespace
