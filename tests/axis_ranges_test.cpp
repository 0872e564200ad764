#include "core/run/axis_ranges.h"

#include <gtest/gtest.h>

#include "problems.h"

TEST(GrowAxisRange, MovesABoundOnlyForAValueOnOrPastIt) {
    // clang-format off
    struct { double v, lo, hi; bool clamp; double newLo, newHi; } rows[] = {
        {3.0,  1.0, 2.0, true,   1.0,    3.1},   // past the upper bound
        {2.0,  1.0, 2.0, true,   1.0,    2.05},  // on it
        {1.5,  1.0, 2.0, true,   1.0,    2.0},   // inside
        {1.0,  1.0, 2.0, true,   0.95,   2.0},   // on the lower bound
        {0.01, 1.0, 2.0, true,   0.0,    2.0},   // stops at 0
        {0.01, 1.0, 2.0, false, -0.0895, 2.0},   // a velocity does not
    };
    // clang-format on
    for (auto& row : rows) {
        GrowAxisRange(row.v, row.lo, row.hi, row.clamp);
        EXPECT_DOUBLE_EQ(row.lo, row.newLo) << row.v;
        EXPECT_DOUBLE_EQ(row.hi, row.newHi) << row.v;
    }
}

TEST(GrowAxisRange, LeavesAUniformFieldAtZeroSpan) {
    for (double v = 1e-8; v < 1e3; v *= 1.001) {
        double lo = v, hi = v;
        GrowAxisRange(v, lo, hi, /*clampAtZero=*/true);
        ASSERT_TRUE(lo == v && hi == v) << v;
    }
}

TEST(ResetAxisRanges, OpensAUniformFieldAndTakesInTheBoundingCells) {
    ExperimentState state = UniformProblem(20, 0.7, 0.3, -2.0);
    ResetAxisRanges(state);
    EXPECT_DOUBLE_EQ(state.RhoMin, 0.7 * 0.95);
    EXPECT_DOUBLE_EQ(state.RhoMax, 0.7 * 1.05);
    EXPECT_DOUBLE_EQ(state.PMin, 0.3 * 0.95);
    EXPECT_DOUBLE_EQ(state.PMax, 0.3 * 1.05);
    const double soundSpeed = std::sqrt(1.4 * 0.3 / 0.7);
    EXPECT_DOUBLE_EQ(state.VXMin, -2.0 - 0.05 * soundSpeed);
    EXPECT_DOUBLE_EQ(state.VXMax, -2.0 + 0.05 * soundSpeed);

    state.Ux[0] = -4.0;
    state.P[21] = 3.0;
    ResetAxisRanges(state);
    EXPECT_LT(state.VXMin, -4.0);
    EXPECT_GT(state.PMax, 3.0);
}

TEST(ResetAxisRanges, GivesAFastColdFlowALengthToo) {
    ExperimentState state = UniformProblem(20, 1.0, 1e-8, 1e12);
    ResetAxisRanges(state);
    EXPECT_LT(state.VXMin, 1e12);
    EXPECT_GT(state.VXMax, 1e12);
}

TEST(SweepAxisRanges, LooksAtTheRealCells) {
    ExperimentState state = UniformProblem(20, 1.0, 1.0, 0.0);
    ResetAxisRanges(state);
    state.Rho[0] = state.Rho[21] = 50.0;
    SweepAxisRanges(state);
    EXPECT_EQ(state.RhoMax, 1.05);
    state.Rho[20] = 50.0;
    SweepAxisRanges(state);
    EXPECT_GT(state.RhoMax, 50.0);
}
