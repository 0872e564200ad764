#include "verify/families/meeting_families.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <stdexcept>

#include "verify/families/grids.h"
#include "verify/families/text.h"
#include "verify/families/wave_tracking.h"

namespace {

constexpr double Gamma = 1.4;
constexpr double Margin = 0.06;       // that waves keep from open ends
constexpr double LeastSpread = 0.12;  // that the waves of the meeting reach, of the grid
constexpr int MostTries = 2000;

// Several states on a grid from 0 to 1. A wall at 1 is a plane of symmetry.
struct Layout {
    std::vector<GasState> States;
    std::vector<double> Jumps;  // at cell edges
    bool Wall = false;
    int Cells = 100;
    double Share = 0.5;  // of the time between the least and the largest that will do
};

double Sound(const GasState& s) {
    return std::sqrt(Gamma * s.P / s.Rho);
}

double AtEdge(double x, int cells) {
    return std::round(x * cells) / cells;
}

// The state behind a shock of the given Mach number that runs to the right into the gas.
GasState Shocked(const GasState& ahead, double mach) {
    const double m2 = mach * mach;
    return {ahead.Rho * (Gamma + 1.0) * m2 / ((Gamma - 1.0) * m2 + 2.0),
            ahead.P * (1.0 + 2.0 * Gamma / (Gamma + 1.0) * (m2 - 1.0)),
            ahead.Ux + 2.0 * Sound(ahead) / (Gamma + 1.0) * (mach - 1.0 / mach), 0.0};
}

GasState Mirrored(GasState s) {
    s.Ux = -s.Ux;
    return s;
}

WaveTracking Track(const Layout& layout) {
    std::vector<GasState> states = layout.States;
    std::vector<double> jumps = layout.Jumps;
    if (layout.Wall) {
        jumps.push_back(1.0);
        for (std::size_t k = layout.States.size(); k-- > 0;) {
            states.push_back(Mirrored(layout.States[k]));
            if (k > 0) jumps.push_back(2.0 - layout.Jumps[k - 1]);
        }
    }
    return WaveTracking(states, jumps, Gamma);
}

// How long all waves stay on the grid.
double TimeOnGrid(const WaveTracking& waves, bool wall) {
    const double now = waves.Time();
    const double left = waves.FirstFront(now);
    const double right = waves.LastFront(now);
    if (left < Margin || (!wall && right > 1.0 - Margin)) return now;
    const double leftSpeed = waves.FirstFront(now + 1.0) - left;
    const double rightSpeed = waves.LastFront(now + 1.0) - right;
    double time = std::numeric_limits<double>::infinity();
    if (leftSpeed < 0.0) time = std::min(time, now + (Margin - left) / leftSpeed);
    if (rightSpeed > 0.0 && !wall) time = std::min(time, now + (1.0 - Margin - right) / rightSpeed);
    return time;
}

// Until when the solution is exact and on the grid, and from when on the waves of the first meeting
// have spread. Without a meeting Until is 0.
struct Span {
    double From = 0.0;
    double Until = 0.0;
};

Span FindSpan(const Layout& layout) {
    WaveTracking waves = Track(layout);
    Span span;
    while (waves.Exact()) {
        const double next = waves.NextMeeting();
        const double off = TimeOnGrid(waves, layout.Wall);
        const bool met = waves.Time() > 0.0;
        if (met && span.From == 0.0) span.From = waves.Time() + LeastSpread / waves.SpeedSpread();
        const double until = std::min(next, off);
        if (met && std::isfinite(until)) span.Until = until;
        if (off <= next) break;
        waves.Meet();
    }
    return span;
}

struct Ending {
    WaveTracking Waves;  // past its last meeting before the time
    double Time;
};

// None if the waves do not meet, or have no room to spread.
std::optional<Ending> FindEnding(const Layout& layout) {
    const Span span = FindSpan(layout);
    if (span.From == 0.0 || span.Until <= span.From) return std::nullopt;
    const double time = span.From + layout.Share * (span.Until - span.From);
    WaveTracking waves = Track(layout);
    while (waves.NextMeeting() < time) waves.Meet();
    return Ending{waves, time};
}

void Mirror(FamilyProblem& problem) {
    if (problem.End == Ends::OpenAndWall) problem.End = Ends::WallAndOpen;
    GasCells& start = problem.Start;
    for (auto* row : {&start.Rho, &start.P, &start.Ux, &problem.Density})
        std::reverse(row->begin(), row->end());
    for (double& u : start.Ux) u = 0.0 - u;
}

FamilyProblem Lay(const Layout& layout, const Ending& ending, bool mirrored) {
    FamilyProblem problem;
    problem.End = layout.Wall ? Ends::OpenAndWall : Ends::Open;
    problem.Time = ending.Time;
    GasCells& start = problem.Start;
    start.Edges = EvenEdges(layout.Cells);
    std::string states;
    for (std::size_t k = 0; k < layout.States.size(); ++k) {
        const GasState& s = layout.States[k];
        states += Text("%.6g, %.6g, %.6g", s.Rho, s.P, s.Ux);
        if (k < layout.Jumps.size()) states += Text(" | at %.4g: ", layout.Jumps[k]);
    }
    for (int cell = 0; cell < layout.Cells; ++cell) {
        std::size_t k = 0;
        while (k < layout.Jumps.size() && start.Edges[cell] > layout.Jumps[k] - 0.5 / layout.Cells)
            ++k;
        start.Rho.push_back(layout.States[k].Rho);
        start.P.push_back(layout.States[k].P);
        start.Ux.push_back(layout.States[k].Ux);
    }
    problem.Density = ending.Waves.Densities(start.Edges, ending.Time);
    if (mirrored) Mirror(problem);
    problem.Numbers =
        Text("rho, p, u = %s%s%s; N %d, t %.6g", states.c_str(), layout.Wall ? " | wall" : "",
             mirrored ? ", all mirrored" : "", layout.Cells, ending.Time);
    return problem;
}

template <typename DrawLayout>
FamilyProblem DrawMeeting(Draw& draw, const DrawLayout& drawLayout) {
    for (int n = 0; n < MostTries; ++n) {
        Layout layout;
        layout.Cells = 50 * draw.Whole(2, 4);
        layout.Share = draw.Uniform(0.0, 0.98);
        drawLayout(layout);
        for (double& jump : layout.Jumps) jump = AtEdge(jump, layout.Cells);
        if (const auto ending = FindEnding(layout)) return Lay(layout, *ending, draw.Chance(0.5));
    }
    throw std::logic_error("no meeting found");
}

}  // namespace

