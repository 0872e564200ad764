// States at and past the edge of what a scheme is made for: no value that is no number, no negative
// density or pressure, and no result that a floor would have to lift, comes out of any of them.
#include <random>

#include "core/model/boundary_types.h"
#include "scheme_tests.h"

namespace {

class SchemeRobustness : public SchemeTest {
protected:
    // Advances the flow by steps of the given multiple of the limit, as often as they are accepted.
    void ExpectSound(const char* what, Flow flow, int ends, double multiple, int steps) {
        Flow next = flow;
        double cut = 1.0;
        for (int step = 0; step < steps; ++step) {
            FillNeighbours(flow, ends);
            const double target = cut * multiple;
            const StepReport report = scheme_.Advance(flow, constants_, StepAt(flow, target), next);
            ASSERT_TRUE(std::isfinite(report.Courant)) << what;
            ASSERT_GE(report.Courant, 0.9999 * target) << what;
            for (int cell = 1; cell <= flow.N; ++cell) {
                const std::size_t i = flow.At(cell);
                ASSERT_TRUE(next.Rho[i] > 0.0 && next.Rho[i] < 1e30) << what << ", cell " << cell;
                ASSERT_TRUE(next.P[i] > 0.0 && next.P[i] < 1e30) << what << ", cell " << cell;
                ASSERT_TRUE(std::isfinite(next.Ux[i])) << what << ", cell " << cell;
                ASSERT_TRUE(std::isfinite(next.Uy[i])) << what << ", cell " << cell;
            }
            if (multiple > 1.0) continue;
            if (report.Courant >= 1.0) {
                cut *= 0.9;
                ASSERT_GT(cut, 1e-3) << what << ": no step is small enough";
                continue;
            }
            cut = std::min(1.0, 1.1 * cut);
            std::swap(flow, next);
            next.Edges = flow.Edges;
        }
    }

    SchemeConstants constants_;
};

INSTANTIATE_TEST_SUITE_P(AllSchemes, SchemeRobustness, testing::ValuesIn(AllSchemes), NameOfRow);

TEST_P(SchemeRobustness, StandsStrongJumps) {
    const double fast = 1000.0 * std::sqrt(1.4);
    const std::vector<std::pair<const char*, Flow>> cases = {
        {"pressure ratio 1e10", TwoStates({1, 1e5, 0, 0}, {1, 1e-5, 0, 0}, 100)},
        {"pressure ratio 1e-10 against a wind", TwoStates({1, 1e-5, -9, 0}, {0.1, 1e5, 3, 0}, 100)},
        {"streams collide at Mach 1000", TwoStates({1, 1, fast, 5}, {1, 1, -fast, -5}, 100)},
        {"streams part at Mach 1000", TwoStates({1, 1, -fast, 0}, {1, 1, fast, 0}, 100)},
        {"streams part and leave a vacuum", TwoStates({1, 1, -8, 0}, {1, 1, 8, 0}, 100)},
        {"gas runs into near vacuum", TwoStates({1, 1, 0, 0}, {1e-8, 1e-8, 0, 0}, 100)},
        {"dense gas against light", TwoStates({1e3, 1e3, 0, 0}, {1e-6, 1e-3, 0, 0}, 100)},
        {"everything at its floor", TwoStates({1e-8, 1e-8, 0, 0}, {1e-8, 1e-8, 1, 0}, 100)},
    };
    for (const auto& [what, flow] : cases)
        for (const int ends : {ContinuationBoundary, ReflectingBoundary})
            ExpectSound(what, flow, ends, 0.85, 300);
}

Flow RandomFlow(unsigned seed, bool unevenCells) {
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> share(0.0, 1.0);
    Flow flow = UniformGrid(60);
    for (int cell = 1; cell <= flow.N; ++cell) {
        const std::size_t i = flow.At(cell);
        flow.Rho[i] = std::pow(10.0, -8.0 + 10.0 * share(random));
        flow.P[i] = std::pow(10.0, -8.0 + 12.0 * share(random));
        flow.Ux[i] = 1000.0 * (share(random) - 0.5);
        flow.Uy[i] = share(random);
        flow.Smoke[i] = share(random);
        const double width = unevenCells ? std::pow(10.0, -2.0 * share(random)) : 1.0;
        flow.Edges[i + 1] = flow.Edges[i] + width / 60.0;
    }
    return flow;
}

TEST_P(SchemeRobustness, StandsRandomStates) {
    for (unsigned seed = 1; seed <= 30; ++seed) {
        constants_.difcon = 2.5 * (seed % 5);
        constants_.shkjmp = 5.0 * (seed % 3);
        constants_.wavhaf = 3.0 * (seed % 4);
        ExpectSound("random, even", RandomFlow(seed, false), ReflectingBoundary, 0.85, 60);
        ExpectSound("random, uneven", RandomFlow(seed, true), ReflectingBoundary, 0.85, 60);
        ExpectSound("random, too long a step", RandomFlow(seed, false), PeriodicBoundary, 10, 1);
        ExpectSound("random, hardly a step", RandomFlow(seed, false), PeriodicBoundary, 1e-30, 1);
    }
}

}  // namespace
