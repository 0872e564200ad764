#include "verify/families/computed_families.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "verify/families/grids.h"
#include "verify/families/text.h"
#include "verify/families/wave_tracking.h"

namespace {

constexpr double Gamma = 1.4;

int DrawCells(Draw& draw) {
    return 50 * draw.Whole(2, 4);
}

}  // namespace

FamilyProblem ShockOnWave(Draw& draw) {
    const int cells = DrawCells(draw);
    const double mach = draw.Logarithmic(1.1, 8.0);
    const double m2 = mach * mach;
    const double c = std::sqrt(Gamma);
    const GasState behind = {(Gamma + 1.0) * m2 / ((Gamma - 1.0) * m2 + 2.0),
                             1.0 + 2.0 * Gamma / (Gamma + 1.0) * (m2 - 1.0),
                             2.0 * c / (Gamma + 1.0) * (mach - 1.0 / mach), 0.0};
    const bool bump = draw.Chance(0.4);
    const double height = bump ? draw.Logarithmic(0.2, 4.0) : draw.Uniform(0.05, 0.4);
    const double length = (bump ? draw.Uniform(4.0, 15.0) : draw.Uniform(10.0, 40.0)) / cells;
    const double centre = 0.4;
    const double start = 0.15;
    const auto density = [=](double x) {
        const double s = (x - centre) / length;
        return 1.0 + height * (bump ? std::exp(-s * s) : std::sin(2.0 * std::numbers::pi * s));
    };
    FamilyProblem problem;
    problem.Finer = [=](int n) {
        return AveragesOf(EvenEdges(n), Gamma, [=](double x) {
            return x < start ? behind : GasState{density(x), 1.0, 0.0, 0.0};
        });
    };
    problem.Start = problem.Finer(cells);
    problem.Time = 0.65 / (mach * c * (bump ? 1.0 : 1.1));
    problem.Numbers = Text("Mach %.4g into density 1 + %.3g %s of %.3g cells, N %d, t %.5g", mach,
                           height, bump ? "Gaussian" : "sine", length * cells, cells, problem.Time);
    return problem;
}

FamilyProblem BlastWaves(Draw& draw) {
    const int cells = DrawCells(draw);
    const double most = draw.Chance(0.5) ? 1e3 : 10.0;
    const auto state = [&](double leastP, double mostP) {
        return GasState{draw.Chance(0.5) ? 1.0 : draw.Logarithmic(0.3, 3.0),
                        draw.Logarithmic(leastP, mostP), 0.0, 0.0};
    };
    const std::vector<GasState> states = {state(1.0, most), state(1.0 / most, 1.0),
                                          state(1.0, most)};
    const std::vector<double> jumps = {0.05 * draw.Whole(1, 8), 0.05 * draw.Whole(11, 18)};
    FamilyProblem problem;
    problem.End = Ends::Walls;
    problem.Time = draw.Uniform(0.8, 2.0) * WaveTracking(states, jumps, Gamma).NextMeeting();
    problem.Finer = [=](int n) {
        GasCells gas;
        gas.Edges = EvenEdges(n);
        for (int k = 0; k < n; ++k) {
            const double x = (k + 0.5) / n;
            const GasState& s = states[x < jumps[0] ? 0 : x < jumps[1] ? 1 : 2];
            gas.Rho.push_back(s.Rho);
            gas.P.push_back(s.P);
            gas.Ux.push_back(s.Ux);
        }
        return gas;
    };
    problem.Start = problem.Finer(cells);
    problem.Numbers = Text(
        "rho, p = %.4g, %.4g | at %.3g: %.4g, %.4g | at %.3g: %.4g, %.4g between walls; N %d, "
        "t %.5g",
        states[0].Rho, states[0].P, jumps[0], states[1].Rho, states[1].P, jumps[1], states[2].Rho,
        states[2].P, cells, problem.Time);
    return problem;
}

FamilyProblem Pulse(Draw& draw) {
    const int cells = DrawCells(draw);
    const double height = draw.Logarithmic(0.02, 5.0);
    const double width = draw.Uniform(4.0, 15.0) / cells;
    const bool sameEntropy = draw.Chance(0.5);
    const bool walls = draw.Chance(0.5);
    const double velocity = walls || draw.Chance(0.5) ? 0.0 : draw.Uniform(-2.0, 2.0);
    const double centre = walls ? draw.Uniform(0.15, 0.85) : 0.5;
    FamilyProblem problem;
    problem.FirstStep = 1.0;
    problem.End = walls ? Ends::Walls : Ends::Periodic;
    problem.Time = draw.Uniform(0.15, 0.6) / (1.0 + 0.5 * std::sqrt(height));
    problem.Finer = [=](int n) {
        return AveragesOf(EvenEdges(n), Gamma, [=](double x) {
            const double s = (x - centre) / width;
            const double p = 1.0 + height * std::exp(-s * s);
            return GasState{sameEntropy ? std::pow(p, 1.0 / Gamma) : 1.0, p, velocity, 0.0};
        });
    };
    problem.Start = problem.Finer(cells);
    problem.Numbers = Text(
        "pressure 1 + %.3g Gaussian of %.3g cells at %.3g, %s, velocity %.3g, %s; N %d, t %.4g",
        height, width * cells, centre, sameEntropy ? "even entropy" : "even density", velocity,
        walls ? "walls" : "periodic", cells, problem.Time);
    return problem;
}
