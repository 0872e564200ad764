#include "verify/families/scheme_run.h"

#include <algorithm>
#include <limits>

#include "verify/trial_run.h"

namespace {

Boundary BoundaryOf(Ends ends) {
    if (ends == Ends::Walls) return Boundary::Reflecting;
    return ends == Ends::Periodic ? Boundary::Periodic : Boundary::Continuation;
}

// A grid with one wall becomes one twice as long, with its mirror image beyond the wall: the
// schemes are symmetric to the bit.
struct Placement {
    explicit Placement(const FamilyProblem& problem)
        : OwnCells(problem.Start.N()),
          Doubled(problem.End == Ends::OpenAndWall || problem.End == Ends::WallAndOpen),
          Offset(problem.End == Ends::WallAndOpen ? OwnCells : 0) {}

    int Cells() const { return Doubled ? 2 * OwnCells : OwnCells; }
    int Own(int cell) const { return cell - Offset; }  // its number on the problem's own grid
    bool IsImage(int cell) const { return Own(cell) < 0 || Own(cell) >= OwnCells; }
    int ImageOf(int cell) const {
        return Own(cell) < 0 ? -1 - Own(cell) : 2 * OwnCells - 1 - Own(cell);
    }

    int OwnCells;
    bool Doubled;
    int Offset;
};

Flow FlowOf(const GasCells& start, const Placement& placement) {
    Flow flow(placement.Cells());
    const double wall = placement.Offset > 0 ? start.Edges.front() : start.Edges.back();
    for (int k = 0; k <= flow.N; ++k) {
        const int own = placement.Own(k);
        const bool image = own < 0 || own > placement.OwnCells;
        const int twin = own < 0 ? -own : 2 * placement.OwnCells - own;
        flow.Edges[Flow::B + k] = image ? 2.0 * wall - start.Edges[twin] : start.Edges[own];
    }
    for (int k = 0; k < flow.N; ++k) {
        const bool image = placement.IsImage(k);
        const int own = image ? placement.ImageOf(k) : placement.Own(k);
        flow.Rho[Flow::B + k] = start.Rho[own];
        flow.P[Flow::B + k] = start.P[own];
        flow.Ux[Flow::B + k] = image ? -start.Ux[own] : start.Ux[own];
    }
    return flow;
}

}  // namespace

GasCells RunScheme(const LoadedScheme& scheme, const FamilyProblem& problem) {
    const Placement placement(problem);
    Flow flow = FlowOf(problem.Start, placement);
    RunSettings settings;
    settings.Ends = BoundaryOf(problem.End);
    settings.TStop = problem.Time;
    settings.CourantTarget = problem.Courant;
    settings.FirstCourant = problem.FirstStep * problem.Courant;
    settings.Constants.Gamma = problem.Gamma;
    const RunReport report = RunTrial(scheme, settings, flow);

    GasCells result = problem.Start;
    const int first = Flow::B + placement.Offset;
    std::copy_n(flow.Rho.begin() + first, placement.OwnCells, result.Rho.begin());
    std::copy_n(flow.P.begin() + first, placement.OwnCells, result.P.begin());
    std::copy_n(flow.Ux.begin() + first, placement.OwnCells, result.Ux.begin());
    if (!report.Finite)
        result.Rho.assign(result.Rho.size(), std::numeric_limits<double>::quiet_NaN());
    return result;
}
