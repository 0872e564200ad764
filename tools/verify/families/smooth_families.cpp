#include "verify/families/smooth_families.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "verify/families/grids.h"
#include "verify/families/text.h"

namespace {

constexpr double TwoPi = 2.0 * std::numbers::pi;

// A simple wave of one wavelength on gas of density and sound speed 1 that moves at Frame. Side is
// 1 for a wave that runs to the right in the gas, -1 for one to the left.
struct SimpleWave {
    double Amplitude;  // of the velocity
    double Side;
    double Frame;
    double Gamma;

    GasState At(double x, double time) const {
        double origin = x;
        double v = 0.0;
        double c = 1.0;
        for (int i = 0; i < 100; ++i) {  // a contraction before the wave breaks
            v = Amplitude * std::sin(TwoPi * origin);
            c = 1.0 + 0.5 * (Gamma - 1.0) * v;
            origin = x - (Frame + Side * (v + c)) * time;
        }
        const double power = 2.0 / (Gamma - 1.0);
        return {std::pow(c, power), std::pow(c, Gamma * power) / Gamma, Frame + Side * v, 0.0};
    }
    double BreakingTime() const { return 2.0 / ((Gamma + 1.0) * TwoPi * Amplitude); }
};

FamilyProblem LayWave(const SimpleWave& wave, const std::vector<double>& edges, double time) {
    FamilyProblem problem;
    problem.Gamma = wave.Gamma;
    problem.FirstStep = 1.0;
    problem.End = Ends::Periodic;
    problem.Time = time;
    const auto at = [&](double t) {
        return AveragesOf(edges, wave.Gamma, [&](double x) { return wave.At(x, t); });
    };
    problem.Start = at(0.0);
    problem.Density = at(time).Rho;
    problem.Numbers = Text(
        "velocity amplitude %.4g to the %s, frame %.4g, gamma %.4g, N %d, t %.4g", wave.Amplitude,
        wave.Side > 0.0 ? "right" : "left", wave.Frame, wave.Gamma, problem.Start.N(), time);
    return problem;
}

// Density carried at even pressure 1 / gamma and velocity.
FamilyProblem Carry(const std::vector<double>& edges, Ends ends, double velocity, double time,
                    const std::function<double(double x)>& density) {
    FamilyProblem problem;
    problem.FirstStep = 1.0;
    problem.End = ends;
    problem.Time = time;
    const auto at = [&](double t) {
        return AveragesOf(edges, 1.4, [&](double x) {
            return GasState{density(x - velocity * t), 1.0 / 1.4, velocity, 0.0};
        });
    };
    problem.Start = at(0.0);
    problem.Density = at(time).Rho;
    return problem;
}

double PastOne(double x) {
    return x - std::floor(x);
}

}  // namespace

FamilyProblem SmallSoundWave(Draw& draw) {
    const double frame = draw.Chance(0.4) ? 0.0 : draw.Uniform(-2.0, 2.0);
    const SimpleWave wave = {draw.Logarithmic(5e-4, 2e-2), draw.Sign(),
                             draw.Chance(0.1) ? -1.0 : frame, 1.4};
    return LayWave(wave, EvenEdges(50 * draw.Whole(1, 4)), 1.0);
}

FamilyProblem FiniteSoundWave(Draw& draw) {
    const SimpleWave wave = {draw.Uniform(0.05, 0.3), draw.Sign(),
                             draw.Chance(0.5) ? 0.0 : draw.Uniform(-2.0, 2.0), 1.4};
    const auto edges = EvenEdges(50 * draw.Whole(1, 4));
    return LayWave(wave, edges, draw.Uniform(0.3, 0.7) * wave.BreakingTime());
}

FamilyProblem CarriedRamp(Draw& draw) {
    const int cells = 50 * draw.Whole(2, 4);
    const double width = draw.Logarithmic(4.0, 32.0);
    const double top = draw.Logarithmic(1.2, 20.0);
    const double velocity = draw.Sign() * draw.Logarithmic(0.1, 3.0);
    const bool rounded = draw.Chance(0.5);
    const bool falling = draw.Chance(0.5);
    const double centre = velocity > 0.0 ? 0.3 : 0.7;
    // A rounded ramp has its width between a quarter and three quarters of the rise.
    const auto density = [=](double x) {
        double s = (x - centre) * cells / width;
        if (falling) s = -s;
        const double share =
            rounded ? 0.5 + 0.5 * std::tanh(1.1 * s) : std::clamp(s + 0.5, 0.0, 1.0);
        return 1.0 + (top - 1.0) * share;
    };
    const double time = draw.Uniform(0.1, 0.4) / std::abs(velocity);
    FamilyProblem problem = Carry(EvenEdges(cells), Ends::Open, velocity, time, density);
    problem.Numbers = Text("%s %s over %.3g cells, density 1 to %.4g, velocity %.4g, N %d, t %.4g",
                           falling ? "falling" : "rising", rounded ? "tanh" : "linear", width, top,
                           velocity, cells, time);
    return problem;
}

