#include "verify/families/riemann_families.h"

#include <algorithm>
#include <cmath>

#include "core/analysis/exact_riemann.h"
#include "verify/families/grids.h"
#include "verify/families/text.h"
#include "verify/families/wave_tracking.h"

namespace {

double Sound(const GasState& s, double gamma) {
    return std::sqrt(gamma * s.P / s.Rho);
}

std::string Describe(const GasState& left, const GasState& right, const FamilyProblem& problem,
                     double jump) {
    return Text(
        "rho, p, u = %.6g, %.6g, %.6g | %.6g, %.6g, %.6g; gamma %.4g, Courant %.3g, N %d, "
        "jump %.4g, t %.6g",
        left.Rho, left.P, left.Ux, right.Rho, right.P, right.Ux, problem.Gamma, problem.Courant,
        problem.Start.N(), jump, problem.Time);
}

// Half the problems are drawn the other way round.
void MirrorSometimes(Draw& draw, GasState& left, GasState& right) {
    if (draw.Chance(0.5)) return;
    std::swap(left, right);
    left.Ux = -left.Ux;
    right.Ux = -right.Ux;
}

struct Conditions {
    double Gamma = 1.4;
    double Courant = 0.85;
};

// The jump is at edge number `edge`.
FamilyProblem Lay(const GasState& left, const GasState& right, const Conditions& conditions,
                  const std::vector<double>& edges, int edge, double time) {
    const ExactRiemann solution(left, right, conditions.Gamma);
    FamilyProblem problem;
    problem.Gamma = conditions.Gamma;
    problem.Courant = conditions.Courant;
    problem.Start = TwoStates(edges, edge, left, right);
    problem.Time = time;
    problem.Density = DensitiesOf(solution, conditions.Gamma, edges[edge], time, edges);
    problem.Numbers = Describe(left, right, problem, edges[edge]);
    return problem;
}

std::vector<double> DrawEvenEdges(Draw& draw) {
    return EvenEdges(50 * draw.Whole(2, 4));
}

// Lays the jump and ends the run so that the outermost waves stay an eighth of the grid from the
// ends and spread as far as that allows.
FamilyProblem LayWide(const GasState& left, const GasState& right, const Conditions& conditions,
                      const std::vector<double>& edges) {
    constexpr double margin = 0.125;
    const ExactRiemann solution(left, right, conditions.Gamma);
    const double first = solution.Breaks().front();
    const double last = solution.Breaks().back();
    const double best = margin - first * (1.0 - 2.0 * margin) / (last - first);
    const auto nearest =
        std::lower_bound(edges.begin(), edges.end(), std::clamp(best, margin, 1.0 - margin));
    const double jump = *nearest;
    double time = 1e300;
    if (first < 0.0) time = std::min(time, (margin - jump) / first);
    if (last > 0.0) time = std::min(time, (1.0 - margin - jump) / last);
    return Lay(left, right, conditions, edges, static_cast<int>(nearest - edges.begin()), time);
}

FamilyProblem LayWide(Draw& draw, const GasState& left, const GasState& right,
                      const Conditions& conditions = {}) {
    return LayWide(left, right, conditions, DrawEvenEdges(draw));
}

}  // namespace

FamilyProblem MildJump(Draw& draw) {
    const GasState left = {1.0, 1.0, draw.Uniform(-0.6, 0.6), 0.0};
    const GasState right = {draw.Logarithmic(0.25, 4.0), draw.Logarithmic(0.25, 4.0),
                            draw.Uniform(-0.6, 0.6), 0.0};
    return LayWide(draw, left, right);
}

