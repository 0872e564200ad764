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

// Density carried at even pressure 1 / gamma and velocity. mass(x) is the integral of the density
// at the start, so that averages are exact whatever its kinks.
FamilyProblem Carry(const std::vector<double>& edges, Ends ends, double velocity, double time,
                    const std::function<double(double x)>& mass) {
    FamilyProblem problem;
    problem.FirstStep = 1.0;
    problem.End = ends;
    problem.Time = time;
    GasCells& start = problem.Start;
    start.Edges = edges;
    const double shift = velocity * time;
    for (std::size_t k = 0; k + 1 < edges.size(); ++k) {
        const double width = edges[k + 1] - edges[k];
        start.Rho.push_back((mass(edges[k + 1]) - mass(edges[k])) / width);
        start.P.push_back(1.0 / 1.4);
        start.Ux.push_back(velocity);
        problem.Density.push_back((mass(edges[k + 1] - shift) - mass(edges[k] - shift)) / width);
    }
    return problem;
}

// Integrals of shapes over s. Ramps rise from 0 to 1 around s = 0, linearly between -1/2 and 1/2 or
// as a tanh with half the rise between -1/4 and 1/4; bumps are 1 at s = 0.
double LinearRamp(double s) {
    const double inside = std::clamp(s + 0.5, 0.0, 1.0);
    return 0.5 * inside * inside + std::max(s - 0.5, 0.0);
}

double TanhRamp(double s) {
    const double steepness = 4.0 * std::atanh(0.5);
    const double y = std::abs(steepness * s);
    return 0.5 * s + 0.5 * (y + std::log1p(std::exp(-2.0 * y))) / steepness;
}

double Gaussian(double s) {
    return 0.5 * std::sqrt(std::numbers::pi) * std::erf(s);
}

double Triangle(double s) {
    const double c = std::clamp(s, -1.0, 1.0);
    return c - 0.5 * c * std::abs(c);
}

double HalfEllipse(double s) {
    const double c = std::clamp(s, -1.0, 1.0);
    return 0.5 * (c * std::sqrt(1.0 - c * c) + std::asin(c));
}

std::function<double(double)> SineMass(int waves, double height) {
    return [=](double x) { return x - height / (TwoPi * waves) * std::cos(TwoPi * waves * x); };
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
    const double drawnWidth = draw.Logarithmic(4.0, 32.0);
    const double top = draw.Logarithmic(1.2, 20.0);
    const double velocity = draw.Sign() * draw.Logarithmic(0.1, 3.0);
    const bool rounded = draw.Chance(0.5);
    // The tails of a tanh must not reach the ends of the grid.
    const double width = rounded ? std::min(drawnWidth, cells / 18.0) : drawnWidth;
    const bool falling = draw.Chance(0.5);
    const double centre = velocity > 0.0 ? 0.3 : 0.7;
    const auto mass = [=](double x) {
        const double cell = width / cells;
        const double s = (falling ? centre - x : x - centre) / cell;
        const double sign = falling ? -1.0 : 1.0;
        return x + (top - 1.0) * cell * sign * (rounded ? TanhRamp(s) : LinearRamp(s));
    };
    const double time = draw.Uniform(0.1, 0.4) / std::abs(velocity);
    FamilyProblem problem = Carry(EvenEdges(cells), Ends::Open, velocity, time, mass);
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
    const auto mass = [=](double x) {
        double sum = x;
        for (int period = -3; period <= 3; ++period) {  // with its images
            const double s = (x - 0.5 - period) * cells / width;
            sum += height * width / cells *
                   (shape == 0   ? Gaussian(s)
                    : shape == 1 ? Triangle(s)
                                 : HalfEllipse(s));
        }
        return sum;
    };
    const double time = draw.Uniform(0.3, 1.0) / std::abs(velocity);
    FamilyProblem problem = Carry(EvenEdges(cells), Ends::Periodic, velocity, time, mass);
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
    FamilyProblem problem =
        Carry(EvenEdges(cells), Ends::Periodic, velocity, time, SineMass(waves, height));
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
        problem = Carry(grid.Edges, Ends::Periodic, velocity, time, SineMass(waves, height));
        problem.Numbers = Text("%d waves of density 1 +- %.4g, velocity %.4g, N %d, t %.4g", waves,
                               height, velocity, problem.Start.N(), time);
    }
    problem.Numbers += "; " + grid.Kind;
    return problem;
}
