#include "verify/families/family_run.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <future>
#include <limits>
#include <memory>
#include <utility>

#include "verify/families/computed_reference.h"
#include "verify/families/scheme_run.h"
#include "verify/peers/classic_ppm.h"
#include "verify/peers/weno_z.h"
#include "verify/trial_run.h"

namespace {

constexpr int Finer = 10;  // cells of a computed reference for one of the problem

constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();

// Rounding that a run of some hundred steps leaves in the density, as a share of the largest.
constexpr double RoundingOf64Bits = 1e-14;
constexpr double RoundingOf32Bits = 1e-6;

const std::vector<const Peer*>& AllPeers() {
    static const ClassicPpm plain("PPM", false, false);
    static const ClassicPpm flattened("PPM-F", true, false);
    static const ClassicPpm steepened("PPM-FS", true, true);
    static const WenoZ weno;
    static const std::vector<const Peer*> peers = {&plain, &flattened, &steepened, &weno};
    return peers;
}

Outcome Score(const GasCells& cells, const std::vector<double>& exact) {
    const auto [least, most] = std::minmax_element(exact.begin(), exact.end());
    const double range = std::max(*most - *least, 1e-300);
    Outcome outcome;
    double length = 0.0;
    for (std::size_t k = 0; k < exact.size(); ++k) {
        const double width = cells.Edges[k + 1] - cells.Edges[k];
        length += width;
        outcome.Error += width * std::abs(cells.Rho[k] - exact[k]);
        outcome.Overshoot = std::max(outcome.Overshoot, (cells.Rho[k] - *most) / range);
        outcome.Undershoot = std::max(outcome.Undershoot, (*least - cells.Rho[k]) / range);
    }
    outcome.Error /= length;
    return outcome;
}

CaseResult RunCase(FamilyProblem problem, const std::vector<SchemeLibrary>& schemes) {
    CaseResult result;
    result.Numbers = problem.Numbers;
    if (problem.Density.empty()) {
        const ComputedReference reference = ComputeReference(problem, Finer);
        problem.Density = reference.Density;
        result.ReferenceError = reference.Error;
    }
    result.LargestDensity = *std::max_element(problem.Density.begin(), problem.Density.end());
    const auto& edges = problem.Start.Edges;
    const double even = (edges.back() - edges.front()) / problem.Start.N();
    bool uneven = false;
    for (std::size_t k = 0; k + 1 < edges.size(); ++k)
        uneven = uneven || std::abs(edges[k + 1] - edges[k] - even) > 1e-9 * even;
    for (const Peer* peer : AllPeers())
        result.Peers.push_back(uneven && !peer->TakesUnevenCells()
                                   ? Outcome{NoNumber, 0.0, 0.0}
                                   : Score(RunPeer(*peer, problem), problem.Density));
    for (const auto& scheme : schemes)
        result.Schemes.push_back(Score(RunScheme(scheme, problem), problem.Density));
    return result;
}

}  // namespace

const std::vector<std::string>& PeerNames() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all;
        for (const Peer* peer : AllPeers()) all.emplace_back(peer->Name());
        return all;
    }();
    return names;
}

std::vector<FamilyResult> RunFamilies(const FamilySettings& settings) {
    std::vector<SchemeLibrary> schemes;
    for (const SchemeKind kind : settings.Schemes)
        schemes.push_back(LoadOrThrow(SchemeName(kind), settings.Folder));

    std::vector<FamilyResult> results;
    std::vector<std::pair<std::size_t, int>> order;  // family and number of each case
    for (const Family& family : AllFamilies()) {
        const auto& only = settings.Only;
        if (!only.empty() && std::find(only.begin(), only.end(), family.Name) == only.end())
            continue;
        const int cases = family.Computed ? std::max(1, settings.Cases / 3) : settings.Cases;
        for (int n = 0; n < cases; ++n) order.push_back({results.size(), n});
        results.push_back({family, std::vector<CaseResult>(static_cast<std::size_t>(cases))});
    }

    // The long ones first, so that no thread is left with one at the end.
    std::stable_partition(order.begin(), order.end(),
                          [&](const auto& one) { return results[one.first].Of.Computed; });
    std::atomic<std::size_t> nextCase = 0;
    const auto work = [&] {
        for (std::size_t k = nextCase++; k < order.size(); k = nextCase++) {
            const auto [family, number] = order[k];
            FamilyResult& result = results[family];
            Draw draw(settings.Seed, result.Of.Name, number);
            result.Cases[number] = RunCase(result.Of.Make(draw), schemes);
        }
    };
    std::vector<std::future<void>> workers;
    for (int k = 0; k < settings.Threads; ++k)
        workers.push_back(std::async(std::launch::async, work));
    for (std::future<void>& worker : workers) worker.get();
    return results;
}

double RatioToPeers(const CaseResult& result, const Outcome& scheme, bool isDouble, int from,
                    int to) {
    const double rounding =
        result.LargestDensity * (isDouble ? RoundingOf64Bits : RoundingOf32Bits);
    double best = std::numeric_limits<double>::infinity();
    for (int k = from; k <= to; ++k)
        if (result.Peers[k].Error < best) best = result.Peers[k].Error;
    if (std::isnan(scheme.Error)) return std::numeric_limits<double>::infinity();
    if (std::isinf(best)) return 0.0;
    return std::max(scheme.Error, rounding) / std::max(best, rounding);
}

double Excess(const Outcome& outcome) {
    return std::max(outcome.Overshoot, outcome.Undershoot);
}

bool IsSpike(const CaseResult& result, const Outcome& scheme) {
    const bool peerIsFine = std::any_of(
        result.Peers.begin(), result.Peers.end(),
        [](const Outcome& peer) { return !std::isnan(peer.Error) && Excess(peer) < 0.02; });
    return peerIsFine && Excess(scheme) > 0.05;
}
