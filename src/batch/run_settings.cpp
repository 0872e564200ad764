#include "batch/run_settings.h"

#include <filesystem>
#include <utility>

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/run/first_step.h"

namespace {

// The number of a test, 0 for any other problem.
int TestNumber(const std::string& problem) {
    const bool isTest = problem.size() == 5 && problem.compare(0, 4, "test") == 0 &&
                        problem[4] >= '1' && problem[4] <= '8';
    return isTest ? problem[4] - '0' : 0;
}

void EnterNumbers(ExperimentState& state, SetUpBoxes& boxes, const RunSettings& settings) {
    if (settings.Cells) PutNGridCells(state, boxes, GeneralNumber(*settings.Cells));
    if (settings.Courant) PutCourantNumber(state, boxes, GeneralNumber(*settings.Courant));
    if (settings.PlotsPerPeriod) SetPlotsPerPeriod(state, *settings.PlotsPerPeriod);
}

std::string SetUpProblem(ExperimentState& state, SetUpBoxes& boxes, const RunSettings& settings,
                         const std::string& setUpText) {
    if (const int test = TestNumber(settings.Problem); test > 0) {
        SetUpTest(state, boxes, test);
    } else if (settings.Problem == "wave") {
        if (!SetUpSoundWave(state,
                            settings.Wave.value_or(SoundWaves{0.1, 1, 0.0, 1, 0.0, 1, 0.0}))) {
            return "the waves are not possible on this grid";
        }
    } else if (settings.IsFile()) {
        SetUpReading reading = ReadSetUpText(setUpText, state.MaxGridCells);
        if (!reading.Values) {
            return "cannot be read: " + reading.Reason;
        }
        SetUpFromFile(state, boxes, std::move(*reading.Values));
    }
    return "";
}

}  // namespace

bool RunSettings::IsFile() const {
    return TestNumber(Problem) == 0 && Problem != "default" && Problem != "wave";
}

std::string RunSettings::Name() const {
    return IsFile() ? std::filesystem::path(Problem).stem().string() : Problem;
}

std::string SetUpRun(ExperimentState& state, const RunSettings& settings,
                     const std::string& setUpText) {
    SetUpBoxes boxes;
    SetUpDefaultProblem(state, boxes);
    state.SchemeName = settings.Scheme;
    state.difcon = settings.difcon.value_or(state.difcon);
    state.shkjmp = settings.shkjmp.value_or(state.shkjmp);
    state.wavhaf = settings.wavhaf.value_or(state.wavhaf);

    if (!settings.IsFile()) EnterNumbers(state, boxes, settings);
    const std::string trouble = SetUpProblem(state, boxes, settings, setUpText);
    if (!trouble.empty()) return trouble;
    if (settings.IsFile()) EnterNumbers(state, boxes, settings);
    if (settings.Cells && *settings.Cells != state.NGridCells) {
        return "this grid cannot hold the problem's control points";
    }
    if (settings.Periods) PutPeriods(state, boxes, GeneralNumber(*settings.Periods));
    state.MnBdry = settings.Left.value_or(state.MnBdry);
    state.MxBdry = settings.Right.value_or(state.MxBdry);
    return "";
}
