// The command line of ternlow-run.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "batch/run_settings.h"

// What is asked for. An empty list leaves its setting as it is; every combination of the others is
// a run.
struct Options {
    std::vector<std::string> Problems;
    std::vector<std::string> Schemes;
    std::vector<int> Cells;
    std::vector<double> Courant, Periods;
    std::vector<int> PlotsPerPeriod;
    std::vector<std::string> Left, Right;  // "wall", "open", "periodic"
    std::vector<double> difcon, shkjmp, wavhaf;
    std::vector<double> Wave;  // seven numbers, or none
    int Jobs = 0;              // 0: as many as there are cores
    std::string Out;           // folder for files, none if empty
    bool States = false;
    bool Json = false;
    bool Quiet = false;
    bool Resume = false;
};

// Empty if the program is to end now, with `status`: help was asked for, or the command line is
// wrong and the reason has been printed.
std::optional<Options> ReadOptions(int argc, const char* const* argv, int& status);

// A run of a study: its settings, the command that does it again, and the name of its files.
struct PlannedRun {
    RunSettings Settings;
    std::string Command;
    std::string Series;    // the same for runs that differ in their cells alone
    std::string FileName;  // without ending; "@cells" stands for a number that the problem brings
};

// All combinations, in the order in which the lists are given, problems slowest and cells fastest.
std::vector<PlannedRun> PlanRuns(const Options& options);
