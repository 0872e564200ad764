#include "batch/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>
#include <iostream>
#include <set>

#include "batch/version.h"
#include "core/model/boundary_types.h"
#include "core/model/limits.h"
#include "core/model/number_text.h"
#include "core/run/scheme_table.h"

namespace {

constexpr int WrongUse = 2;
constexpr int FewestCells = 6;
constexpr int MostCells = 5001;
constexpr int MostPlots = 1'000'000;
constexpr int MostJobs = 4096;
constexpr double SmallestPeriods = 1e-12;

struct End {
    const char* Name;
    int Type;
};
constexpr End Ends[] = {
    {"wall", ReflectingBoundary}, {"open", ContinuationBoundary}, {"periodic", PeriodicBoundary}};

int TypeOf(const std::string& name) {
    for (const End& end : Ends) {
        if (name == end.Name) return end.Type;
    }
    return ContinuationBoundary;
}

std::vector<std::string> SchemeNames() {
    std::vector<std::string> names;
    for (const SchemeRow& row : Schemes) names.emplace_back(row.Name);
    return names;
}

// Refuses a text that is no number from `low` to `high`, or no whole number; `words` names the
// rule.
CLI::Validator Check(double low, double high, bool isWhole, const std::string& words) {
    return CLI::Validator(
        [=](std::string& text) {
            const std::optional<double> number = ReadNumber(text);
            const bool fits = number && *number >= low && *number <= high &&
                              (!isWhole || *number == std::floor(*number));
            return fits ? std::string() : "'" + text + "' is not " + words;
        },
        "");
}
CLI::Validator WholeNumber(int low, int high) {
    return Check(low, high, true,
                 "a whole number from " + GeneralNumber(low) + " to " + GeneralNumber(high));
}
CLI::Validator OneOf(const std::vector<std::string>& names) {
    return CLI::Validator(
        [names](std::string& text) {
            if (std::find(names.begin(), names.end(), text) != names.end()) return std::string();
            std::string all;
            for (const std::string& name : names) all += (all.empty() ? "" : ", ") + name;
            return "'" + text + "' is not one of " + all;
        },
        "");
}

void AddOptions(CLI::App& app, Options& o) {
    const auto list = [](CLI::Option* option, const char* text) {
        return option->delimiter(',')->allow_extra_args(false)->option_text(text);
    };
    std::vector<std::string> schemes = SchemeNames();
    schemes.emplace_back("all");
    const CLI::Validator isEnd = OneOf({"wall", "open", "periodic"});
    const CLI::Validator isNumber =
        Check(-LargestValue, LargestValue, false, "a number from -1e12 to 1e12");

    app.add_option("PROBLEM", o.Problems, "test1 to test8, default, wave, or a set-up file")
        ->required()
        ->option_text("");
    list(app.add_option("--scheme", o.Schemes, "Kestrel, Kestrel32, Heron32, Plover, or all"),
         "NAME,...")
        ->check(OneOf(schemes));
    list(app.add_option("--cells", o.Cells, "cells of the grid, 6 to 5001"), "N,...")
        ->check(WholeNumber(FewestCells, MostCells));
    list(app.add_option("--courant", o.Courant, "Courant number aimed at, between 0 and 1"),
         "X,...")
        ->check(Check(SmallestCourantNumber, std::nextafter(1.0, 0.0), false,
                      "a number above 0 and below 1"));
    list(app.add_option("--periods", o.Periods, "length of the run in the problem's units of time"),
         "X,...")
        ->check(Check(SmallestPeriods, LargestValue, false, "a number above 0"));
    list(app.add_option("--plots-per-period", o.PlotsPerPeriod, "stored states per unit of time"),
         "N,...")
        ->check(WholeNumber(1, MostPlots));
    list(app.add_option("--left", o.Left, "left end: wall, open or periodic"), "END,...")
        ->check(isEnd);
    list(app.add_option("--right", o.Right, "right end: wall, open or periodic"), "END,...")
        ->check(isEnd);
    list(app.add_option("--difcon", o.difcon, "diffusion constant"), "X,...")->check(isNumber);
    list(app.add_option("--shkjmp", o.shkjmp, "shock detection constant"), "X,...")
        ->check(isNumber);
    list(app.add_option("--wavhaf", o.wavhaf, "second diffusion constant"), "X,...")
        ->check(isNumber);
    app.add_option("--wave", o.Wave,
                   "for wave: amplitude and frequency of R+, of R- and of R0, and the velocity")
        ->delimiter(',')
        ->expected(7)
        ->option_text("X,N,X,N,X,N,X")
        ->check(isNumber);
    app.add_option("--jobs", o.Jobs, "runs at a time; as many as there are cores if not given")
        ->option_text("N")
        ->check(WholeNumber(1, MostJobs));
    app.add_option("--out", o.Out, "write the last state of each run to a CSV file in this folder")
        ->option_text("DIR");
    app.add_flag("--states", o.States, "with --out: write all stored states of each run too")
        ->needs("--out")
        ->option_text(" ");
    app.add_flag("--resume", o.Resume, "with --out: skip runs whose files are there and whole")
        ->needs("--out")
        ->option_text(" ");
    app.add_flag("--json", o.Json, "print one JSON object a run and line instead of the table");
    app.add_flag("--quiet", o.Quiet, "no progress bar and no table; errors are still named");
    app.set_version_flag("--version", std::string("ternlow-run ") + Version, "show the version");
    app.set_help_flag("-h,--help", "show this help");
}

// A setting of a run with its name on the command line.
struct Choice {
    std::string Option;  // "--cells"
    std::string Value;
    bool HasSeveral;
    void (*Apply)(RunSettings&, const std::string&);
};
using Choices = std::vector<Choice>;

double NumberIn(const std::string& text) {
    return ReadNumber(text).value_or(0.0);
}

// Every choice so far, once with each value of one more list.
template <typename T>
void Multiply(std::vector<Choices>& all, const char* option, const std::vector<T>& values,
              void (*apply)(RunSettings&, const std::string&)) {
    if (values.empty()) return;
    std::vector<Choices> longer;
    for (const Choices& choices : all) {
        for (const T& value : values) {
            std::string text;
            if constexpr (std::is_same_v<T, std::string>) {
                text = value;
            } else {
                text = GeneralNumber(value);
            }
            longer.push_back(choices);
            longer.back().push_back({option, text, values.size() > 1, apply});
        }
    }
    all = std::move(longer);
}

std::vector<Choices> AllChoices(const Options& o) {
    using S = RunSettings;
    using T = std::string;
    std::vector<std::string> schemes = o.Schemes;
    for (const std::string& name : o.Schemes) {
        if (name == "all") schemes = SchemeNames();
    }
    std::vector<Choices> all(1);
    Multiply(all, "--difcon", o.difcon, [](S& s, const T& t) { s.difcon = NumberIn(t); });
    Multiply(all, "--shkjmp", o.shkjmp, [](S& s, const T& t) { s.shkjmp = NumberIn(t); });
    Multiply(all, "--wavhaf", o.wavhaf, [](S& s, const T& t) { s.wavhaf = NumberIn(t); });
    Multiply(all, "--left", o.Left, [](S& s, const T& t) { s.Left = TypeOf(t); });
    Multiply(all, "--right", o.Right, [](S& s, const T& t) { s.Right = TypeOf(t); });
    Multiply(all, "--periods", o.Periods, [](S& s, const T& t) { s.Periods = NumberIn(t); });
    Multiply(all, "--plots-per-period", o.PlotsPerPeriod,
             [](S& s, const T& t) { s.PlotsPerPeriod = RoundToEven(NumberIn(t)); });
    Multiply(all, "--scheme", schemes, [](S& s, const T& t) { s.Scheme = t; });
    Multiply(all, "--courant", o.Courant, [](S& s, const T& t) { s.Courant = NumberIn(t); });
    Multiply(all, "--cells", o.Cells, [](S& s, const T& t) { s.Cells = RoundToEven(NumberIn(t)); });
    return all;
}

std::optional<SoundWaves> WaveOf(const std::vector<double>& n) {
    if (n.size() != 7) return std::nullopt;
    return SoundWaves{n[0], RoundToEven(n[1]), n[2], RoundToEven(n[3]),
                      n[4], RoundToEven(n[5]), n[6]};
}

// As the shell takes it for one word.
std::string ShellWord(const std::string& word) {
    const auto isPlain = [](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) || std::strchr("_-./,+=:@%", c);
    };
    if (!word.empty() && std::all_of(word.begin(), word.end(), isPlain)) return word;
    std::string quoted = "'";
    for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

PlannedRun PlanRun(const Options& options, const std::string& problem, const Choices& choices) {
    PlannedRun run;
    run.Settings.Problem = problem;
    run.Settings.Wave = WaveOf(options.Wave);
    run.Command = "ternlow-run " + ShellWord(problem);
    run.Series = run.Command;
    std::string further;
    for (const Choice& choice : choices) {
        choice.Apply(run.Settings, choice.Value);
        const std::string words = " " + choice.Option + " " + choice.Value;
        run.Command += words;
        if (choice.Option != "--cells") run.Series += words;
        const bool isInName = choice.Option == "--scheme" || choice.Option == "--cells";
        if (choice.HasSeveral && !isInName) further += "-" + choice.Option.substr(2) + choice.Value;
    }
    if (run.Settings.Wave) {
        run.Command += " --wave ";
        for (std::size_t k = 0; k < options.Wave.size(); ++k) {
            run.Command += (k > 0 ? "," : "") + GeneralNumber(options.Wave[k]);
        }
    }
    run.FileName = run.Settings.Name() + "-" + run.Settings.Scheme;
    run.FileName += "-" + (run.Settings.Cells ? std::to_string(*run.Settings.Cells) : "@cells");
    run.FileName += further;
    return run;
}

}  // namespace

