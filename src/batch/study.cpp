#include "batch/study.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <map>
#include <mutex>
#include <sstream>
#include <thread>

#include "batch/figures_table.h"
#include "batch/result_files.h"
#include "batch/run_result.h"
#include "loading/scheme_loader.h"

namespace {

volatile std::sig_atomic_t stopped = 0;

// What a run leaves behind once its state has been given up.
struct Outcome {
    std::string Json;
    std::optional<TableLine> Line;  // absent for a run that was not done now
    bool WasDoneBefore = false;
    std::string Trouble;  // a line for standard error
    StudyStatus Status = StudyStatus::Good;
};

// The problem and the options of a run, for messages that begin with the program's name.
std::string Label(const PlannedRun& run) {
    return run.Command.substr(run.Command.find(' ') + 1);
}

std::string WithCells(std::string name, int cells) {
    const std::size_t at = name.find("@cells");
    return at == std::string::npos ? name : name.replace(at, 6, std::to_string(cells));
}

FileHead HeadOf(const PlannedRun& run, const std::string& setUpText) {
    FileHead head = {run.Command};
    std::istringstream lines(setUpText);
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        head.push_back("set-up: " + line);
    }
    return head;
}

class Study {
public:
    explicit Study(const Options& options) : options_(options), runs_(PlanRuns(options)) {}

    StudyStatus Do() {
        if (!options_.Out.empty()) {
            std::error_code trouble;
            std::filesystem::create_directories(options_.Out, trouble);
            if (trouble) {
                std::cerr << "ternlow-run: " << options_.Out << ": " << trouble.message() << "\n";
                return StudyStatus::CouldNotWrite;
            }
        }
        const int cores = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
        const int jobs =
            std::min(options_.Jobs > 0 ? options_.Jobs : cores, static_cast<int>(runs_.size()));
        std::vector<std::thread> workers;
        workers.reserve(static_cast<std::size_t>(jobs));
        for (int job = 0; job < jobs; ++job) workers.emplace_back([this] { Work(); });
        for (std::thread& worker : workers) worker.join();
        if (showsProgress_) std::cerr << "\r\x1b[K";
        if (!options_.Json && !options_.Quiet) PrintFigures(std::cout, table_);
        if (skipped_ > 0 && !options_.Json && !options_.Quiet) {
            std::cout << skipped_ << " of " << runs_.size() << " runs had been done before\n";
        }
        if (!std::cout.flush()) {
            std::cerr << "ternlow-run: standard output cannot be written\n";
            return StudyStatus::CouldNotWrite;
        }
        return status_;
    }

private:
    void Work() {
        for (std::size_t k = next_++; k < runs_.size() && stopped == 0; k = next_++) {
            std::optional<Outcome> outcome;
            try {
                outcome = DoRun(runs_[k]);
            } catch (const std::exception& failure) {  // out of memory: the other runs go on
                outcome.emplace();
                outcome->Trouble = Label(runs_[k]) + ": " + failure.what();
                outcome->Status = StudyStatus::RunRefused;
            }
            if (outcome) Report(k, std::move(*outcome));
        }
    }

    // The figures of a run whose files an earlier study has left whole.
    std::optional<std::string> FiguresBefore(const PlannedRun& run,
                                             const std::string& setUpText) const {
        ExperimentState probe;
        if (!SetUpRun(probe, run.Settings, setUpText).empty()) return std::nullopt;
        const int cells = probe.NGridCells;
        const FileHead head = HeadOf(run, setUpText);
        const std::string path = PathOf(run, cells);
        const auto figures = FiguresInFile(path, head, cells);
        if (options_.States && FiguresInFile(StatesPath(path), head, cells) != figures) {
            return std::nullopt;
        }
        return figures;
    }

