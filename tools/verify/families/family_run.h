// Runs of whole families, with the schemes and the peers, on several threads.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "verify/families/families.h"
#include "verify/scheme_kind.h"

struct FamilySettings {
    std::uint64_t Seed = 1;
    int Cases = 12;                 // of each family
    std::vector<std::string> Only;  // names of families; none: all
    std::vector<SchemeKind> Schemes = {AllSchemes.begin(), AllSchemes.end()};
    std::string Folder;  // of the scheme libraries; empty: the program's own
    int Threads = 2;
};

// What one code made of one problem.
struct Outcome {
    double Error = 0.0;       // mean absolute difference of the density; NaN if the run broke down
    double Overshoot = 0.0;   // above the largest exact average, as a share of the exact range
    double Undershoot = 0.0;  // below the least one
};

struct CaseResult {
    std::string Numbers;
    std::vector<Outcome> Peers;    // in the order of PeerNames
    std::vector<Outcome> Schemes;  // in the order of the settings
    double ReferenceError = 0.0;   // of a computed reference, by two schemes; 0 if it is exact
    double LargestDensity = 0.0;
};

struct FamilyResult {
    Family Of;
    std::vector<CaseResult> Cases;
};

const std::vector<std::string>& PeerNames();
std::vector<FamilyResult> RunFamilies(const FamilySettings& settings);

// The error of a scheme over the least error of the peers from..to of the case. Errors within the
// rounding of the scheme's floats count as that rounding. Infinite if the scheme broke down; 0 if
// none of those peers ran.
double RatioToPeers(const CaseResult& result, const Outcome& scheme, bool isDouble, int from,
                    int to);

// The larger of overshoot and undershoot.
double Excess(const Outcome& outcome);
// Whether the scheme leaves more than a twentieth of the range above or below it where one of the
// peers leaves less than a fiftieth.
bool IsSpike(const CaseResult& result, const Outcome& scheme);
