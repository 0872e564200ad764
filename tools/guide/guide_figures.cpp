// Prints the figures that the guide quotes: exact wave patterns of the eight tests, and what the
// program gives in the guide's experiments. Without a display.
//     guide_figures
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "core/analysis/error_norms.h"
#include "core/analysis/exact_riemann.h"
#include "core/analysis/exact_solution.h"
#include "core/setup/riemann_problem.h"
#include "guide/guide_problems.h"
#include "panel/widgets/look.h"
#include "panel/window/main_window.h"

namespace {

constexpr double Gamma = 1.4;
constexpr const char* Schemes[] = {"Kestrel", "Kestrel32", "Heron32", "Plover"};

ExactRiemann ExactTest(std::size_t test) {
    const RiemannProblem& p = RiemannTests[test - 1];
    return {{p.RhoL, p.PL, p.UxL, p.UyL}, {p.RhoR, p.PR, p.UxR, p.UyR}, Gamma};
}

void PrintWavePatterns() {
    std::printf("Exact waves: speed and end position, with the state to the right of it\n");
    for (std::size_t test = 1; test <= RiemannTests.size(); ++test) {
        const RiemannProblem& problem = RiemannTests[test - 1];
        const ExactRiemann exact = ExactTest(test);
        std::printf("Test %zu: p* = %.6g, u* = %.6g, to t = %g\n", test, exact.StarPressure(),
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

// Sets up a test by its button, after closer pictures for the cold gas of Test 4.
void PressTest(Panel& panel, std::size_t test) {
    if (test == 4) {
        panel.Type("txtNPeriods", "0.01");
        panel.Type("txtNPlotsPerPeriod", "40000");
    }
    panel.Press(("cmdTest" + QByteArray::number(static_cast<int>(test))).constData());
}

void RunOrExit(Panel& panel) {
    if (RunWhole(panel)) return;
    std::fprintf(stderr, "guide_figures: a run did not end\n");
    std::exit(1);
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
    Panel panel;
    PressTest(panel, 1);
    RunOrExit(panel);
    const ExperimentState& state = panel.Form().state;
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
    for (const char* scheme : Schemes) {
        Panel panel;
        ChooseScheme(panel, scheme);
        PressTest(panel, 4);
        RunOrExit(panel);
        const ExperimentState& state = panel.Form().state;
        const int middle = state.NGridCells / 2;
        std::printf("    %-10s t = %.4f: rho %.4f, p %.4f, shock at %.4f\n", scheme, state.Time,
                    state.Rho[middle], state.P[middle], CrossingFromRight(state, 3.5));
    }
}

void PrintWallHeatingByGrid() {
    for (const char* cells : {"200", "800"}) {
        Panel panel;
        panel.Type("txtNGridCells", cells);
        ChooseScheme(panel, "Plover");
        PressTest(panel, 4);
        RunOrExit(panel);
        const ExperimentState& state = panel.Form().state;
        int wrong = 0;
        for (int i = 1; i <= state.NGridCells; ++i) wrong += state.Rho[i] > 6.06;
        std::printf("    Plover, %s cells: rho %.4f, %d cells more than 1 %% too dense\n", cells,
                    state.Rho[state.NGridCells / 2], wrong);
    }
}

void PrintContactWidths() {
    std::printf("\nTest 7: cells with a density between 5 and 95 %% of the jump at the end\n");
    for (const char* scheme : Schemes) {
        Panel panel;
        ChooseScheme(panel, scheme);
        PressTest(panel, 7);
        RunOrExit(panel);
        const ExperimentState& state = panel.Form().state;
        int cells = 0;
        for (int i = 1; i <= state.NGridCells; ++i) {
            cells += state.Rho[i] > 1.02 && state.Rho[i] < 1.38;
        }
        std::printf("    %-10s %d cells, middle at %.4f, t = %.4f\n", scheme, cells,
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
    for (const char* amplitude : {"0.2", "0.3", "0.4"}) {
        Panel panel;
        panel.Type("txtNPeriods", "2");
        SetUpSoundWave(panel, {.RPlus = amplitude});
        RunOrExit(panel);
        const ExperimentState& state = panel.Form().state;
        const double first = SteepestFall(state, 0);
        int s = 0;
        while (s + 1 < state.NStored && SteepestFall(state, s) < 10.0 * first) ++s;
        const double broken = 2.0 / ((Gamma + 1.0) * std::acos(-1.0) * std::atof(amplitude));
        std::printf("    amplitude %s: t = %.4f (0.9 of the breaking time: %.4f)\n", amplitude,
                    state.StoredT[s], 0.9 * broken);
    }
}

double DensityError(const ExperimentState& state) {
    const ExactFields exact = ExactFieldsOf(FindExactSolution(state), state);
    return CompareFields(state.Rho, exact.Rho, state.X, state.NGridCells).Mean;
}

void PrintConvergence() {
    std::printf("\nTest 1: mean error of the density\n");
    for (const char* scheme : Schemes) {
        std::printf("    %-10s", scheme);
        for (const char* cells : {"100", "200", "400", "800"}) {
            Panel panel;
            ChooseScheme(panel, scheme);
            panel.Type("txtNGridCells", cells);
            PressTest(panel, 1);
            RunOrExit(panel);
            std::printf("  %s: %.6f", cells, DensityError(panel.Form().state));
        }
        std::printf("\n");
    }
}

void PrintConstants() {
    const struct {
        const char* difcon;
        const char* shkjmp;
        const char* wavhaf;
    } rows[] = {{"0.3", "0.2", "1"}, {"0", "0.2", "1"}, {"0.3", "0.2", "0"}, {"0.3", "1000", "1"}};
    for (const std::size_t test : {std::size_t{4}, std::size_t{6}}) {
        const ExactRiemann exact = ExactTest(test);
        std::printf(
            "\nTest %zu: density error between contact and right shock, by difcon, shkjmp, "
            "wavhaf\n",
            test);
        for (const auto& row : rows) {
            Panel panel;
            ChooseConstants(panel, row.difcon, row.shkjmp, row.wavhaf);
            PressTest(panel, test);
            RunOrExit(panel);
            const ExperimentState& state = panel.Form().state;
            std::vector<double> breaks = exact.Breaks();
            std::sort(breaks.begin(), breaks.end());
            const double jump = RiemannTests[test - 1].XJump;
            const double contact = jump + exact.StarVelocity() * state.Time;
            const double shock = jump + breaks.back() * state.Time;
            const double room = 0.15 * (shock - contact);  // clear of both
            const std::string name =
                std::string(row.difcon) + ", " + row.shkjmp + ", " + row.wavhaf;
            PrintRipples(name.c_str(), state, contact + room, shock - room,
                         exact.At(exact.StarVelocity() + 1e-6).Rho);
        }
    }
}

void PrintBlastWaves() {
    std::printf("\nBlast waves: the greatest density and where, near t = 0.028 and t = 0.038\n");
    for (const char* cells : {"400", "1000"}) {
        Panel panel;
        // At once: digit by digit the problem would pass through grids of 1 and 2 digits.
        panel.Form().controls.txtNGridCells->setText(cells);
        RunOrExit(panel);
        const ExperimentState& state = panel.Form().state;
        for (const double time : {0.028, 0.038}) {
            int s = 0;
            while (s + 1 < state.NStored && state.StoredT[s] < time) ++s;
            const int base = s * (state.NGridCells + 2);
            const float* first = state.SRho.At(base + 1);
            const auto most = std::max_element(first, first + state.NGridCells) - first;
            std::printf("    %s cells, t = %.5f: %.3f at x = %.4f\n", cells, state.StoredT[s],
                        static_cast<double>(first[most]),
                        (static_cast<double>(most) + 0.5) / state.NGridCells);
        }
    }
}

void PrintMeter() {
    std::printf("\nThe meter, Test 1, 400 cells\n");
    for (const char* scheme : Schemes) {
        Panel panel;
        ChooseScheme(panel, scheme, "1");
        panel.Press("cmdTest1");
        panel.Press("cmdBegin");
        panel.Tick(1);
        const Controls& controls = panel.Form().controls;
        std::printf("    %-10s %s Mflop/s; %s\n", scheme, qPrintable(controls.cmdTest2->text()),
                    qPrintable(controls.lblStudentID->text()));
    }
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    UseFixedLook();
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
    return 0;
}
