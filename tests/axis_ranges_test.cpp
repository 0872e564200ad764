#include "integration/axis_ranges.h"

#include <gtest/gtest.h>

#include <random>

#include "problems.h"

TEST(GrowAxisRange, MovesABoundOnlyForAValueOnOrPastIt) {
    const struct {
        double v, lo, hi;
        bool clamp;
        double newLo, newHi;
    } rows[] = {
        {3.0, 1.0, 2.0, true, 1.0, 3.1},        // past the upper bound
        {2.0, 1.0, 2.0, true, 1.0, 2.05},       // on it
        {1.5, 1.0, 2.0, true, 1.0, 2.0},        // inside
        {1.0, 1.0, 2.0, true, 0.95, 2.0},       // on the lower bound
        {0.01, 1.0, 2.0, true, 0.0, 2.0},       // stops at 0
        {0.01, 1.0, 2.0, false, -0.0895, 2.0},  // a velocity does not
    };
    for (const auto& row : rows) {
        double lo = row.lo, hi = row.hi;
        GrowAxisRange(row.v, lo, hi, row.clamp);
        EXPECT_DOUBLE_EQ(lo, row.newLo) << row.v;
        EXPECT_DOUBLE_EQ(hi, row.newHi) << row.v;
    }
}

TEST(GrowAxisRange, LeavesAUniformFieldAtZeroSpan) {
    std::mt19937_64 random(3);
    std::uniform_real_distribution<double> values(1e-8, 1e3);
    for (int n = 0; n < 100000; ++n) {
        const double v = values(random);
        double lo = v, hi = v;
        GrowAxisRange(v, lo, hi, /*clampAtZero=*/true);
        ASSERT_EQ(lo, v);
        ASSERT_EQ(hi, v);
    }
}

TEST(ResetAxisRanges, GivesAUniformFieldAFivePerCentSpan) {
    ExperimentState state = UniformProblem(20, 0.7, 0.3, -2.0);
    ResetAxisRanges(state);
    EXPECT_DOUBLE_EQ(state.RhoMin, 0.7 * 0.95);
    EXPECT_DOUBLE_EQ(state.RhoMax, 0.7 * 1.05);
    EXPECT_DOUBLE_EQ(state.PMin, 0.3 * 0.95);
    EXPECT_DOUBLE_EQ(state.PMax, 0.3 * 1.05);
    const double soundSpeed = std::sqrt(1.4 * 0.3 / 0.7);
    EXPECT_DOUBLE_EQ(state.VXMin, -2.0 - 0.05 * soundSpeed);
    EXPECT_DOUBLE_EQ(state.VXMax, -2.0 + 0.05 * soundSpeed);
}

TEST(ResetAxisRanges, GivesAFastColdFlowALengthToo) {
    ExperimentState state = UniformProblem(20, 1.0, 1e-8, 1e12);
    ResetAxisRanges(state);
    EXPECT_LT(state.VXMin, 1e12);
    EXPECT_GT(state.VXMax, 1e12);
}

TEST(ResetAxisRanges, TakesInTheBoundingCellsAndSweepDoesNot) {
    ExperimentState state = UniformProblem(20, 1.0, 1.0, 0.0);
    state.Ux[0] = -4.0;
    state.P[21] = 3.0;
    ResetAxisRanges(state);
    EXPECT_LT(state.VXMin, -4.0);
    EXPECT_GT(state.PMax, 3.0);
    state.Rho[0] = 50.0;
    const double rhoMax = state.RhoMax;
    SweepAxisRanges(state);
    EXPECT_EQ(state.RhoMax, rhoMax);
    state.Rho[1] = 50.0;
    SweepAxisRanges(state);
    EXPECT_GT(state.RhoMax, 50.0);
}
