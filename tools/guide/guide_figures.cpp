// Prints the figures that the guide quotes: exact wave patterns of the eight tests, and what the
// program gives in the guide's experiments. Without a window.
//     guide_figures
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "core/analysis/error_norms.h"
#include "core/analysis/exact_riemann.h"
#include "core/analysis/exact_solution.h"
#include "core/model/number_text.h"
#include "core/run/operation_meter.h"
#include "core/run/run.h"
#include "core/run/scheme_table.h"
#include "core/setup/riemann_problem.h"
#include "guide/experiment.h"

namespace {

constexpr double Gamma = 1.4;

const RiemannProblem& ProblemOf(int test) {
    return RiemannTests[static_cast<std::size_t>(test - 1)];
}

ExactRiemann ExactTest(int test) {
    const RiemannProblem& p = ProblemOf(test);
    return {{p.RhoL, p.PL, p.UxL, p.UyL}, {p.RhoR, p.PR, p.UxR, p.UyR}, Gamma};
}

void PrintWavePatterns() {
    std::printf("Exact waves: speed and end position, with the state to the right of it\n");
    for (int test = 1; test <= 8; ++test) {
        const RiemannProblem& problem = ProblemOf(test);
        const ExactRiemann exact = ExactTest(test);
        std::printf("Test %d: p* = %.6g, u* = %.6g, to t = %g\n", test, exact.StarPressure(),
                    exact.StarVelocity(), problem.TStop);
        std::vector<double> breaks = exact.Breaks();
        std::sort(breaks.begin(), breaks.end());
        for (const double speed : breaks) {
            const GasState right = exact.At(speed + 1e-9 * std::max(1.0, std::abs(speed)));
            std::printf("    speed %9.5f  x = %8.5f   rho %.5g  p %.5g  u %.5g\n", speed,
                        problem.XJump + speed * problem.TStop, right.Rho, right.P, right.Ux);
        }
    }
}

// Where the density falls through a value, by linear interpolation, from the right.
double CrossingFromRight(const ExperimentState& state, double rho) {
    for (int i = state.NGridCells; i > 1; --i) {
        if ((state.Rho[i] - rho) * (state.Rho[i - 1] - rho) > 0.0) continue;
        const double share = (rho - state.Rho[i]) / (state.Rho[i - 1] - state.Rho[i]);
        return 0.5 * (state.X[i] + state.X[i + 1]) - share * (state.X[2] - state.X[1]);
    }
    return std::nan("");
}

void PrintSpeedsOfTest1() {
    std::printf("\nTest 1: speeds from the last stored state, Kestrel, 400 cells\n");
    Experiment experiment;
    experiment.SetUp(1);
    experiment.RunWhole();
    const ExperimentState& state = experiment.State;
    const RiemannProblem& problem = RiemannTests[0];
    const ExactRiemann exact = ExactTest(1);
    const double beside = 1e-6;
    const double left = exact.At(exact.StarVelocity() - beside).Rho;
    const double right = exact.At(exact.StarVelocity() + beside).Rho;
    const auto speed = [&](double rho) {
        return (CrossingFromRight(state, rho) - problem.XJump) / state.Time;
    };
    std::printf("    t = %.5f, %d stored states: shock %.4f, contact %.4f\n", state.Time,
                state.NStored, speed(0.5 * (right + problem.RhoR)), speed(0.5 * (left + right)));
}

// Mean and greatest error of the density in cells of one side of the flow.
void PrintRipples(const char* name, const ExperimentState& state, double from, double to,
                  double exact) {
    double mean = 0.0, worst = 0.0;
    int cells = 0;
    for (int i = 1; i <= state.NGridCells; ++i) {
        if (state.X[i] < from || state.X[i + 1] > to) continue;
        const double error = std::abs(state.Rho[i] / exact - 1.0);
        mean += error;
        worst = std::max(worst, error);
        ++cells;
    }
    std::printf("    %-28s mean %.3f %%, worst %.3f %% over %d cells\n", name, 100 * mean / cells,
                100 * worst, cells);
}

void PrintWallHeating() {
    std::printf("\nTest 4: density at the middle (exact value 6 behind both shocks)\n");
    for (const SchemeRow& scheme : Schemes) {
        Experiment experiment;
        experiment.ChooseScheme(scheme.Name);
        experiment.SetUp(4);
        experiment.RunWhole();
        const ExperimentState& state = experiment.State;
        const int middle = state.NGridCells / 2;
        std::printf("    %-10s t = %.4f: rho %.4f, p %.4f, shock at %.4f\n", scheme.Name,
                    state.Time, state.Rho[middle], state.P[middle], CrossingFromRight(state, 3.5));
    }
}

void PrintWallHeatingByGrid() {
    for (const int cells : {200, 800}) {
        Experiment experiment;
        experiment.TakeCells(cells);
        experiment.ChooseScheme("Plover");
        experiment.SetUp(4);
        experiment.RunWhole();
        const ExperimentState& state = experiment.State;
        int wrong = 0;
        for (int i = 1; i <= state.NGridCells; ++i) wrong += state.Rho[i] > 6.06;
        std::printf("    Plover, %d cells: rho %.4f, %d cells more than 1 %% too dense\n", cells,
                    state.Rho[state.NGridCells / 2], wrong);
    }
}

void PrintContactWidths() {
    std::printf("\nTest 7: cells with a density between 5 and 95 %% of the jump at the end\n");
    for (const SchemeRow& scheme : Schemes) {
        Experiment experiment;
        experiment.ChooseScheme(scheme.Name);
        experiment.SetUp(7);
        experiment.RunWhole();
        const ExperimentState& state = experiment.State;
        int cells = 0;
        for (int i = 1; i <= state.NGridCells; ++i) {
            cells += state.Rho[i] > 1.02 && state.Rho[i] < 1.38;
        }
        std::printf("    %-10s %d cells, middle at %.4f, t = %.4f\n", scheme.Name, cells,
                    CrossingFromRight(state, 1.2), state.Time);
    }
}

double SteepestFall(const ExperimentState& state, int s) {
    const int base = s * (state.NGridCells + 2);
    float steepest = 0.0F;
    for (int i = 1; i < state.NGridCells; ++i) {
        steepest = std::max(steepest, state.SRPlus[base + i] - state.SRPlus[base + i + 1]);
    }
    return static_cast<double>(steepest);
}

void PrintSteepening() {
    std::printf("\nSound wave, R+ alone, frequency 1, at rest: when the front is 10 x as steep\n");
    for (const double amplitude : {0.2, 0.3, 0.4}) {
        Experiment experiment;
        PutPeriods(experiment.State, experiment.Boxes, "2");
        SetUpSoundWave(experiment.State, {.RPlusAmp = amplitude, .U0 = 0.0});
        experiment.RunWhole();
        const ExperimentState& state = experiment.State;
        const double first = SteepestFall(state, 0);
        int s = 0;
        while (s + 1 < state.NStored && SteepestFall(state, s) < 10.0 * first) ++s;
        const double broken = 2.0 / ((Gamma + 1.0) * std::acos(-1.0) * amplitude);
        std::printf("    amplitude %g: t = %.4f (0.9 of the breaking time: %.4f)\n", amplitude,
                    state.StoredT[s], 0.9 * broken);
    }
}

double DensityError(const ExperimentState& state) {
    const ExactFields exact = ExactFieldsOf(FindExactSolution(state), state);
    return CompareFields(state.Rho, exact.Rho, state.X, state.NGridCells).Mean;
}

void PrintConvergence() {
    std::printf("\nTest 1: mean error of the density\n");
    for (const SchemeRow& scheme : Schemes) {
        std::printf("    %-10s", scheme.Name);
        for (const int cells : {100, 200, 400, 800}) {
            Experiment experiment;
            experiment.ChooseScheme(scheme.Name);
            experiment.TakeCells(cells);
            experiment.SetUp(1);
            experiment.RunWhole();
            std::printf("  %d: %.6f", cells, DensityError(experiment.State));
        }
        std::printf("\n");
    }
}

void PrintConstants() {
    const struct {
        double difcon;
        double shkjmp;
        double wavhaf;
    } rows[] = {{0.3, 0.2, 1.0}, {0.0, 0.2, 1.0}, {0.3, 0.2, 0.0}, {0.3, 1000.0, 1.0}};
    for (const int test : {4, 6}) {
        const ExactRiemann exact = ExactTest(test);
        std::printf(
            "\nTest %d: density error between contact and right shock, by difcon, shkjmp, "
            "wavhaf\n",
            test);
        for (const auto& row : rows) {
            Experiment experiment;
            experiment.ChooseConstants(row.difcon, row.shkjmp, row.wavhaf);
            experiment.SetUp(test);
            experiment.RunWhole();
            const ExperimentState& state = experiment.State;
            std::vector<double> breaks = exact.Breaks();
            std::sort(breaks.begin(), breaks.end());
            const double jump = ProblemOf(test).XJump;
            const double contact = jump + exact.StarVelocity() * state.Time;
            const double shock = jump + breaks.back() * state.Time;
            const double room = 0.15 * (shock - contact);  // clear of both
            const std::string name = GeneralNumber(row.difcon) + ", " + GeneralNumber(row.shkjmp) +
                                     ", " + GeneralNumber(row.wavhaf);
            PrintRipples(name.c_str(), state, contact + room, shock - room,
                         exact.At(exact.StarVelocity() + 1e-6).Rho);
        }
    }
}

void PrintBlastWaves() {
    std::printf("\nBlast waves: the greatest density and where, near t = 0.028 and t = 0.038\n");
    for (const int cells : {400, 1000}) {
        Experiment experiment;
        experiment.TakeCells(cells);
        experiment.RunWhole();
        const ExperimentState& state = experiment.State;
        for (const double time : {0.028, 0.038}) {
            int s = 0;
            while (s + 1 < state.NStored && state.StoredT[s] < time) ++s;
            const int base = s * (state.NGridCells + 2);
            const float* first = state.SRho.At(base + 1);
            const auto most = std::max_element(first, first + state.NGridCells) - first;
            std::printf("    %d cells, t = %.5f: %.3f at x = %.4f\n", cells, state.StoredT[s],
                        static_cast<double>(first[most]),
                        (static_cast<double>(most) + 0.5) / state.NGridCells);
        }
    }
}

void PrintMeter() {
    std::printf("\nThe meter, Test 1, 400 cells\n");
    for (const SchemeRow& scheme : Schemes) {
        Experiment experiment;
        experiment.ChooseScheme(scheme.Name);
        experiment.State.MeterOn = 1;
        experiment.SetUp(1);
        TickArrays tick = experiment.Begin();
        AdvanceRun(experiment.State, tick);
        std::printf("    %-10s %.0f Mflop/s; %s\n", scheme.Name, experiment.State.MflopsRate,
                    OperationsText(experiment.State, tick).c_str());
    }
}

void PrintAll() {
    PrintWavePatterns();
    PrintSpeedsOfTest1();
    PrintWallHeating();
    PrintWallHeatingByGrid();
    PrintContactWidths();
    PrintSteepening();
    PrintConvergence();
    PrintConstants();
    PrintBlastWaves();
    PrintMeter();
}

}  // namespace

int main() {
    try {
        PrintAll();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "guide_figures: %s\n", failure.what());
        return 1;
    }
    return 0;
}
