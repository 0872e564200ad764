#include "verify/families/scheme_run.h"

#include <algorithm>
#include <limits>

#include "verify/trial_run.h"

namespace {

Boundary BoundaryOf(Ends ends) {
    switch (ends) {
        case Ends::Open:
            return Boundary::Continuation;
        case Ends::Walls:
            return Boundary::Reflecting;
        case Ends::Periodic:
            return Boundary::Periodic;
    }
    return Boundary::Continuation;
}

}  // namespace

GasCells RunScheme(const LoadedScheme& scheme, const FamilyProblem& problem) {
    Flow flow(problem.Start.N());
    std::copy(problem.Start.Edges.begin(), problem.Start.Edges.end(), flow.Edges.begin() + Flow::B);
    std::copy(problem.Start.Rho.begin(), problem.Start.Rho.end(), flow.Rho.begin() + Flow::B);
    std::copy(problem.Start.P.begin(), problem.Start.P.end(), flow.P.begin() + Flow::B);
    std::copy(problem.Start.Ux.begin(), problem.Start.Ux.end(), flow.Ux.begin() + Flow::B);

    RunSettings settings;
    settings.Ends = BoundaryOf(problem.End);
    settings.TStop = problem.Time;
    settings.CourantTarget = problem.Courant;
    settings.FirstCourant = problem.FirstStep * problem.Courant;
    settings.Constants.Gamma = problem.Gamma;
    const RunReport report = RunTrial(scheme, settings, flow);

    GasCells result = problem.Start;
    std::copy_n(flow.Rho.begin() + Flow::B, flow.N, result.Rho.begin());
    std::copy_n(flow.P.begin() + Flow::B, flow.N, result.P.begin());
    std::copy_n(flow.Ux.begin() + Flow::B, flow.N, result.Ux.begin());
    if (!report.Finite)
        result.Rho.assign(result.Rho.size(), std::numeric_limits<double>::quiet_NaN());
    return result;
}
