#include "core/run/state_store.h"

#include <gtest/gtest.h>

#include "problems.h"

// Three cells between ghosts; R+ and R- worked out by hand from impedances 1, 1, 2, 2, 2.
TEST(TakeSnapshot, IntegratesTheInvariantsAndTakesTheirMeanOverTheRealCells) {
    ExperimentState state = WavyProblem(3);
    const double rho[] = {1.0, 1.0, 4.0, 2.0, 2.0};
    const double p[] = {1.0, 1.0, 1.0, 2.0, 2.0};
    const double u[] = {0.0, 0.5, 0.5, 0.5, 1.0};
    state.Gamma = 1.0;
    for (int i = 0; i <= 4; ++i) {
        state.Rho[i] = rho[i];
        state.P[i] = p[i];
        state.Ux[i] = u[i];
    }
    const int base = 5;
    TakeSnapshot(state, base);
    // Steps of R+: 0.5, 0, 0.5, 0.5; of R-: 0.5, 0, -0.5, 0.5. Means over cells 1 to 3.
    const double plus[] = {0.0, 0.5, 0.5, 1.0, 1.5};
    const double minus[] = {0.0, 0.5, 0.5, 0.0, 0.5};
    for (int i = 0; i <= 4; ++i) {
        EXPECT_FLOAT_EQ(state.SRPlus[base + i], static_cast<float>(plus[i] - 2.0 / 3.0)) << i;
        EXPECT_FLOAT_EQ(state.SRMinus[base + i], static_cast<float>(minus[i] - 1.0 / 3.0)) << i;
        EXPECT_FLOAT_EQ(state.SEntropy[base + i], static_cast<float>(p[i] / rho[i])) << i;
        EXPECT_EQ(state.SUy[base + i], static_cast<float>(state.Uy[i]));
    }
    EXPECT_EQ(state.SRho[base - 5] + state.SRho[base + 5], 0.0F) << "nothing beside the state";
}

TEST(StoreState, AppendsUntilTheStoreIsFullAndLoadsBack) {
    ExperimentState state = WavyProblem(10, /*plots=*/3);
    state.MnBdry = state.MxBdry = 1;
    const double uy = state.Uy[4];
    for (int s = 0; s < 3; ++s) {
        ASSERT_TRUE(StoreHasRoom(state));
        EXPECT_FALSE(IsStored(state, s));
        state.Time = 0.1 * s;
        state.Rho[4] = 2.0 + s;
        StoreState(state);
        EXPECT_TRUE(IsStored(state, s));
    }
    EXPECT_FALSE(StoreHasRoom(state));
    EXPECT_EQ(state.NStored, 3);
    EXPECT_EQ(state.StoredStateNumber, 2);
    EXPECT_EQ(state.StoreOffset, 36);
    EXPECT_EQ(state.StoredT[2], 0.2);
    LoadStoredState(state, 1);
    EXPECT_EQ(state.Rho[4], 3.0);
    EXPECT_FLOAT_EQ(static_cast<float>(state.Uy[4]), static_cast<float>(uy));
    EXPECT_EQ(state.Ux[0], -state.Ux[1]);  // the store block fills the ghosts first
    for (const int s : {-1, 3, 2001, 2002, 2147483647}) EXPECT_FALSE(IsStored(state, s)) << s;
}
