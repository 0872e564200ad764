// The scheme of docs/examples in the place of Kestrel, run as a teacher would run it: the loader
// finds it on LD_LIBRARY_PATH, before the one that the program was built with.
#include <cmath>

#include "panel_test.h"
#include "setup/riemann_problem.h"
#include "verify/exact_riemann.h"

using ExampleScheme = PanelTest;

// Kestrel itself would come out at 0.00036.
TEST_F(ExampleScheme, ReachesWhatFirstOrderCanOnTest1) {
    Begin();
    ASSERT_TRUE(panel.RunToEnd());
    const RiemannProblem& problem = RiemannTests[0];
    const ExactRiemann exact({problem.RhoL, problem.PL, problem.UxL, problem.UyL},
                             {problem.RhoR, problem.PR, problem.UxR, problem.UyR}, state.Gamma);
    double sum = 0.0;
    for (int i = 1; i <= state.NGridCells; ++i) {
        const GasState average =
            ExactCellAverage(exact, problem.XJump, state.Time, state.X[i], state.X[i + 1]);
        sum += std::abs(state.Rho[i] - average.Rho);
    }
    const double error = sum / state.NGridCells;  // mean absolute error of the density
    EXPECT_GT(error, 0.0055);
    EXPECT_LT(error, 0.0065);
}
