#include "verify/families/scheme_run.h"

#include <algorithm>
#include <limits>

#include "core/model/boundary_types.h"
#include "core/model/experiment_state.h"
#include "core/run/boundary_zones.h"
#include "core/run/first_step.h"
#include "verify/trial_problems.h"
#include "verify/trial_run.h"

namespace {

void SetEnds(ExperimentState& state, Ends ends) {
    const bool wallOnLeft = ends == Ends::Walls || ends == Ends::WallAndOpen;
    const bool wallOnRight = ends == Ends::Walls || ends == Ends::OpenAndWall;
    state.MnBdry = wallOnLeft ? ReflectingBoundary : ContinuationBoundary;
    state.MxBdry = wallOnRight ? ReflectingBoundary : ContinuationBoundary;
    if (ends == Ends::Periodic) state.MnBdry = state.MxBdry = PeriodicBoundary;
}

ExperimentState ExperimentOf(const FamilyProblem& problem) {
    const GasCells& start = problem.Start;
    ExperimentState state = EmptyExperiment(start.N());
    std::copy(start.Edges.begin(), start.Edges.end(), state.X.At(1));
    std::copy(start.Rho.begin(), start.Rho.end(), state.Rho.At(1));
    std::copy(start.P.begin(), start.P.end(), state.P.At(1));
    std::copy(start.Ux.begin(), start.Ux.end(), state.Ux.At(1));
    SetEnds(state, problem.End);
    state.Gamma = problem.Gamma;
    state.CourantNumber = problem.Courant;
    FillBoundaryZones(state);
    state.DTime = problem.FirstStep * problem.Courant *
                  ShortestCrossingTime(state, std::numeric_limits<double>::infinity());
    return state;
}

}  // namespace

GasCells RunScheme(const SchemeLibrary& scheme, const FamilyProblem& problem) {
    ExperimentState state = ExperimentOf(problem);
    const bool isGood = RunTo(state, scheme, problem.Time).CameToItsEnd;
    GasCells result = problem.Start;
    std::copy_n(state.Rho.At(1), result.N(), result.Rho.begin());
    std::copy_n(state.P.At(1), result.N(), result.P.begin());
    std::copy_n(state.Ux.At(1), result.N(), result.Ux.begin());
    if (!isGood) result.Rho.assign(result.Rho.size(), std::numeric_limits<double>::quiet_NaN());
    return result;
}
