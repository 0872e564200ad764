// What ternlow-run makes of its options, and what it writes.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

#include "batch/figures_table.h"
#include "batch/options.h"
#include "batch/result_files.h"
#include "core/model/number_text.h"
#include "loading/scheme_loader.h"

namespace {

using Words = std::vector<std::string>;

Words Lines(const std::string& text) {
    std::istringstream stream(text);
    Words lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

Words Split(const std::string& line) {
    std::istringstream stream(line);
    Words parts;
    for (std::string part; std::getline(stream, part, ',');) parts.push_back(part);
    return parts;
}

std::vector<PlannedRun> PlanOf(std::vector<const char*> words) {
    words.insert(words.begin(), "ternlow-run");
    int status = -1;
    const auto options = ReadOptions(static_cast<int>(words.size()), words.data(), status);
    EXPECT_TRUE(options) << status;
    return options ? PlanRuns(*options) : std::vector<PlannedRun>();
}

RunResult ResultOf(const RunSettings& settings) {
    return *RunOnce(settings, "", LoadSchemeLibrary(settings.Scheme), [] { return true; });
}

// A folder that goes with the test.
class Folder {
public:
    Folder() {
        std::string name = (std::filesystem::temp_directory_path() / "batch-XXXXXX").string();
        path_ = mkdtemp(name.data());
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string File(const std::string& name) const { return path_ + "/" + name; }
    int Entries() const {
        const std::filesystem::directory_iterator all(path_);
        return static_cast<int>(std::distance(begin(all), end(all)));
    }

private:
    std::string path_;
};

}  // namespace

TEST(Plan, ListsMakeEveryCombinationWithCellsFastest) {
    const auto runs = PlanOf({"test1", "a/b.txt", "--scheme", "Plover,Kestrel", "--cells", "50,100",
                              "--courant", "0.5"});
    const char* expected[][2] = {
        {"ternlow-run test1 --scheme Plover --courant 0.5 --cells 50", "test1-Plover-50"},
        {"ternlow-run test1 --scheme Plover --courant 0.5 --cells 100", "test1-Plover-100"},
        {"ternlow-run test1 --scheme Kestrel --courant 0.5 --cells 50", "test1-Kestrel-50"},
        {"ternlow-run test1 --scheme Kestrel --courant 0.5 --cells 100", "test1-Kestrel-100"},
        {"ternlow-run a/b.txt --scheme Plover --courant 0.5 --cells 50", "b-Plover-50"},
        {"ternlow-run a/b.txt --scheme Plover --courant 0.5 --cells 100", "b-Plover-100"},
        {"ternlow-run a/b.txt --scheme Kestrel --courant 0.5 --cells 50", "b-Kestrel-50"},
        {"ternlow-run a/b.txt --scheme Kestrel --courant 0.5 --cells 100", "b-Kestrel-100"},
    };
    ASSERT_EQ(runs.size(), std::size(expected));
    for (std::size_t k = 0; k < runs.size(); ++k) {
        EXPECT_EQ(runs[k].Command, expected[k][0]);
        EXPECT_EQ(runs[k].FileName, expected[k][1]);
    }
    EXPECT_EQ(runs[0].Series, runs[1].Series);
    EXPECT_NE(runs[1].Series, runs[2].Series);
}

TEST(Plan, EveryRunHasAFileOfItsOwn) {
    EXPECT_EQ(PlanOf({"test1", "--scheme", "all"}).size(), 4U);
    const auto runs = PlanOf({"a/x.txt", "b/x.txt", "--difcon", "-0.5,1", "--left", "wall"});
    ASSERT_EQ(runs.size(), 4U);
    EXPECT_EQ(runs[0].FileName, "x-Kestrel-@cells-difcon-0.5");
    EXPECT_EQ(runs[1].FileName, "x-Kestrel-@cells-difcon1");
    EXPECT_EQ(runs[2].FileName, "x-Kestrel-@cells-difcon-0.5-2");
    EXPECT_EQ(runs[3].FileName, "x-Kestrel-@cells-difcon1-2");
}

TEST(Plan, CommandIsReadBackAsTheSameRun) {
    const auto runs = PlanOf({"it's one.txt", "--wave", "0.1,1,0,2,0,3,-1", "--periods", "1.5",
                              "--plots-per-period", "20", "--left", "wall", "--right", "open",
                              "--shkjmp", "-2", "--wavhaf", "0.25", "--cells", "64"});
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_EQ(runs[0].Command,
              "ternlow-run 'it'\\''s one.txt' --shkjmp -2 --wavhaf 0.25 --left wall --right open "
              "--periods 1.5 --plots-per-period 20 --cells 64 --wave 0.1,1,0,2,0,3,-1");
    const RunSettings& s = runs[0].Settings;
    ASSERT_TRUE(s.Wave && s.Left && s.Right && s.Periods);
    EXPECT_EQ(s.Wave->RMinusFreq, 2);
    EXPECT_EQ(s.Wave->U0, -1.0);
    EXPECT_EQ(*s.shkjmp, -2.0);
    EXPECT_NE(*s.Left, *s.Right);
}

TEST(Figures, JsonHasItsKeysInOrder) {
    RunFigures figures;
    figures.Problem = "a \"b\"\n";
    figures.Courant = 0.1;
    figures.Refusal = "x";
    const std::string json = JsonOf(figures);
    const std::regex key("\"([a-z_0-9]+)\": ");
    std::string keys;
    for (std::sregex_iterator k(json.begin(), json.end(), key), end; k != end; ++k) {
        keys += (keys.empty() ? "" : " ") + (*k)[1].str();
    }
    EXPECT_EQ(keys,
              "problem scheme cells courant time steps rejected floored stored l1_density "
              "l1_pressure l1_velocity overshoot mass_drift momentum_drift energy_drift seconds "
              "updates_per_second refusal");
    EXPECT_NE(json.find(R"("problem": "a \"b\"\u000a")"), std::string::npos) << json;
    EXPECT_NE(json.find("\"l1_density\": null"), std::string::npos) << json;
    EXPECT_EQ(json.find('\n'), std::string::npos);
}

TEST(Figures, OrderIsOfNeighboursThatDifferInTheirCellsAlone) {
    const auto line = [](int cells, double error, const char* series) {
        RunFigures figures;
        figures.Cells = cells;
        figures.L1Density = error;
        return TableLine{figures, series};
    };
    std::ostringstream out;
    PrintFigures(out, {line(100, 0.04, "a"), line(200, 0.01, "a"), line(100, 0.02, "b")});
    const Words lines = Lines(out.str());
    ASSERT_EQ(lines.size(), 4U);
    const std::size_t end = lines[0].find("order") + 5;
    EXPECT_EQ(lines[1].substr(end - 2, 2), " -");
    EXPECT_EQ(lines[2].substr(end - 2, 2), " 2");
    EXPECT_EQ(lines[3].substr(end - 2, 2), " -");
}

TEST(LastState, GivesEveryCellBackToTheBit) {
    RunSettings settings;
    settings.Problem = "test1";
    settings.Cells = 40;
    const RunResult result = ResultOf(settings);
    const Words lines = Lines(LastStateText(result, {"command", "set-up: 1"}));
    ASSERT_EQ(lines.size(), 44U);
    EXPECT_EQ(lines[0], "# command");
    EXPECT_EQ(lines[1], "# set-up: 1");
    EXPECT_EQ(lines[2], "# figures " + JsonOf(result.Figures));
    EXPECT_EQ(lines[3],
              "cell,x,density,pressure,velocity,transverse,smoke,r_plus,r_minus,entropy,"
              "exact_density,exact_pressure,exact_velocity");
    const ExperimentState& state = result.State;
    for (int i = 1; i <= 40; ++i) {
        const Words parts = Split(lines[static_cast<std::size_t>(i) + 3]);
        ASSERT_EQ(parts.size(), 13U);
        EXPECT_EQ(parts[0], std::to_string(i));
        EXPECT_EQ(ReadNumber(parts[2]), state.Rho[i]);
        EXPECT_EQ(ReadNumber(parts[3]), state.P[i]);
        EXPECT_EQ(ReadNumber(parts[4]), state.Ux[i]);
        EXPECT_EQ(ReadNumber(parts[6]), state.FSmoke[i]);
        EXPECT_EQ(ReadNumber(parts[10]), result.Exact->Rho[i]);
    }
}

TEST(LastState, HasNoExactColumnsWithoutAnExactSolution) {
    RunSettings settings;
    settings.Problem = "default";
    settings.Cells = 20;
    const Words lines = Lines(LastStateText(ResultOf(settings), {"command"}));
    EXPECT_EQ(Split(lines.at(2)).size(), 10U);
    EXPECT_EQ(Split(lines.at(3)).size(), 10U);
}

TEST(StoredStates, AreTheLinesOfEveryState) {
    RunSettings settings;
    settings.Problem = "wave";
    settings.Cells = 12;
    const RunResult result = ResultOf(settings);
    const Words lines = Lines(StoredStatesText(result, {"command"}));
    ASSERT_EQ(lines.size(), 3U + 12U * static_cast<std::size_t>(result.State.NStored));
    EXPECT_EQ(lines[2].rfind("state,time,cell,x,density,", 0), 0U) << lines[2];
    const Words last = Split(lines.back());
    ASSERT_EQ(last.size(), 12U);
    EXPECT_EQ(last[0], std::to_string(result.State.NStored - 1));
    EXPECT_EQ(ReadNumber(last[1]), result.State.StoredT[result.State.NStored - 1]);
    EXPECT_EQ(last[2], "12");
}

TEST(WriteWhole, LeavesTheOldFileWhenThereIsNoRoom) {
    const Folder folder;
    const std::string path = folder.File("a.csv");
    ASSERT_EQ(WriteWhole(path, "old\n"), "");
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit tight{1024, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &tight);
    const std::string trouble = WriteWhole(path, std::string(5000, 'x'));
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(trouble, "File too large");
    EXPECT_EQ(ContentOf(path), "old\n");
    EXPECT_EQ(folder.Entries(), 1);
    EXPECT_EQ(WriteWhole(path, "new\n"), "");
    EXPECT_EQ(ContentOf(path), "new\n");
    EXPECT_NE(WriteWhole(folder.File("missing/a.csv"), "x"), "");
}

TEST(FiguresInFile, AreThoseOfAWholeFileWithTheSameHead) {
    RunSettings settings;
    settings.Problem = "test7";
    settings.Cells = 10;
    const RunResult result = ResultOf(settings);
    const FileHead head = {"command", "set-up: 1"};
    const std::string json = JsonOf(result.Figures);
    const Folder folder;
    const std::string path = folder.File("a.csv");
    EXPECT_EQ(FiguresInFile(path, head, 10), std::nullopt);
    for (const std::string& text : {LastStateText(result, head), StoredStatesText(result, head)}) {
        const auto after = [&](const std::string& content) {
            std::ofstream(path) << content;
            return FiguresInFile(path, head, 10);
        };
        EXPECT_EQ(after(text), json);
        EXPECT_EQ(FiguresInFile(path, {"command", "set-up: 2"}, 10), std::nullopt);
        EXPECT_EQ(FiguresInFile(path, {"command"}, 10), std::nullopt);
        EXPECT_EQ(FiguresInFile(path, head, 11), std::nullopt);
        // Cut short anywhere, or behind any of its last lines, it is no whole file.
        for (std::size_t length = 0; length < text.size(); length += text.size() / 40) {
            EXPECT_EQ(after(text.substr(0, length)), std::nullopt) << length;
        }
        std::size_t end = text.size() - 1;
        for (int line = 0; line < 12; ++line) {
            end = text.rfind('\n', end - 1);
            EXPECT_EQ(after(text.substr(0, end + 1)), std::nullopt) << line;
        }
        EXPECT_EQ(after(text.substr(0, text.size() - 1)), std::nullopt);
    }
}
