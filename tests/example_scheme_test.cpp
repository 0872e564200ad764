// The scheme of docs/examples in the place of Kestrel, run as a teacher would run it: the loader
// finds it on LD_LIBRARY_PATH, before the one that the program was built with.
#include <cmath>

#include "panel_test.h"
#include "setup/riemann_problem.h"
#include "verify/exact_riemann.h"

namespace {

class ExampleScheme : public PanelTest {
protected:
    // Mean absolute error of the density.
    double DensityError(const RiemannProblem& problem) {
        const ExactRiemann exact({problem.RhoL, problem.PL, problem.UxL, problem.UyL},
                                 {problem.RhoR, problem.PR, problem.UxR, problem.UyR}, state.Gamma);
        double sum = 0.0;
        for (int i = 1; i <= state.NGridCells; ++i) {
            const GasState average =
                ExactCellAverage(exact, problem.XJump, state.Time, state.X[i], state.X[i + 1]);
            sum += std::abs(state.Rho[i] - average.Rho);
        }
        return sum / state.NGridCells;
    }
};

struct Totals {
    double Mass = 0.0;
    double Momentum = 0.0;
    double Energy = 0.0;
};

Totals TotalsOf(const ExperimentState& state) {
    Totals sum;
    for (int i = 1; i <= state.NGridCells; ++i) {
        const double momentum = state.Rho[i] * state.Ux[i];
        sum.Mass += state.Rho[i] * state.DX;
        sum.Momentum += momentum * state.DX;
        sum.Energy += (state.P[i] / (state.Gamma - 1.0) + 0.5 * momentum * state.Ux[i]) * state.DX;
    }
    return sum;
}

}  // namespace

// Kestrel itself would come out at 0.00036.
TEST_F(ExampleScheme, ReachesWhatFirstOrderCanOnTest1) {
    panel.Press("cmdTest1");
    panel.Press("cmdBegin");
    ASSERT_TRUE(panel.RunToEnd());
    const double error = DensityError(RiemannTests[0]);
    EXPECT_GT(error, 0.0055);
    EXPECT_LT(error, 0.0065);
}

// But for the slowest motions, which the instrument stops after each step.
TEST_F(ExampleScheme, ConservesInAClosedTube) {
    panel.Press("cmdTest1");
    const BoxAnswers periodic({"4"});
    panel.Press("cmdBoundaryConditionType");
    const Totals before = TotalsOf(state);
    panel.Press("cmdBegin");
    ASSERT_TRUE(panel.RunToEnd());
    const Totals after = TotalsOf(state);
    EXPECT_NEAR(after.Mass, before.Mass, 1e-13);
    EXPECT_NEAR(after.Momentum, before.Momentum, 1e-9);
    EXPECT_NEAR(after.Energy, before.Energy, 1e-9);
}
