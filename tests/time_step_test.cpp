#include "core/run/time_step.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <thread>
#include <tuple>

#include "core/run/tick_arrays.h"
#include "problems.h"

namespace {

// A stand-in for a library: shifts the state by one cell; the Courant number is the step.
void ShiftByOneCell(const double*, const double* rho, const double* p, const double* ux,
                    const double* uy, const double*, const double* smoke, double* rhoOut,
                    double* pOut, double* uxOut, double* uyOut, double*, double* smokeOut,
                    const double* dt, double* courant, const double*, const double*, const double*,
                    const double*, const double*, const double*, const double*, const double*,
                    const int* width, const int* boundary, int*) {
    *courant = *dt;
    for (int x = *boundary; x < *boundary + *width; ++x) {
        rhoOut[x] = rho[x - 1];
        pOut[x] = p[x - 1];
        uxOut[x] = ux[x - 1];
        uyOut[x] = uy[x - 1];
        smokeOut[x] = smoke[x - 1];
    }
}

class TimeStep : public testing::Test {
protected:
    TimeStep() {
        library.Kestrel64 = ShiftByOneCell;
        state.MnBdry = 4;
        state.DTime = 0.5;
        state.PlotInterval = 10.0;
        state.TimeToPlot = 10.0;
    }

    ExperimentState state = WavyProblem(20);
    SchemeLibrary library;
};

}  // namespace

TEST_F(TimeStep, GivesUpAfterTwoSecondsOfAttempts) {
    library.Kestrel64 = [](auto*... given) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        *std::get<14>(std::tuple(given...)) = 1.0;
    };
    TickArrays tick(state, library);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(TakeTimeStep(state, tick));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
    EXPECT_EQ(state.Refusal.Kind, RefusalKind::CourantTooLarge);
    EXPECT_EQ(state.DTime, 0.5);
}

TEST_F(TimeStep, RepeatsTheAttemptUntilTheCourantNumberIsBelowOne) {
    const std::pair<double, double> rows[] = {{0.999, 0.999}, {1.0, 0.9}, {1.2, 1.2 * 0.9 * 0.9}};
    const ExperimentState before = state;
    for (const auto& [tried, accepted] : rows) {
        state = before;
        state.DTime = tried;
        TickArrays tick(state, library);
        ASSERT_TRUE(TakeTimeStep(state, tick));
        EXPECT_DOUBLE_EQ(state.Time, accepted);
        EXPECT_DOUBLE_EQ(state.TimeToPlot, 10.0 - accepted);
        EXPECT_EQ(state.Rho[1], before.Rho[20]);  // shifted once, however often it was tried
        // Above the target of 0.85 the next step falls back to it.
        EXPECT_DOUBLE_EQ(state.DTime, 0.85);
    }
}

TEST_F(TimeStep, RaisesToTheFloorsAndStopsSlowVelocities) {
    // Of cells 5 and 6, before the shift: just below the floor, and exactly at it.
    state.Rho[4] = state.P[4] = 1e-9;
    state.Ux[4] = 9.9e-9;
    state.Uy[4] = -9.9e-9;
    state.Ux[5] = -1e-8;
    state.Uy[5] = 1e-8;
    TickArrays tick(state, library);
    ASSERT_TRUE(TakeTimeStep(state, tick));
    EXPECT_EQ(state.Rho[5], 1e-8);
    EXPECT_EQ(state.P[5], 1e-8);
    EXPECT_EQ(state.Ux[5], 0.0);
    EXPECT_EQ(state.Uy[5], 0.0);
    EXPECT_EQ(state.Ux[6], -1e-8);
    EXPECT_EQ(state.Uy[6], 1e-8);
}

// What the fields held before a step becomes room for later results, the smoke too.
TEST_F(TimeStep, BringsNoSmokeBackWhereNoneIsCarried) {
    library = {};
    // The state itself; rows and results lie as the entry point's list of arguments has them.
    library.Plover = [](auto... arguments) {
        const auto given = std::tuple(arguments...);
        const int first = *std::get<43>(given);
        const int width = *std::get<42>(given);
        std::copy_n(std::get<1>(given) + first, width, std::get<30>(given) + first);
        std::copy_n(std::get<6>(given) + first, width, std::get<31>(given) + first);
        std::copy_n(std::get<11>(given) + first, width, std::get<32>(given) + first);
        std::copy_n(std::get<16>(given) + first, width, std::get<33>(given) + first);
    };
    TickArrays tick(state, library);
    for (int step = 1; step <= 3; ++step) {
        ASSERT_TRUE(TakeTimeStep(state, tick)) << static_cast<int>(state.Refusal.Kind);
        for (int i = 1; i <= 20; ++i) ASSERT_EQ(state.FSmoke[i], 0.0) << step << ", cell " << i;
    }
}

TEST(ControlTimeStep, FollowsTheCourantNumber) {
    // clang-format off
    const struct { double courant, dTime, plotInterval, next; } rows[] = {
        {0.5,    0.1, 1.0,   0.1025},
        {0.5,    0.1, 0.101, 0.101},  // growth is capped
        {0.765,  0.1, 1.0,   0.1},
        {0.7649, 0.1, 1.0,   0.1025},
        {0.85,   0.1, 1.0,   0.1},
        {0.95,   0.1, 1.0,   0.1 * (0.85 / 0.95)},
        {0.8,    0.2, 0.1,   0.2},
    };
    // clang-format on
    for (const auto& row : rows) {
        ExperimentState state;
        state.DTime = row.dTime;
        state.PlotInterval = row.plotInterval;
        ControlTimeStep(state, row.courant);
        EXPECT_DOUBLE_EQ(state.DTime, row.next) << row.courant;
    }
}

TEST(StepsOfTick, FollowsTheGridOrTheWeakWave) {
    // clang-format off
    const struct { int n, soundWave; double rhoMax, dTime; int steps; } rows[] = {
        {29,  0, 1.0,  0.1,   1},  {60,  0, 1.0,  0.1,   2},  {400, 0, 1.0,  0.1,   13},
        {400, 1, 1.05, 0.002, 50}, {6,   1, 1.05, 0.002, 50}, {400, 1, 1.08, 0.002, 13},
        {400, 1, 1.05, 0.5,   1},  {400, 0, 1.05, 0.002, 13},
        {5001, 1, 1.05, 8e-5, 1250}, {5001, 1, 1.05, 1e-9, 1299}, {6, 1, 1.05, 1e-300, 1083333},
    };
    // clang-format on
    for (const auto& row : rows) {
        ExperimentState state;
        state.NGridCells = row.n;
        state.SoundWaveMode = row.soundWave;
        state.RhoMax = row.rhoMax;
        state.DTime = row.dTime;
        EXPECT_EQ(StepsOfTick(state), row.steps);
        state.MeterOn = 1;  // counts 80000 cells and a little more in each step
        EXPECT_LE(StepsOfTick(state), std::min(row.steps, 312));
    }
}