    std::optional<Outcome> DoRun(const PlannedRun& run) {
        Outcome outcome;
        std::string setUpText;
        if (run.Settings.IsFile()) {
            const std::optional<std::string> content = ContentOf(run.Settings.Problem);
            if (!content) {
                outcome.Trouble = run.Settings.Problem + ": no such problem, and no file to read";
                outcome.Status = StudyStatus::WrongUse;
                return outcome;
            }
            setUpText = *content;
        }
        if (options_.Resume) {
            if (const auto figures = FiguresBefore(run, setUpText)) {
                outcome.Json = *figures;
                outcome.WasDoneBefore = true;
                return outcome;
            }
        }
        const std::optional<RunResult> result =
            RunOnce(run.Settings, setUpText, LoadSchemeLibrary(run.Settings.Scheme),
                    [] { return stopped == 0; });
        if (!result) return std::nullopt;
        outcome.Json = JsonOf(result->Figures);
        outcome.Line = TableLine{result->Figures, run.Series};
        if (!result->Figures.Refusal.empty()) {
            outcome.Trouble = Label(run) + ": " + result->Figures.Refusal;
            const bool wasSetUp = result->Figures.Steps > 0 || result->State.Refusal;
            if (!wasSetUp) outcome.Line.reset();  // nothing for the table
            outcome.Status = wasSetUp ? StudyStatus::RunRefused : StudyStatus::WrongUse;
            return outcome;
        }
        if (!options_.Out.empty()) WriteFiles(run, setUpText, *result, outcome);
        return outcome;
    }

    std::string PathOf(const PlannedRun& run, int cells) const {
        return options_.Out + "/" + WithCells(run.FileName, cells) + ".csv";
    }

    static std::string StatesPath(const std::string& path) {
        return path.substr(0, path.size() - 4) + "-states.csv";
    }

    // The states first: the file by which a run is known to be done comes last.
    void WriteFiles(const PlannedRun& run, const std::string& setUpText, const RunResult& result,
                    Outcome& outcome) const {
        const FileHead head = HeadOf(run, setUpText);
        const std::string path = PathOf(run, result.Figures.Cells);
        std::string trouble;
        if (options_.States) {
            trouble = WriteWhole(StatesPath(path), StoredStatesText(result, head));
        }
        if (trouble.empty()) trouble = WriteWhole(path, LastStateText(result, head));
        if (trouble.empty()) return;
        outcome.Trouble = path + ": " + trouble;
        outcome.Status = StudyStatus::CouldNotWrite;
    }

    // Prints what is complete, in the order of the plan.
    void Report(std::size_t k, Outcome outcome) {
        const std::lock_guard lock(mutex_);
        waiting_.emplace(k, std::move(outcome));
        for (auto first = waiting_.find(reported_); first != waiting_.end();
             first = waiting_.find(reported_)) {
            Print(first->second);
            waiting_.erase(first);
            ++reported_;
        }
        done_ += 1;
        if (!showsProgress_) return;
        constexpr std::size_t width = 40;
        const std::size_t filled = width * done_ / runs_.size();
        std::cerr << "\r[" << std::string(filled, '#') << std::string(width - filled, '.') << "] "
                  << done_ << " of " << runs_.size() << std::flush;
    }

    void Print(const Outcome& outcome) {
        status_ = std::max(status_, outcome.Status);
        if (!outcome.Trouble.empty()) {
            std::cerr << (showsProgress_ ? "\r\x1b[K" : "") << "ternlow-run: " << outcome.Trouble
                      << "\n";
        }
        if (options_.Json && !outcome.Json.empty()) std::cout << outcome.Json << std::endl;
        if (outcome.Line) table_.push_back(*outcome.Line);
        if (outcome.WasDoneBefore) ++skipped_;
    }

    const Options& options_;
    std::vector<PlannedRun> runs_;
    bool showsProgress_ = !options_.Quiet && isatty(STDERR_FILENO) != 0;
    std::atomic<std::size_t> next_ = 0;
    std::mutex mutex_;  // guards all below
    std::map<std::size_t, Outcome> waiting_;
    std::size_t reported_ = 0;
    std::size_t done_ = 0;
    std::size_t skipped_ = 0;
    std::vector<TableLine> table_;
    StudyStatus status_ = StudyStatus::Good;
};

}  // namespace

StudyStatus DoStudy(const Options& options) {
    return Study(options).Do();
}

void StopStudy() {
    stopped = 1;
}

bool IsStudyStopped() {
    return stopped != 0;
}
