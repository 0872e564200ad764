#include "verify/families/family_report.h"

#include <algorithm>
#include <cmath>

#include "verify/families/text.h"

namespace {

// A ratio below this counts as this in a geometric mean, so that one case that a scheme solves
// exactly does not stand for a whole family.
constexpr double LeastRatio = 0.01;

struct Summary {
    double Mean = 0.0;  // geometric, of the ratios to the best peer
    double Worst = 0.0;
    std::size_t WorstCase = 0;
    double Overshoot = 0.0;
    double Undershoot = 0.0;
    int BrokeDown = 0;
};

Summary Summarize(const FamilyResult& family, std::size_t scheme, bool isDouble, int from, int to) {
    Summary summary;
    double logarithms = 0.0;
    int counted = 0;
    for (std::size_t n = 0; n < family.Cases.size(); ++n) {
        const CaseResult& one = family.Cases[n];
        const double ratio = RatioToPeers(one, one.Schemes[scheme], isDouble, from, to);
        if (std::isinf(ratio)) ++summary.BrokeDown;
        if (ratio > summary.Worst) {
            summary.Worst = ratio;
            summary.WorstCase = n;
        }
        summary.Overshoot = std::max(summary.Overshoot, one.Schemes[scheme].Overshoot);
        summary.Undershoot = std::max(summary.Undershoot, one.Schemes[scheme].Undershoot);
        if (!std::isfinite(ratio)) continue;
        logarithms += std::log(std::max(ratio, LeastRatio));
        ++counted;
    }
    summary.Mean = std::exp(logarithms / std::max(counted, 1));
    return summary;
}

void PrintCases(std::ostream& out, const FamilySettings& settings, const FamilyResult& family) {
    out << "\n" << family.Of.Name << ": " << family.Of.What << "\n";
    for (std::size_t n = 0; n < family.Cases.size(); ++n) {
        const CaseResult& one = family.Cases[n];
        out << Text("%3zu  %s\n     ", n, one.Numbers.c_str());
        for (std::size_t k = 0; k < one.Peers.size(); ++k)
            out << Text(" %s %.3g", PeerNames()[k].c_str(), one.Peers[k].Error)
                << Text(" (%+.1f%%)",
                        100.0 * std::max(one.Peers[k].Overshoot, one.Peers[k].Undershoot));
        out << "\n     ";
        for (std::size_t k = 0; k < one.Schemes.size(); ++k) {
            const bool isDouble = IsDouble(settings.Schemes[k]);
            const Outcome& o = one.Schemes[k];
            out << Text(" %s %.3g = %.2f", SchemeName(settings.Schemes[k]), o.Error,
                        RatioToPeers(one, o, isDouble, 0, static_cast<int>(one.Peers.size()) - 1))
                << Text(" (%+.1f%%)", 100.0 * std::max(o.Overshoot, o.Undershoot));
        }
        out << "\n";
    }
}

}  // namespace

void PrintFamilies(std::ostream& out, const FamilySettings& settings,
                   const std::vector<FamilyResult>& results, bool withCases) {
    const int weno = static_cast<int>(PeerNames().size()) - 1;
    if (withCases)
        for (const FamilyResult& family : results) PrintCases(out, settings, family);
    out << "\nRatios of the mean error of density to the best peer's; for smooth flows to the best "
           "PPM and to WENO-Z.\n";
    for (std::size_t k = 0; k < settings.Schemes.size(); ++k) {
        const bool isDouble = IsDouble(settings.Schemes[k]);
        out << "\n"
            << Text("%-18s %6s %8s %6s %7s %7s %5s   %s\n", SchemeName(settings.Schemes[k]), "mean",
                    "worst", "case", "over%", "under%", "bad", "worst case");
        double logarithms = 0.0;
        for (const FamilyResult& family : results) {
            const auto print = [&](const char* name, int from, int to) {
                const Summary s = Summarize(family, k, isDouble, from, to);
                out << Text("%-18s %6.3f %8.2f %6zu %7.2f %7.2f %5d   %s\n", name, s.Mean, s.Worst,
                            s.WorstCase, 100.0 * s.Overshoot, 100.0 * s.Undershoot, s.BrokeDown,
                            family.Cases[s.WorstCase].Numbers.c_str());
                return s.Mean;
            };
            logarithms += std::log(print(family.Of.Name, 0, weno));
            if (!family.Of.Smooth) continue;
            print("      over PPM", 0, weno - 1);
            print("      over WENO-Z", weno, weno);
        }
        out << Text(
            "%-18s %6.3f\n", "all",
            std::exp(logarithms / static_cast<double>(std::max<std::size_t>(results.size(), 1))));
    }
}
