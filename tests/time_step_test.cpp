#include "integration/time_step.h"

#include <gtest/gtest.h>

#include <cmath>

#include "integration/tick_arrays.h"
#include "problems.h"

namespace {

// A stand-in for a library: shifts the state by one cell and reports a Courant number that is
// proportional to the step. Single-threaded tests set its slope.
double courantPerTime = 0.0;
double shiftedPressure = 1.0;

void ShiftByOneCell(const double*, const double* rho, const double* p, const double* ux,
                    const double* uy, const double*, const double* smoke, double* rhoOut,
                    double* pOut, double* uxOut, double* uyOut, double*, double* smokeOut,
                    const double* dt, double* courant, const double*, const double*, const double*,
                    const double*, const double*, const double*, const double*, const double*,
                    const int* width, const int* boundary, int*) {
    const double number = courantPerTime * *dt;
    if (!(number <= *courant)) *courant = number;
    for (int x = *boundary; x < *boundary + *width; ++x) {
        rhoOut[x] = rho[x - 1];
        pOut[x] = p[x - 1] * shiftedPressure;
        uxOut[x] = ux[x - 1];
        uyOut[x] = uy[x - 1];
        smokeOut[x] = smoke[x - 1];
    }
}

class TimeStep : public testing::Test {
protected:
    TimeStep() {
        courantPerTime = 1.0;
        shiftedPressure = 1.0;
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

TEST_F(TimeStep, IsRefusedWhenNoAttemptCanPass) {
    // clang-format off
    const struct { double slope, pressure; } rows[] = {
        {1e300, 1.0}, {HUGE_VAL, 1.0}, {std::nan(""), 1.0}, {1.0, HUGE_VAL}, {1.0, std::nan("")},
    };
    // clang-format on
    const ExperimentState before = state;
    for (const auto& row : rows) {
        courantPerTime = row.slope;
        shiftedPressure = row.pressure;
        TickArrays tick(state, library);
        EXPECT_FALSE(TakeTimeStep(state, tick)) << row.slope << ", " << row.pressure;
        EXPECT_EQ(state.DTime, before.DTime);
        EXPECT_EQ(state.Time, 0.0);
        for (int i = 1; i <= 20; ++i) {
            EXPECT_TRUE(state.Rho[i] == before.Rho[i] && state.P[i] == before.P[i]);
        }
    }
    state.SchemeName = "kestrel";
    TickArrays tick(state);
    EXPECT_FALSE(TakeTimeStep(state, tick));
}

TEST_F(TimeStep, RaisesToTheFloorsAndStopsSlowVelocities) {
    // Of cells 5 and 6, before the shift: just below the floor, and exactly at it.
    state.Rho[4] = 1e-9;
    state.Ux[4] = 9.9e-9;
    state.Uy[4] = -9.9e-9;
    state.Ux[5] = -1e-8;
    state.Uy[5] = 1e-8;
    shiftedPressure = -1.0;
    TickArrays tick(state, library);
    ASSERT_TRUE(TakeTimeStep(state, tick));
    EXPECT_EQ(state.Rho[5], 1e-8);
    EXPECT_EQ(state.P[5], 1e-8);
    EXPECT_EQ(state.Ux[5], 0.0);
    EXPECT_EQ(state.Uy[5], 0.0);
    EXPECT_EQ(state.Ux[6], -1e-8);
    EXPECT_EQ(state.Uy[6], 1e-8);
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
