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
    int Spikes = 0;
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
        if (IsSpike(one, one.Schemes[scheme])) ++summary.Spikes;
        if (!std::isfinite(ratio)) continue;
        logarithms += std::log(std::max(ratio, LeastRatio));
        ++counted;
    }
    summary.Mean = std::exp(logarithms / std::max(counted, 1));
    return summary;
}

// Of the families with jumps; smooth flow is compared on terms of its own.
double MeanOverFamilies(const std::vector<FamilyResult>& results, std::size_t scheme,
                        bool isDouble) {
    const int weno = static_cast<int>(PeerNames().size()) - 1;
    double logarithms = 0.0;
    int counted = 0;
    for (const FamilyResult& family : results) {
        if (family.Of.Smooth) continue;
        logarithms += std::log(Summarize(family, scheme, isDouble, 0, weno).Mean);
        ++counted;
    }
    return std::exp(logarithms / std::max(counted, 1));
}

void PrintCases(std::ostream& out, const FamilySettings& settings, const FamilyResult& family) {
    out << "\n" << family.Of.Name << ": " << family.Of.What << "\n";
    for (std::size_t n = 0; n < family.Cases.size(); ++n) {
        const CaseResult& one = family.Cases[n];
        out << Text("%3zu  %s\n     ", n, one.Numbers.c_str());
        if (family.Of.Computed) out << Text(" reference +-%.2g", one.ReferenceError);
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
            << Text("%-18s %6s %8s %6s %7s %7s %6s %4s   %s\n", SchemeName(settings.Schemes[k]),
                    "mean", "worst", "case", "over%", "under%", "spikes", "bad", "worst case");
        for (const FamilyResult& family : results) {
            const auto print = [&](const char* name, int from, int to) {
                const Summary s = Summarize(family, k, isDouble, from, to);
                out << Text("%-18s %6.3f %8.2f %6zu %7.2f %7.2f %6d %4d   %s\n", name, s.Mean,
                            s.Worst, s.WorstCase, 100.0 * s.Overshoot, 100.0 * s.Undershoot,
                            s.Spikes, s.BrokeDown, family.Cases[s.WorstCase].Numbers.c_str());
            };
            print(family.Of.Name, 0, weno);
            if (!family.Of.Smooth) continue;
            print("      over PPM", 0, weno - 1);
            print("      over WENO-Z", weno, weno);
        }
        out << Text("%-18s %6.3f\n", "all but smooth", MeanOverFamilies(results, k, isDouble));
    }
}