FamilyProblem CarriedBump(Draw& draw) {
    const int cells = 50 * draw.Whole(2, 4);
    const double width = draw.Logarithmic(2.0, 15.0);
    const double height = draw.Chance(0.3) ? -draw.Uniform(0.2, 0.9) : draw.Logarithmic(0.1, 10.0);
    const double velocity = draw.Sign() * draw.Logarithmic(0.1, 3.0);
    const int shape = draw.Whole(0, 2);
    const auto density = [=](double x) {
        const double s = (PastOne(x) - 0.5) * cells / width;
        const double share = shape == 0   ? std::exp(-s * s)
                             : shape == 1 ? std::max(0.0, 1.0 - std::abs(s))
                                          : std::sqrt(std::max(0.0, 1.0 - s * s));
        return 1.0 + height * share;
    };
    const double time = draw.Uniform(0.3, 1.0) / std::abs(velocity);
    FamilyProblem problem = Carry(EvenEdges(cells), Ends::Periodic, velocity, time, density);
    constexpr std::array<const char*, 3> names = {"Gaussian", "triangle", "half ellipse"};
    problem.Numbers = Text(
        "%s of half width %.3g cells, height %.4g on 1, velocity %.4g, N %d, "
        "t %.4g",
        names[shape], width, height, velocity, cells, time);
    return problem;
}

FamilyProblem CarriedWave(Draw& draw) {
    const int cells = 50 * draw.Whole(2, 4);
    const int waves = draw.Whole(1, 8);
    const double height = draw.Uniform(0.05, 0.8);
    const double velocity = draw.Sign() * draw.Logarithmic(0.1, 3.0);
    const double time = draw.Uniform(0.3, 1.0) / std::abs(velocity);
    FamilyProblem problem = Carry(EvenEdges(cells), Ends::Periodic, velocity, time, [=](double x) {
        return 1.0 + height * std::sin(TwoPi * waves * x);
    });
    problem.Numbers = Text("%d waves of density 1 +- %.4g, velocity %.4g, N %d, t %.4g", waves,
                           height, velocity, cells, time);
    return problem;
}

FamilyProblem FastWave(Draw& draw) {
    const double frame = draw.Sign() * draw.Logarithmic(5.0, 30.0);
    const SimpleWave wave = {draw.Logarithmic(5e-3, 0.1), draw.Sign(), frame, 1.4};
    return LayWave(wave, EvenEdges(25 * draw.Whole(2, 4)), draw.Uniform(0.1, 0.4));
}

FamilyProblem UnevenSmooth(Draw& draw) {
    const UnevenGrid grid = DrawUnevenGrid(draw, 50 * draw.Whole(2, 4));
    FamilyProblem problem;
    if (draw.Chance(0.5)) {
        const SimpleWave wave = {draw.Logarithmic(1e-3, 0.1), draw.Sign(),
                                 draw.Chance(0.5) ? 0.0 : draw.Uniform(-2.0, 2.0), 1.4};
        problem = LayWave(wave, grid.Edges, std::min(1.0, 0.6 * wave.BreakingTime()));
    } else {
        const int waves = draw.Whole(1, 4);
        const double height = draw.Uniform(0.05, 0.8);
        const double velocity = draw.Sign() * draw.Logarithmic(0.3, 3.0);
        const double time = draw.Uniform(0.3, 1.0) / std::abs(velocity);
        problem = Carry(grid.Edges, Ends::Periodic, velocity, time,
                        [=](double x) { return 1.0 + height * std::sin(TwoPi * waves * x); });
        problem.Numbers = Text("%d waves of density 1 +- %.4g, velocity %.4g, N %d, t %.4g", waves,
                               height, velocity, problem.Start.N(), time);
    }
    problem.Numbers += "; " + grid.Kind;
    return problem;
}