FamilyProblem ShockMeetsContact(Draw& draw) {
    return DrawMeeting(draw, [&](Layout& layout) {
        const double drift = draw.Chance(0.5) ? 0.0 : draw.Uniform(-1.0, 1.0);
        const GasState near = {1.0, 1.0, drift, 0.0};
        const GasState far = {draw.Logarithmic(0.05, 20.0), 1.0, drift, 0.0};
        layout.States = {Shocked(near, draw.Logarithmic(1.1, 20.0)), near, far};
        const double first = draw.Uniform(0.15, 0.4);
        layout.Jumps = {first, first + draw.Uniform(0.08, 0.25)};
    });
}

FamilyProblem ShockMeetsWall(Draw& draw) {
    return DrawMeeting(draw, [&](Layout& layout) {
        const GasState near = {1.0, 1.0, 0.0, 0.0};
        layout.Wall = true;
        layout.States = {Shocked(near, draw.Logarithmic(1.1, 20.0)), near};
        layout.Jumps = {draw.Uniform(0.5, 0.8)};
        if (draw.Chance(0.4)) {  // a contact on the way
            const GasState far = {draw.Logarithmic(0.1, 10.0), 1.0, 0.0, 0.0};
            layout.States.push_back(far);
            layout.Jumps.push_back(layout.Jumps[0] + draw.Uniform(0.05, 0.2));
        }
    });
}

FamilyProblem StreamMeetsWall(Draw& draw) {
    return DrawMeeting(draw, [&](Layout& layout) {
        const double speed = draw.Logarithmic(0.3, 30.0);
        layout.Wall = true;
        layout.States = {{draw.Logarithmic(0.2, 5.0), 1.0, speed, 0.0}, {1.0, 1.0, speed, 0.0}};
        layout.Jumps = {draw.Uniform(0.3, 0.9)};
    });
}

FamilyProblem ShocksMeet(Draw& draw) {
    return DrawMeeting(draw, [&](Layout& layout) {
        const double drift = draw.Chance(0.5) ? 0.0 : draw.Uniform(-1.0, 1.0);
        const GasState middle = {1.0, 1.0, drift, 0.0};
        const GasState left = Shocked(middle, draw.Logarithmic(1.2, 20.0));
        const double first = draw.Uniform(0.15, 0.4);
        if (draw.Chance(0.5)) {  // head on
            const GasState right = Mirrored(Shocked(Mirrored(middle), draw.Logarithmic(1.2, 20.0)));
            layout.States = {left, middle, right};
            layout.Jumps = {first, draw.Uniform(0.6, 0.85)};
        } else {  // one after the other
            layout.States = {Shocked(left, draw.Logarithmic(1.2, 5.0)), left, middle};
            layout.Jumps = {first, first + draw.Uniform(0.08, 0.2)};
        }
    });
}

FamilyProblem TubesMeet(Draw& draw) {
    return DrawMeeting(draw, [&](Layout& layout) {
        const GasState middle = {1.0, 1.0, draw.Uniform(-0.5, 0.5), 0.0};
        const GasState left = {draw.Logarithmic(0.2, 5.0), draw.Logarithmic(2.0, 1000.0),
                               draw.Uniform(-1.0, 1.0), 0.0};
        const GasState right = {draw.Logarithmic(0.2, 5.0), draw.Logarithmic(2.0, 1000.0),
                                draw.Uniform(-1.0, 1.0), 0.0};
        const double first = draw.Uniform(0.2, 0.5);
        layout.States = {left, middle, right};
        layout.Jumps = {first, first + draw.Uniform(0.1, 0.3)};
    });
}
