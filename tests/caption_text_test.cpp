#include "core/picture/caption_text.h"

#include <gtest/gtest.h>

#include "core/model/experiment_state.h"
#include "core/run/operation_meter.h"
#include "core/run/tick_arrays.h"
#include "core/setup/blast_waves.h"
#include "core/setup/riemann_problem.h"

TEST(CaptionText, ReadsWordForWord) {
    const Moment now{"11/22/26", "9:41 PM"};
    ExperimentState state;
    state.StudentName = "Jane Q. Student";
    state.R0Amp = 0.25;
    EXPECT_EQ(SoundWaveCaption(state, now),
              "R+ amplitude = 1.0,     R- amplitude = 0.0,     R0 amplitude = 0.25,     "
              "average velocity, u0 = -1.0     11/22/26    9:41 PM    Jane Q. Student");

    BuildBlastWaves(state);
    state.TStop = 0.0400892;
    EXPECT_EQ(SixPointCaption(state, now),
              "RhoL = 1.0,     PL = 1000.0,     UxL = 0.0,     XJumpL = 0.1,     RhoM = 1.0,     "
              "UxM = 0.0,     Gamma = 1.4,       11/22/26   9:41 PM\r\n"
              "RhoR = 1.0,     PR = 100.0,     UxR = 0.0,     XJumpR = 0.9,     PM = 0.01,     "
              "UyM = 0.0,     TStop = 0.040089,       Jane Q. Student");

    BuildRiemannProblem(state, RiemannTests[0]);
    state.TStop = 0.2;
    EXPECT_EQ(FourPointCaption(state, now),
              "RhoL = 1.0,     PL = 1.0,     UxL = 0.75,     XL = 0.0,     XJump = 0.3,       "
              "Gamma = 1.411/22/26   9:41 PM\r\n"
              "RhoR = 0.125,     PR = 0.1,     UxR = 0.0,     XR = 1.0,     TStop = 0.2,       "
              "Jane Q. Student");
    EXPECT_EQ(RiemannCaption(state, RiemannTests[1], now),
              "RhoL = 1.0,     PL = 1.0,     UxL = 0.75,     UyL = 1.0,     XL = 0.0,     "
              "XJump = 0.3,       11/22/26       Gamma = 1.4,       \r\n"
              "RhoR = 0.125,     PR = 0.1,     UxR = 0.0,     UyR = -8.0,     XR = 1.0,     "
              "TStop = 0.2,       9:41 PM    Jane Q. Student");
}

TEST(OperationMeter, ListsTheCountsOfACellAndFormsTheRate) {
    ExperimentState state;
    state.NGridCells = 1000;
    TickArrays tick(state, SchemeLibrary());
    tick.RepeatCount = 81;
    tick.OpCounters = {0,          81000 * 300, 81000 * 120, 81000 * 90, 81000 * 11,
                       81000 * 45, 81000,       40500,       121500};
    EXPECT_EQ(OperationsText(state, tick),
              "flops / cell = 300,    adds / cell = 120,    mults / cell = 90,    "
              "cvmgms / cell = 45,    recips / cell = 11,    sqrts / cell = 1.5,    "
              "exps / cell = 2,    ");  // 1.5 exponentials: ties to even

    CountOperations(state, tick);  // no time has passed: no rate
    EXPECT_EQ(state.MflopsRate, 0.0);
    tick.StripSeconds = 0.01;
    CountOperations(state, tick);
    EXPECT_NEAR(state.MflopsRate, 2.0 * 24.3 / 0.01, 1e-6);
}
