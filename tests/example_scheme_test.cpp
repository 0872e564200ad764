// The scheme of docs/examples in the place of Kestrel, run as a teacher would run it: the loader
// finds it on LD_LIBRARY_PATH, before the one that the program was built with.
#include <cmath>

#include "core/analysis/error_norms.h"
#include "core/analysis/exact_solution.h"
#include "panel_test.h"

using ExampleScheme = PanelTest;

// Kestrel itself would come out at 0.00036.
TEST_F(ExampleScheme, ReachesWhatFirstOrderCanOnTest1) {
    Begin();
    ASSERT_TRUE(panel.RunToEnd());
    const ExactFields exact = ExactFieldsOf(FindExactSolution(state), state);
    const double error = CompareFields(state.Rho, exact.Rho, state.X, state.NGridCells).Mean;
    EXPECT_GT(error, 0.0055);
    EXPECT_LT(error, 0.0065);
}