namespace {

FamilyProblem StrongOf(Draw& draw, const Conditions& conditions) {
    GasState left = {draw.Logarithmic(0.1, 10.0), draw.Logarithmic(30.0, 1e5), 0.0, 0.0};
    GasState right = {1.0, 1.0, 0.0, 0.0};
    left.Ux = draw.Uniform(-0.5, 0.5) * Sound(left, conditions.Gamma);
    right.Ux = draw.Uniform(-0.5, 0.5);
    MirrorSometimes(draw, left, right);
    return LayWide(draw, left, right, conditions);
}

FamilyProblem Part(Draw& draw, double leastShare, double mostShare) {
    // The share is of the speed at which a vacuum opens.
    GasState left = {1.0, 1.0, 0.0, 0.0};
    GasState right = {draw.Logarithmic(0.5, 2.0), draw.Logarithmic(0.5, 2.0), 0.0, 0.0};
    const double share = draw.Uniform(leastShare, mostShare);
    if (draw.Chance(0.5)) right = left;
    left.Ux = -share * 5.0 * Sound(left, 1.4);
    right.Ux = share * 5.0 * Sound(right, 1.4);
    return LayWide(draw, left, right);
}

FamilyProblem Collide(Draw& draw, double drift) {
    GasState left = {1.0, 1.0, 0.0, 0.0};
    GasState right = {draw.Logarithmic(0.25, 4.0), draw.Logarithmic(0.1, 10.0), 0.0, 0.0};
    if (draw.Chance(0.3)) right = left;
    if (draw.Chance(0.3)) right.Rho = draw.Uniform(1.0, 1.6);
    const double speed =
        draw.Logarithmic(0.5, 30.0) * std::max(Sound(left, 1.4), Sound(right, 1.4));
    left.Ux = (1.0 + drift) * speed;
    right.Ux = (-1.0 + drift) * speed;
    MirrorSometimes(draw, left, right);
    return LayWide(draw, left, right);
}

}  // namespace

FamilyProblem StrongJump(Draw& draw) {
    return StrongOf(draw, {});
}

FamilyProblem PartingStreams(Draw& draw) {
    return Part(draw, 0.05, 0.8);
}

FamilyProblem CollidingStreams(Draw& draw) {
    return Collide(draw, 0.0);
}

FamilyProblem CarriedCollision(Draw& draw) {
    return Collide(draw, draw.Uniform(0.02, 0.6));
}

FamilyProblem SlowShock(Draw& draw) {
    constexpr double gamma = 1.4;
    const int cells = 50 * draw.Whole(2, 4);
    const double mach = draw.Logarithmic(1.3, 100.0);
    // The shock runs to the right into gas at rest, then all is set moving against it.
    GasState right = {1.0, 1.0, 0.0, 0.0};
    const double c = Sound(right, gamma);
    const double m2 = mach * mach;
    GasState left = {(gamma + 1.0) * m2 / ((gamma - 1.0) * m2 + 2.0),
                     1.0 + 2.0 * gamma / (gamma + 1.0) * (m2 - 1.0),
                     2.0 * c / (gamma + 1.0) * (mach - 1.0 / mach), 0.0};
    const double slowness = draw.Sign() * draw.Logarithmic(0.01, 0.3);
    const double frame = (slowness - 1.0) * mach * c;
    left.Ux += frame;
    right.Ux += frame;
    MirrorSometimes(draw, left, right);
    // Past 8 to 30 cells, from the middle.
    const double time = draw.Uniform(8.0, 30.0) / cells / (std::abs(slowness) * mach * c);
    return Lay(left, right, {}, EvenEdges(cells), cells / 2, time);
}

FamilyProblem SlowContact(Draw& draw) {
    const int cells = 50 * draw.Whole(2, 4);
    GasState left = {1.0, 1.0, 0.0, 0.0};
    GasState right = {draw.Logarithmic(1.2, 100.0), 1.0, 0.0, 0.0};
    const double speed =
        draw.Chance(0.2) ? 0.0 : draw.Sign() * draw.Logarithmic(0.003, 0.3) * Sound(left, 1.4);
    left.Ux = speed;
    right.Ux = speed;
    MirrorSometimes(draw, left, right);
    const double reach = draw.Uniform(5.0, 40.0) / cells;
    const double time = std::min(reach / std::max(std::abs(speed), 1e-300), 10.0);
    return Lay(left, right, {}, EvenEdges(cells), cells / 2, time);
}

FamilyProblem NearVacuum(Draw& draw) {
    if (draw.Chance(0.5)) return Part(draw, 0.8, 0.96);
    GasState left = {1.0, 1.0, 0.0, 0.0};
    GasState right = {draw.Logarithmic(1e-6, 1e-2), 0.0, 0.0, 0.0};
    right.P = right.Rho * draw.Logarithmic(0.1, 1.0);
    left.Ux = draw.Uniform(-1.0, 1.0);
    MirrorSometimes(draw, left, right);
    return LayWide(draw, left, right);
}

