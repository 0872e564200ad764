#include "verify/trial_run.h"

#include <algorithm>
#include <cmath>

namespace {

double LargestSignal(const Flow& flow, double gamma) {
    double largest = 0.0;
    for (int cell = 1; cell <= flow.N; ++cell) {
        const std::size_t i = flow.At(cell);
        const double c = std::sqrt(gamma * flow.P[i] / flow.Rho[i]);
        const double width = flow.Edges[i + 1] - flow.Edges[i];
        largest = std::max(largest, (std::abs(flow.Ux[i]) + c) / width);
    }
    return largest;
}

// Takes the step over with the floors that the instrument applies.
void Accept(const Flow& next, const SchemeConstants& constants, Flow& flow, RunReport& report) {
    for (int cell = 1; cell <= flow.N; ++cell) {
        const std::size_t i = flow.At(cell);
        report.LowestRho = std::min(report.LowestRho, next.Rho[i]);
        report.LowestP = std::min(report.LowestP, next.P[i]);
        report.Finite = report.Finite && std::isfinite(next.Rho[i]) && std::isfinite(next.P[i]) &&
                        std::isfinite(next.Ux[i]) && std::isfinite(next.Uy[i]);
        const bool low = next.Rho[i] < constants.RhoFloor || next.P[i] < constants.PFloor;
        report.Floored += low ? 1 : 0;
        flow.Rho[i] = std::max(next.Rho[i], constants.RhoFloor);
        flow.P[i] = std::max(next.P[i], constants.PFloor);
        flow.Ux[i] = std::abs(next.Ux[i]) < constants.VFloor ? 0.0 : next.Ux[i];
        flow.Uy[i] = std::abs(next.Uy[i]) < constants.VFloor ? 0.0 : next.Uy[i];
        flow.Smoke[i] = next.Smoke[i];
    }
}

}  // namespace

RunReport RunTrial(const LoadedScheme& scheme, const RunSettings& settings, Flow& flow) {
    RunReport report;
    Flow next = flow;
    const double signal = LargestSignal(flow, settings.Constants.Gamma);
    double timeStep = std::min(settings.FirstCourant / signal, settings.LargestStep);
    double time = 0.0;
    for (int attempt = 0; attempt < 1000000 && time < settings.TStop; ++attempt) {
        FillNeighbours(flow, settings.Ends);
        const bool last = time + timeStep >= settings.TStop * (1.0 - 1e-14);
        const double step = last ? settings.TStop - time : timeStep;
        const StepReport made =
            scheme.Advance(flow, settings.Constants, step, next, settings.StripWidth);
        if (made.Courant >= 1.0) {
            timeStep *= 0.9;
            ++report.Rejected;
            continue;
        }
        Accept(next, settings.Constants, flow, report);
        ++report.Steps;
        if (!report.Finite) return report;
        time = last ? settings.TStop : time + step;
        const double target = settings.CourantTarget;
        if (target * 0.9 > made.Courant)
            timeStep = std::min(timeStep * 1.025, settings.LargestStep);
        else if (made.Courant > target)
            timeStep *= target / made.Courant;
    }
    return report;
}

RunSettings ShockTubeSettings(const ShockTube& tube) {
    RunSettings settings;
    settings.TStop = tube.TStop;
    return settings;
}

RunSettings BlastSettings() {
    RunSettings settings;
    settings.Ends = Boundary::Reflecting;
    settings.TStop = BlastTStop;
    return settings;
}

RunSettings SoundWaveSettings() {
    RunSettings settings;
    settings.Ends = Boundary::Periodic;
    settings.FirstCourant = 0.85;
    return settings;
}

Errors Compare(const Flow& flow, const Flow& exact) {
    Errors sum = {0.0, 0.0, 0.0, 0.0, 0.0};
    const auto first = exact.Rho.begin() + Flow::B;
    const auto [least, most] = std::minmax_element(first, first + flow.N);
    for (int cell = 1; cell <= flow.N; ++cell) {
        const std::size_t i = flow.At(cell);
        sum.Rho += std::abs(flow.Rho[i] - exact.Rho[i]) / flow.N;
        sum.P += std::abs(flow.P[i] - exact.P[i]) / flow.N;
        sum.Ux += std::abs(flow.Ux[i] - exact.Ux[i]) / flow.N;
        sum.Uy += std::abs(flow.Uy[i] - exact.Uy[i]) / flow.N;
        sum.Overshoot = std::max({sum.Overshoot, flow.Rho[i] - *most, *least - flow.Rho[i]});
    }
    return sum;
}
