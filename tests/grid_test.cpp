#include "core/setup/grid.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/setup/riemann_problem.h"
#include "core/setup/smoke.h"
#include "problems.h"

TEST(AllocateArrays, SizesEverythingAndBuildsTheEdgesByRepeatedAddition) {
    // clang-format off
    const struct { int n, fieldLast, workLast; } rows[] = {
        {6, 27, 13}, {400, 1337, 407}, {5001, 16677, 5008},
    };
    // clang-format on
    for (const auto& row : rows) {
        const ExperimentState state = WavyProblem(row.n);
        EXPECT_EQ(state.FSmoke.First(), -6);
        EXPECT_EQ(state.FSmoke.Last(), row.fieldLast);
        EXPECT_EQ(state.C.Last(), row.workLast);
        const double width = 1.0 / row.n;
        EXPECT_EQ(state.X[0], -width);
        double edge = 0.0;
        for (int i = 2; i <= row.n; ++i) ASSERT_EQ(state.X[i], edge += width);
        EXPECT_EQ(state.X[row.n + 1], 1.0);
        EXPECT_EQ(state.X[row.n + 2], edge + width + width);  // the sum, not 1 plus a cell
    }
}

TEST(SetInitialDTime, IsATenthOfTheCourantStepAndAtMostAPlotInterval) {
    // clang-format off
    const struct { double soundSpeed, plotInterval, dTime; } rows[] = {
        {2.0, 1.0,   0.085 * 0.1 / 2.0},  // faster than the reference speed of 1
        {0.5, 1.0,   0.085 * 0.1},        // slower: the reference bounds the step
        {2.0, 0.001, 0.001},
    };
    // clang-format on
    for (const auto& row : rows) {
        ExperimentState state = UniformProblem(10, 1.4, row.soundSpeed * row.soundSpeed, 0.0);
        state.PlotInterval = row.plotInterval;
        SetInitialDTime(state);
        EXPECT_NEAR(state.DTime, row.dTime, 1e-12);
        EXPECT_NEAR(state.C[11], row.soundSpeed, 1e-14);
    }
}

TEST(InitSmokePattern, LaysStripesOfEqualWidth) {
    // clang-format off
    const struct { int n, firstStripe, stripe, period, count; } rows[] = {
        {400, 10, 6, 25, 16}, {100, 3, 1, 6, 16}, {6, 2, 1, 4, 1}, {5001, 118, 78, 312, 16},
    };
    // clang-format on
    for (const auto& row : rows) {
        ExperimentState state = WavyProblem(row.n);
        InitSmokePattern(state);
        for (int i = 1; i <= row.n; ++i) {
            const int k = (i - 1) / row.period;
            const int place = i - row.firstStripe - k * row.period;
            const bool inStripe = k < row.count && place >= 0 && place < row.stripe;
            ASSERT_EQ(state.FSmoke[i], inStripe ? 1.0 : 0.0) << row.n << " cells, cell " << i;
        }
        EXPECT_EQ(state.FSmoke[0], 1.0);  // the wavy problem's own: ghosts are not touched
    }
}

TEST(BuildRiemannProblem, PlacesTheJumpAndSetsTheAxesOfEveryTest) {
    // clang-format off
    const struct { int jump; double soundSpeed, rhoMin, rhoMax; } rows[] = {
        {120, 1.183216,    0.125 - 1.05 * 0.05,             1.05},
        {120, 1.183216,    0.125 - 1.05 * 0.05,             1.05},
        {200, 0.748331,    0.9475,                          1.05},
        {200, 0.001183216, 0.9475,                          1.05},
        {320, 37.416574,   0.9475,                          1.05},
        {160, 10.3708995,  5.99242 - 5.99924 * 1.05 * 0.05, 5.99924 * 1.05},
        {200, 1.183216,    1.0 - 1.4 * 1.05 * 0.05,         1.4 * 1.05},
        {320, 93.22547,    0.1261192 * (1.0 - 0.0525),      6.591493 * 1.05},
    };
    // clang-format on
    for (std::size_t test = 0; test < RiemannTests.size(); ++test) {
        SCOPED_TRACE(testing::Message() << "test " << test + 1);
        const auto& row = rows[test];
        const RiemannProblem& problem = RiemannTests[test];
        ExperimentState state;
        BuildRiemannProblem(state, problem);
        EXPECT_EQ(state.MSelected, row.jump);
        EXPECT_EQ(state.Rho[row.jump], problem.RhoL);
        EXPECT_EQ(state.Rho[row.jump + 1], problem.RhoR);
        EXPECT_EQ(state.P[0], problem.PL);
        EXPECT_EQ(state.Uy[401], problem.UyR);
        EXPECT_EQ(state.MSelList[5], 401);
        EXPECT_EQ(state.SP[401], static_cast<float>(problem.PR));
        EXPECT_NEAR(state.SoundSpeed0, row.soundSpeed, 1e-6 * row.soundSpeed);
        EXPECT_NEAR(state.RhoMin, row.rhoMin, 1e-12);
        EXPECT_NEAR(state.RhoMax, row.rhoMax, 1e-12);
        const auto [low, high] = std::minmax({problem.UxL, problem.UxR});
        EXPECT_DOUBLE_EQ(state.VXMin, low - 0.05 * state.SoundSpeed0);
        EXPECT_DOUBLE_EQ(state.VXMax, high + 0.05 * state.SoundSpeed0);
    }
}

TEST(BuildRiemannProblem, KeepsTheControlPointsInOrderOnTheSmallestGrids) {
    for (int n = 6; n <= 40; ++n) {
        for (const RiemannProblem& problem : RiemannTests) {
            ExperimentState state;
            state.NGridCells = n;
            BuildRiemannProblem(state, problem);
            ASSERT_TRUE(PointsAreInOrder(state)) << n << " cells";
            EXPECT_EQ(state.RhoSelList[state.NSelected + 1], problem.RhoR);
        }
    }
}