std::optional<Options> ReadOptions(int argc, const char* const* argv, int& status) {
    Options options;
    CLI::App app(
        "Runs experiments in one-dimensional gas dynamics without a window. Options that take a "
        "list, comma-separated, make every combination.",
        "ternlow-run");
    AddOptions(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& done) {
        status = app.exit(done);
        return std::nullopt;
    } catch (const CLI::ParseError& wrong) {
        std::cerr << "ternlow-run: " << wrong.what() << "\n";
        status = WrongUse;
        return std::nullopt;
    }
    for (const std::size_t frequency : {1U, 3U, 5U}) {
        if (options.Wave.size() == 7 && RoundToEven(options.Wave[frequency]) < 1) {
            std::cerr << "ternlow-run: --wave: a frequency is at least 1\n";
            status = WrongUse;
            return std::nullopt;
        }
    }
    return options;
}

std::vector<PlannedRun> PlanRuns(const Options& options) {
    std::vector<PlannedRun> runs;
    std::set<std::string> names;
    const std::vector<Choices> all = AllChoices(options);
    for (const std::string& problem : options.Problems) {
        for (const Choices& choices : all) {
            PlannedRun run = PlanRun(options, problem, choices);
            // Set-up files of the same name from several folders.
            const std::string name = run.FileName;
            for (int k = 2; !names.insert(run.FileName).second; ++k) {
                run.FileName = name + "-" + std::to_string(k);
            }
            runs.push_back(std::move(run));
        }
    }
    return runs;
}
