#include "core/setup/sound_wave.h"

#include <gtest/gtest.h>

#include "problems.h"

namespace {

ExperimentState Waves(int n, double plus, double minus, double entropy, double u0) {
    ExperimentState state = WavyProblem(n);
    state.RPlusAmp = plus;
    state.RMinusAmp = minus;
    state.R0Amp = entropy;
    state.U0 = u0;
    return state;
}

}  // namespace

TEST(SoundWave, GivesTheKnownRightGoingWave) {
    const auto wave = IntegrateSoundWave(Waves(400, 0.01, 0.0, 0.0, -1.0));
    ASSERT_TRUE(wave);
    EXPECT_NEAR(wave->Ux[1], -1.0000393, 5e-8);
    EXPECT_NEAR(wave->Rho[100], 1.004931, 5e-7);
    EXPECT_NEAR(wave->P[100], 0.719222, 5e-7);
    EXPECT_NEAR(wave->Ux[100], -0.995079, 5e-7);
    EXPECT_EQ(wave->Rho[0], wave->Rho[400]);
    EXPECT_EQ(wave->Ux[401], wave->Ux[1]);
}

// A right-going wave moves velocity and pressure the same way, a left-going one against each other,
// and an entropy wave neither.
TEST(SoundWave, KeepsToItsFamily) {
    // clang-format off
    const struct { double plus, minus, entropy; int sign; } rows[] = {
        {0.01, 0.0, 0.0, 1}, {0.0, 0.01, 0.0, -1}, {0.0, 0.0, 0.01, 0},
    };
    // clang-format on
    for (const auto& row : rows) {
        const auto wave = IntegrateSoundWave(Waves(100, row.plus, row.minus, row.entropy, 0.3));
        ASSERT_TRUE(wave);
        for (int i = 2; i <= 100; ++i) {
            const double dp = wave->P[i] - wave->P[i - 1];
            const double du = wave->Ux[i] - wave->Ux[i - 1];
            if (row.sign == 0) {
                EXPECT_TRUE(dp == 0.0 && du == 0.0) << i;
            } else if (std::abs(du) > 1e-9) {
                EXPECT_GT(dp * du * row.sign, 0.0) << i;
            }
        }
        EXPECT_NE(wave->Rho[25], wave->Rho[75]);
    }
}

TEST(SoundWave, SetsTheClockAndOpensZeroSpans) {
    ExperimentState state = Waves(400, 0.0, 0.0, 0.0, -1.0);
    state.Periods = 2.5;
    state.NPlotsPerPeriod = 50;
    TakeSoundWave(state, *IntegrateSoundWave(state));
    EXPECT_EQ(state.TStop, 2.5);
    EXPECT_EQ(state.PlotInterval, 0.02);
    EXPECT_EQ(state.RhoMin, 0.95);
    EXPECT_EQ(state.RhoMax, 1.05);
    EXPECT_EQ(state.VXMin, -1.05);
    EXPECT_EQ(state.VXMax, -0.95);
    EXPECT_EQ(state.Rho[200], 1.0);
    // The fastest sound runs at |u| + c = 2: the full Courant target, no tenth of it.
    EXPECT_NEAR(state.DTime, 0.85 * 0.0025 / 2.0, 1e-9);
    EXPECT_EQ(state.FSmoke[12], 1.0);
}

TEST(SoundWave, IsRefusedWhereThereIsNoSuchGas) {
    for (const double amplitude : {50.0, -50.0, 1e12}) {
        EXPECT_FALSE(IntegrateSoundWave(Waves(100, amplitude, 0.0, 0.0, 0.0))) << amplitude;
        EXPECT_FALSE(IntegrateSoundWave(Waves(100, 0.0, amplitude, 0.0, 0.0))) << amplitude;
        EXPECT_FALSE(IntegrateSoundWave(Waves(100, 0.0, 0.0, amplitude, 0.0))) << amplitude;
    }
    ExperimentState state = Waves(100, 0.01, 0.0, 0.0, 0.0);
    state.RMinusFreq = 0;
    EXPECT_FALSE(IntegrateSoundWave(state));
}
