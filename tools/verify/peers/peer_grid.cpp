#include "verify/peers/peer_grid.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// Those of the instrument.
constexpr double RhoFloor = 1e-8;
constexpr double PFloor = 1e-8;
constexpr double StepGrowth = 1.025;
constexpr int MostSteps = 1000000;

double LargestSignal(const PeerGrid& grid) {
    double largest = 0.0;
    for (int i = grid.First(); i <= grid.Last(); ++i) {
        const Primitive s = ToPrimitive(grid.Cells[i], grid.Gamma);
        largest = std::max(largest, (std::abs(s.U) + SoundSpeed(s, grid.Gamma)) / grid.Width(i));
    }
    return largest;
}

GasCells ResultOf(const PeerGrid& grid, const FamilyProblem& problem, bool finite) {
    GasCells result = problem.Start;
    for (int k = 0; k < grid.N; ++k) {
        const Primitive s = ToPrimitive(grid.Cells[grid.First() + k], grid.Gamma);
        result.Rho[k] = finite ? s.Rho : std::numeric_limits<double>::quiet_NaN();
        result.P[k] = s.P;
        result.Ux[k] = s.U;
    }
    return result;
}

}  // namespace

Primitive ToPrimitive(const Conserved& cell, double gamma) {
    const double u = cell.Momentum / cell.Mass;
    return {cell.Mass, (gamma - 1.0) * (cell.Energy - 0.5 * cell.Momentum * u), u};
}

Conserved ToConserved(const Primitive& s, double gamma) {
    return {s.Rho, s.Rho * s.U, s.P / (gamma - 1.0) + 0.5 * s.Rho * s.U * s.U};
}

Conserved FluxOf(const Primitive& s, double gamma) {
    const double mass = s.Rho * s.U;
    return {mass, mass * s.U + s.P, s.U * (gamma / (gamma - 1.0) * s.P + 0.5 * s.Rho * s.U * s.U)};
}

double SoundSpeed(const Primitive& s, double gamma) {
    return std::sqrt(gamma * s.P / s.Rho);
}

PeerGrid::PeerGrid(const FamilyProblem& problem)
    : N(problem.Start.N()),
      Gamma(problem.Gamma),
      Periodic(problem.End == Ends::Periodic),
      WallOnLeft(problem.End == Ends::Walls || problem.End == Ends::WallAndOpen),
      WallOnRight(problem.End == Ends::Walls || problem.End == Ends::OpenAndWall),
      Edges(static_cast<std::size_t>(N + 2 * Zone + 1)),
      Cells(static_cast<std::size_t>(N + 2 * Zone)) {
    for (int k = 0; k <= N; ++k) Edges[Zone + k] = problem.Start.Edges[k];
    for (int k = 0; k < N; ++k)
        Cells[Zone + k] = ToConserved(
            {problem.Start.Rho[k], problem.Start.P[k], problem.Start.Ux[k]}, problem.Gamma);
    for (int k = 1; k <= Zone; ++k) {
        const int first = Zone;
        const int last = Zone + N - 1;
        const double left = Width(Periodic ? last + 1 - k : WallOnLeft ? first - 1 + k : first);
        const double right = Width(Periodic ? first - 1 + k : WallOnRight ? last + 1 - k : last);
        Edges[first - k] = Edges[first - k + 1] - left;
        Edges[last + 1 + k] = Edges[last + k] + right;
    }
}

void PeerGrid::FillZones() {
    const auto mirrored = [](Conserved cell) {
        cell.Momentum = -cell.Momentum;
        return cell;
    };
    for (int k = 1; k <= Zone; ++k) {
        Conserved& left = Cells[First() - k];
        Conserved& right = Cells[Last() + k];
        if (Periodic) {
            left = Cells[Last() + 1 - k];
            right = Cells[First() - 1 + k];
            continue;
        }
        left = WallOnLeft ? mirrored(Cells[First() - 1 + k]) : Cells[First()];
        right = WallOnRight ? mirrored(Cells[Last() + 1 - k]) : Cells[Last()];
    }
}

bool PeerGrid::RaiseToFloors() {
    bool finite = true;
    for (int i = First(); i <= Last(); ++i) {
        Primitive s = ToPrimitive(Cells[i], Gamma);
        finite = finite && std::isfinite(s.Rho) && std::isfinite(s.P) && std::isfinite(s.U);
        if (s.Rho >= RhoFloor && s.P >= PFloor) continue;
        s = {std::max(s.Rho, RhoFloor), std::max(s.P, PFloor), s.U};
        Cells[i] = ToConserved(s, Gamma);
    }
    return finite;
}

GasCells RunPeer(const Peer& peer, const FamilyProblem& problem) {
    PeerGrid grid(problem);
    const double target = std::min(problem.Courant, peer.LargestCourant());
    double timeStep = problem.FirstStep * target / LargestSignal(grid);
    double time = 0.0;
    bool finite = true;
    for (int n = 0; n < MostSteps && finite && time < problem.Time; ++n) {
        timeStep = std::min(timeStep, target / LargestSignal(grid));
        const bool last = time + timeStep >= problem.Time * (1.0 - 1e-14);
        grid.FillZones();
        peer.Step(grid, last ? problem.Time - time : timeStep);
        finite = grid.RaiseToFloors();
        time = last ? problem.Time : time + timeStep;
        timeStep *= StepGrowth;
    }
    return ResultOf(grid, problem, finite && time == problem.Time);
}
