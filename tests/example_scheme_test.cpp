// The scheme of docs/examples in the place of Kestrel, run as a teacher would run it: the loader
// finds it on LD_LIBRARY_PATH, before the one that the program was built with.
#include <cmath>

#include "panel_test.h"
#include "verify/trial_problems.h"

using ExampleScheme = PanelTest;

// Kestrel itself would come out at 0.00036.
TEST_F(ExampleScheme, ReachesWhatFirstOrderCanOnTest1) {
    Begin();
    ASSERT_TRUE(panel.RunToEnd());
    ShockTube tube = ShockTubes[0];
    tube.TStop = state.Time;
    const Flow exact = ShockTubeExact(tube, state.NGridCells, state.Gamma);
    double sum = 0.0;
    for (int i = 1; i <= state.NGridCells; ++i) {
        sum += std::abs(state.Rho[i] - exact.Rho[exact.At(i)]);
    }
    const double error = sum / state.NGridCells;  // mean absolute error of the density
    EXPECT_GT(error, 0.0055);
    EXPECT_LT(error, 0.0065);
}