FamilyProblem LargeRatios(Draw& draw) {
    GasState left = {draw.Logarithmic(1e2, 1e4), draw.Chance(0.5) ? 1.0 : 0.0, 0.0, 0.0};
    left.P = left.P > 0.0 ? draw.Logarithmic(0.1, 10.0) : draw.Logarithmic(1e2, 1e6);
    GasState right = {1.0, 1.0, 0.0, 0.0};
    if (draw.Chance(0.3)) std::swap(left.P, right.P);
    const double c = std::min(Sound(left, 1.4), Sound(right, 1.4));
    left.Ux = draw.Uniform(-1.0, 1.0) * c;
    right.Ux = draw.Uniform(-1.0, 1.0) * c;
    MirrorSometimes(draw, left, right);
    return LayWide(draw, left, right);
}

FamilyProblem MovingFrame(Draw& draw) {
    const double frame = draw.Sign() * draw.Logarithmic(0.5, 10.0);
    GasState left = {1.0, 1.0, frame + draw.Uniform(-0.6, 0.6), 0.0};
    GasState right = {draw.Logarithmic(0.125, 8.0), draw.Logarithmic(0.1, 10.0),
                      frame + draw.Uniform(-0.6, 0.6), 0.0};
    return LayWide(draw, left, right);
}

FamilyProblem AnyCourant(Draw& draw) {
    const Conditions conditions = {1.4, draw.Uniform(0.1, 0.95)};
    if (draw.Chance(0.3)) return StrongOf(draw, conditions);
    const GasState left = {1.0, 1.0, draw.Uniform(-1.0, 1.0), 0.0};
    const GasState right = {draw.Logarithmic(0.125, 8.0), draw.Logarithmic(0.1, 10.0),
                            draw.Uniform(-1.0, 1.0), 0.0};
    return LayWide(draw, left, right, conditions);
}

FamilyProblem AnyGamma(Draw& draw) {
    const Conditions conditions = {1.0 + draw.Logarithmic(0.1, 2.0), 0.85};
    if (draw.Chance(0.3)) return StrongOf(draw, conditions);
    const GasState left = {1.0, 1.0, draw.Uniform(-1.0, 1.0), 0.0};
    const GasState right = {draw.Logarithmic(0.125, 8.0), draw.Logarithmic(0.1, 10.0),
                            draw.Uniform(-1.0, 1.0), 0.0};
    return LayWide(draw, left, right, conditions);
}

FamilyProblem UnevenJump(Draw& draw) {
    GasState left = {1.0, 1.0, draw.Uniform(-1.0, 1.0), 0.0};
    GasState right = {draw.Logarithmic(0.1, 10.0), draw.Logarithmic(0.01, 100.0),
                      draw.Uniform(-1.0, 1.0), 0.0};
    const UnevenGrid grid = DrawUnevenGrid(draw, 50 * draw.Whole(2, 4));
    FamilyProblem problem = LayWide(left, right, {}, grid.Edges);
    problem.Numbers += "; " + grid.Kind;
    return problem;
}

FamilyProblem MovingBox(Draw& draw) {
    const GasState gas = {1.0, 1.0, draw.Sign() * draw.Uniform(0.1, 2.5) * std::sqrt(1.4), 0.0};
    GasState mirrored = gas;
    mirrored.Ux = -gas.Ux;
    const WaveTracking waves({mirrored, gas, mirrored}, {0.0, 1.0}, 1.4);
    FamilyProblem problem;
    problem.End = Ends::Walls;
    problem.Time = draw.Uniform(0.4, 0.95) * waves.NextMeeting();
    problem.Start = TwoStates(DrawEvenEdges(draw), 0, gas, gas);
    problem.Density = waves.Densities(problem.Start.Edges, problem.Time);
    problem.Numbers = Text("rho, p = 1, 1 at %.5g between walls; N %d, t %.5g", gas.Ux,
                           problem.Start.N(), problem.Time);
    return problem;
}