namespace {

// What a scheme aims at. A smooth family has limits of its own: over the best PPM, over WENO-Z.
struct Aims {
    double Mean;
    double Case;
};
constexpr Aims KestrelAims = {1.0, 1.5};
constexpr Aims LeanAims = {1.2, 2.0};
constexpr double SmoothOverPpm = 0.5;
constexpr double SmoothOverWeno = 2.0;

Aims AimsOf(SchemeKind kind) {
    const bool lean = kind == SchemeKind::Heron32 || kind == SchemeKind::Plover;
    return lean ? LeanAims : KestrelAims;
}

void WriteLosses(std::ostream& out, const FamilySettings& settings, std::size_t scheme,
                 const std::vector<FamilyResult>& results) {
    const SchemeKind kind = settings.Schemes[scheme];
    const int weno = static_cast<int>(PeerNames().size()) - 1;
    int lines = 0;
    for (const FamilyResult& family : results) {
        for (std::size_t n = 0; n < family.Cases.size(); ++n) {
            const CaseResult& one = family.Cases[n];
            const Outcome& o = one.Schemes[scheme];
            const auto over = [&](int from, int to) {
                return RatioToPeers(one, o, IsDouble(kind), from, to);
            };
            std::string loss;
            if (family.Of.Smooth) {
                const double ppm = over(0, weno - 1);
                const double best = over(weno, weno);
                if (ppm > SmoothOverPpm) loss += Text(" %.2f of the best PPM", ppm);
                if (best > SmoothOverWeno) loss += Text(" %.2f of WENO-Z", best);
            } else if (over(0, weno) > AimsOf(kind).Case) {
                loss = Text(" %.2f", over(0, weno));
            }
            if (IsSpike(one, o)) loss += Text(" %.0f %% past the range", 100.0 * Excess(o));
            if (loss.empty()) continue;
            out << "- " << family.Of.Name << " " << n << ":" << loss << " (" << one.Numbers
                << ")\n";
            ++lines;
        }
    }
    if (lines == 0) out << "None.\n";
}

void WriteSchemeTable(std::ostream& out, const FamilySettings& settings, std::size_t scheme,
                      const std::vector<FamilyResult>& results) {
    const SchemeKind kind = settings.Schemes[scheme];
    const int weno = static_cast<int>(PeerNames().size()) - 1;
    out << "\n### " << SchemeName(kind) << "\n\n"
        << "| family | cases | mean ratio | over the best PPM | over WENO-Z | worst | its number | "
           "overshoot | undershoot | spikes |\n|---|---|---|---|---|---|---|---|---|---|\n";
    for (const FamilyResult& family : results) {
        const auto over = [&](int from, int to) {
            return Summarize(family, scheme, IsDouble(kind), from, to);
        };
        const Summary all = over(0, weno);
        const bool mean = all.Mean > AimsOf(kind).Mean && !family.Of.Smooth;
        out << "| " << family.Of.Name << Text(" | %zu | ", family.Cases.size())
            << Text(mean ? "**%.2f**" : "%.2f", all.Mean);
        if (family.Of.Smooth)
            out << Text(" | %.3f | %.2f", over(0, weno - 1).Mean, over(weno, weno).Mean);
        else
            out << " | | ";
        out << Text(" | %.2f | %zu | %.1f %% | %.1f %% | %d |\n", all.Worst, all.WorstCase,
                    100.0 * all.Overshoot, 100.0 * all.Undershoot, all.Spikes);
    }
    out << Text("| all but smooth | | %.2f | | | | | | | |\n\nLosses:\n\n",
                MeanOverFamilies(results, scheme, IsDouble(kind)));
    WriteLosses(out, settings, scheme, results);
}

}  // namespace

void WriteFamilySection(std::ostream& out, const FamilySettings& settings,
                        const std::vector<FamilyResult>& results) {
    out << "\n## Families of problems\n\n"
        << Text(
               "Problems drawn from the seed %llu on grids of 25 to 200 cells; "
               "`verify --families` runs others. ",
               static_cast<unsigned long long>(settings.Seed))
        << "Every problem is run with the four schemes and with four published ones: PPM as of "
           "1984 without flattening, with flattening, with flattening and steepened contacts, and "
           "WENO-Z of fifth order (at a Courant number of at most 0.5; not on cells of unequal "
           "width). The ratio is that of the mean error of the density to the least of the four "
           "on the same problem; errors within rounding count as rounding, and in the geometric "
           "mean no ratio counts as less than 0.01. Overshoot and undershoot are past the range of "
           "the solution, over that range. A spike is one of more than 5 % where a published "
           "scheme has less than 2 %. A loss is a case above 1.5 (Kestrel) or 2 (Heron32, Plover), "
           "in smooth flow one above 0.5 of the best PPM or 2 of WENO-Z, and every spike; a mean "
           "above 1.0 or 1.2 is bold.\n\n"
           "| family | what it holds | reference |\n|---|---|---|\n";
    for (const FamilyResult& family : results) {
        double largest = 0.0;
        for (const CaseResult& one : family.Cases)
            for (const Outcome& peer : one.Peers)
                if (peer.Error > 0.0) largest = std::max(largest, one.ReferenceError / peer.Error);
        out << "| " << family.Of.Name << " | " << family.Of.What << " | "
            << (family.Of.Computed
                    ? Text("steepened PPM and WENO-Z on ten times the cells, which agree within "
                           "%.0f %% of the best error",
                           100.0 * largest)
                    : std::string("exact"))
            << " |\n";
    }
    for (std::size_t k = 0; k < settings.Schemes.size(); ++k)
        WriteSchemeTable(out, settings, k, results);
}
