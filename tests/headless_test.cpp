// The same experiment with and without a window.
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <random>
#include <sstream>

#include "batch/result_files.h"
#include "batch/run_result.h"
#include "core/model/number_text.h"
#include "core/model/run_stage.h"
#include "core/run/first_step.h"
#include "core/run/run.h"
#include "core/run/scheme_table.h"
#include "core/run/tick_arrays.h"
#include "core/setup/point_replay.h"
#include "core/setup/problems.h"
#include "loading/scheme_loader.h"
#include "panel/widgets/control_values.h"
#include "panel_test.h"

namespace {

template <typename T>
struct Field {
    const char* Name;
    T ExperimentState::*Value;
};

// Every field but the selected values, which follow the boxes, and what belongs to the window.
// clang-format off
constexpr Field<double> Numbers[] = {
    {"NGridCellsD", &ExperimentState::NGridCellsD},
    {"DX", &ExperimentState::DX},
    {"SoundSpeed0", &ExperimentState::SoundSpeed0},
    {"Time", &ExperimentState::Time},
    {"DTime", &ExperimentState::DTime},
    {"DTime0", &ExperimentState::DTime0},
    {"CourantNumber", &ExperimentState::CourantNumber},
    {"PeriodTime", &ExperimentState::PeriodTime},
    {"Periods", &ExperimentState::Periods},
    {"TStop", &ExperimentState::TStop},
    {"PlotInterval", &ExperimentState::PlotInterval},
    {"TimeToPlot", &ExperimentState::TimeToPlot},
    {"difcon", &ExperimentState::difcon},
    {"shkjmp", &ExperimentState::shkjmp},
    {"wavhaf", &ExperimentState::wavhaf},
    {"RPlusAmp", &ExperimentState::RPlusAmp},
    {"RMinusAmp", &ExperimentState::RMinusAmp},
    {"R0Amp", &ExperimentState::R0Amp},
    {"U0", &ExperimentState::U0},
};
constexpr Field<int> Integers[] = {
    {"NGridCells", &ExperimentState::NGridCells},
    {"StoreCapacity", &ExperimentState::StoreCapacity},
    {"StoreOffset", &ExperimentState::StoreOffset},
    {"NStored", &ExperimentState::NStored},
    {"StoredStateNumber", &ExperimentState::StoredStateNumber},
    {"NSelected", &ExperimentState::NSelected},
    {"NPlotsPerPeriod", &ExperimentState::NPlotsPerPeriod},
    {"NPlotsTotal", &ExperimentState::NPlotsTotal},
    {"Stopped", &ExperimentState::Stopped},
    {"SoundWaveMode", &ExperimentState::SoundWaveMode},
    {"MnBdry", &ExperimentState::MnBdry},
    {"MxBdry", &ExperimentState::MxBdry},
    {"NDifferenceScheme", &ExperimentState::NDifferenceScheme},
    {"RPlusFreq", &ExperimentState::RPlusFreq},
    {"RMinusFreq", &ExperimentState::RMinusFreq},
    {"R0Freq", &ExperimentState::R0Freq},
    {"MultiplePlots", &ExperimentState::MultiplePlots},
};
constexpr Field<OffsetArray<double>> Arrays[] = {
    {"X", &ExperimentState::X},
    {"Rho", &ExperimentState::Rho},
    {"P", &ExperimentState::P},
    {"Ux", &ExperimentState::Ux},
    {"Uy", &ExperimentState::Uy},
    {"FSmoke", &ExperimentState::FSmoke},
    {"C2", &ExperimentState::C2},
    {"C", &ExperimentState::C},
    {"StoredT", &ExperimentState::StoredT},
};
constexpr Field<OffsetArray<float>> StoreArrays[] = {
    {"SRho", &ExperimentState::SRho},
    {"SP", &ExperimentState::SP},
    {"SUx", &ExperimentState::SUx},
    {"SUy", &ExperimentState::SUy},
    {"SFSmoke", &ExperimentState::SFSmoke},
    {"SRPlus", &ExperimentState::SRPlus},
    {"SRMinus", &ExperimentState::SRMinus},
    {"SEntropy", &ExperimentState::SEntropy},
};
constexpr Field<OffsetArray<int>> PointCells[] = {{"MSelList", &ExperimentState::MSelList}};
constexpr Field<OffsetArray<double>> PointLists[] = {
    {"XSelList", &ExperimentState::XSelList},
    {"RhoSelList", &ExperimentState::RhoSelList},
    {"PSelList", &ExperimentState::PSelList},
    {"VxSelList", &ExperimentState::VxSelList},
};
// These follow the boxes before a run.
constexpr Field<double> Axes[] = {
    {"RhoMin", &ExperimentState::RhoMin},
    {"RhoMax", &ExperimentState::RhoMax},
    {"PMin", &ExperimentState::PMin},
    {"PMax", &ExperimentState::PMax},
    {"VXMin", &ExperimentState::VXMin},
    {"VXMax", &ExperimentState::VXMax},
};
// clang-format on

// Names the fields that differ in a bit.
class Differences {
public:
    Differences(const ExperimentState& a, const ExperimentState& b) : a_(a), b_(b) {}

    template <typename T, std::size_t Count>
    void Compare(const Field<T> (&fields)[Count]) {
        for (const Field<T>& field : fields) {
            const T& a = a_.*field.Value;
            const T& b = b_.*field.Value;
            if (a != b) text_ << ' ' << field.Name << " (" << a << ", " << b << ")";
        }
    }

    // Elements up to `last`, or all.
    template <typename T, std::size_t Count>
    void CompareArrays(const Field<OffsetArray<T>> (&fields)[Count], int last = 1 << 30) {
        for (const Field<OffsetArray<T>>& field : fields) {
            const OffsetArray<T>& a = a_.*field.Value;
            const OffsetArray<T>& b = b_.*field.Value;
            bool isSame = a.First() == b.First() && a.Last() == b.Last();
            for (int i = a.First(); isSame && i <= std::min(last, a.Last()); ++i) {
                isSame = a[i] == b[i];
            }
            if (!isSame) text_ << ' ' << field.Name;
        }
    }
    std::string Text() const { return text_.str(); }

private:
    const ExperimentState& a_;
    const ExperimentState& b_;
    std::ostringstream text_;
};

std::string DifferencesOf(const ExperimentState& a, const ExperimentState& b, bool withAxes) {
    Differences d(a, b);
    d.Compare(Numbers);
    d.Compare(Integers);
    d.CompareArrays(Arrays);
    d.CompareArrays(StoreArrays, (a.NGridCells + 2) * std::max(a.NStored, 1) - 1);
    d.CompareArrays(PointLists, a.NSelected + 1);
    d.CompareArrays(PointCells, a.NSelected + 1);
    if (withAxes) d.Compare(Axes);
    return d.Text();
}

// The panel and an experiment without one, given the same set-ups.
class Pair {
public:
    explicit Pair(std::uint64_t seed) : random_(seed) { SetUpDefaultProblem(alone_, boxes_); }

    // One random set-up or run, on both; gives what it was.
    std::string Act() {
        hasRun_ = false;
        using Action = std::string (Pair::*)();
        static constexpr Action actions[] = {
            &Pair::Test,  &Pair::Cells, &Pair::Periods, &Pair::Plots,    &Pair::Courant,
            &Pair::Point, &Pair::Point, &Pair::Point,   &Pair::Deselect, &Pair::Reset,
            &Pair::File,  &Pair::Run,   &Pair::Restart};
        return (this->*actions[Below(13)])();
    }
    std::string Wave() {
        hasRun_ = false;
        const SoundWaves waves{Below(30) * 0.01, 1 + Below(3), Below(30) * 0.01,    1 + Below(3),
                               Below(10) * 0.01, 1 + Below(3), Below(5) * 0.5 - 1.0};
        const auto text = [](double v) { return QString::fromStdString(GeneralNumber(v)); };
        const BoxAnswers answers({text(waves.RPlusAmp), text(waves.RPlusFreq),
                                  text(waves.RMinusAmp), text(waves.RMinusFreq), text(waves.R0Amp),
                                  text(waves.R0Freq), text(waves.U0)});
        panel_.Press("cmdSoundWave");
        SetUpSoundWave(alone_, waves);
        return "wave";
    }
    std::string Differences() { return DifferencesOf(panel_.Form().state, alone_, hasRun_); }

private:
    int Below(int n) { return static_cast<int>(random_() % static_cast<std::uint64_t>(n)); }
    const Controls& Boxes() { return panel_.Form().controls; }

    std::string Test() {
        const int number = 1 + Below(8);
        panel_.Press(("cmdTest" + std::to_string(number)).c_str());
        SetUpTest(alone_, boxes_, number);
        return "test " + std::to_string(number);
    }
    std::string Cells() {
        static const char* texts[] = {"6",    "7",   "17", "33",    "100",
                                      "64.5", "250", "5",  "400.0", "x"};
        const std::string text = texts[Below(10)];
        PutText(Boxes().txtNGridCells, text);
        PutNGridCells(alone_, boxes_, text);
        return "cells " + text;
    }
    std::string Periods() {
        static const char* texts[] = {"2", "0.5", "1.25", "0.123456", "3.", "-1"};
        const std::string text = texts[Below(6)];
        PutText(Boxes().txtNPeriods, text);
        PutPeriods(alone_, boxes_, text);
        return "periods " + text;
    }
    std::string Plots() {
        const std::string text = std::to_string(1 + Below(60));
        PutText(Boxes().txtNPlotsPerPeriod, text);
        if (IsBeforeRun(alone_)) SetPlotsPerPeriod(alone_, std::stoi(text));
        return "plots " + text;
    }
    std::string Courant() {
        static const char* texts[] = {"0.5", "0.123456", "0.9", ".7", "1.5", "0.85"};
        const std::string text = texts[Below(6)];
        PutText(Boxes().txtCourantNumber, text);
        PutCourantNumber(alone_, boxes_, text);
        return "courant " + text;
    }
    std::string Point() {
        if (!IsBeforeRun(alone_)) return "no point";
        const int m = 1 + Below(alone_.NGridCells);
        const PointValues values{0.01 + Below(300) * 0.01, 0.01 + Below(300) * 0.01,
                                 Below(200) * 0.01 - 1.0};
        PutText(Boxes().txtMSelected, GeneralNumber(m));
        PutText(Boxes().txtDensity, GeneralNumber(values.Rho));
        PutText(Boxes().txtPressure, GeneralNumber(values.P));
        PutText(Boxes().txtVelocity, GeneralNumber(values.Vx));
        panel_.Press("cmdSelect");
        const auto typed = [](double v) { return *ReadNumber(GeneralNumber(v)); };
        SelectPoint(alone_, m, {typed(values.Rho), typed(values.P), typed(values.Vx)});
        return "point in cell " + std::to_string(m);
    }
    std::string Deselect() {
        if (!IsBeforeRun(alone_) || alone_.NSelected < 2) return "no point";
        const int m = alone_.MSelList[1 + Below(alone_.NSelected)];
        PutText(Boxes().txtMSelected, GeneralNumber(m));
        panel_.Press("cmdDeselect");
        DeselectPoint(alone_, m);
        return "deselect " + std::to_string(m);
    }
    std::string Reset() {
        panel_.Press("cmdReset");
        if (IsBeforeRun(alone_)) ResetPoints(alone_);
        return "reset";
    }
    // The present set-up, or an earlier one, through a file.
    std::string File() {
        const QString name = folder_.filePath("set-up.txt");
        QFile file(name);
        if (file.exists() && Below(2) == 0 && file.open(QIODevice::ReadOnly)) {
            const BoxAnswers answers({name});
            panel_.Press("cmdReadSetUp");
            SetUpReading reading = ReadSetUpText(file.readAll().toStdString(), alone_.MaxGridCells);
            if (reading.Values) SetUpFromFile(alone_, boxes_, std::move(*reading.Values));
            return "read";
        }
        if (!file.open(QIODevice::WriteOnly)) return "no file";
        const std::string text = WriteSetUpText(alone_);
        file.write(text.data(), static_cast<qint64>(text.size()));
        return "write";
    }
    std::string Run() {
        if (alone_.Time != 0.0) return "no run";
        const std::string scheme = Schemes[static_cast<std::size_t>(Below(4))].Name;
        panel_.Form().state.SchemeName = scheme;
        alone_.SchemeName = scheme;
        panel_.Press("cmdBegin");
        BeginRun(alone_);
        const int ticks = 1 + Below(30);
        panel_.Tick(ticks);
        TickArrays arrays(alone_, LoadSchemeLibrary(scheme));
        int left = ticks;
        const bool ended = RunToEnd(alone_, arrays, [&left] { return left-- > 0; });
        if (!ended) panel_.Press("cmdPause");
        alone_.MultiplePlots = 0;
        hasRun_ = true;  // the axes are those of the run
        return "run with " + scheme;
    }
    std::string Restart() {
        panel_.Press("cmdRestart");
        RestartRun(alone_);
        PutCourantNumber(alone_, boxes_, FormatNumber(alone_.CourantNumber, "#0.0##"));
        return "restart";
    }

    std::mt19937_64 random_;
    QTemporaryDir folder_;
    Panel panel_;
    ExperimentState alone_;
    SetUpBoxes boxes_;
    bool hasRun_ = false;
};

class Headless : public testing::TestWithParam<int> {};

}  // namespace

// Random set-ups, grids, orders and short runs: every field is the same to the bit.
TEST_P(Headless, ProblemsAreThePanelsToTheBit) {
    Pair pair(static_cast<std::uint64_t>(GetParam()));
    ASSERT_EQ(pair.Differences(), "");
    std::string road;
    for (int action = 0; action < 60; ++action) {
        const bool waves = GetParam() % 4 == 0 && action % 20 == 10;
        road += (waves ? pair.Wave() : pair.Act()) + ", ";
        ASSERT_EQ(pair.Differences(), "") << road;
    }
}
INSTANTIATE_TEST_SUITE_P(Seeds, Headless, testing::Range(1, 41));

// ternlow-run and the panel, given the same problem on 100 cells, end in the same state.
class WholeRun : public testing::TestWithParam<const char*> {};

TEST_P(WholeRun, EndsAsThePanelsToTheBit) {
    const QDir setUps(TERNLOW_SET_UPS);
    std::vector<std::string> problems = {"default", "wave"};
    for (int k = 1; k <= 8; ++k) problems.push_back("test" + std::to_string(k));
    for (const QString& name : setUps.entryList({"*.txt"})) {
        problems.push_back(setUps.filePath(name).toStdString());
    }
    ASSERT_GE(problems.size(), 15U);
    for (const std::string& problem : problems) {
        SCOPED_TRACE(problem);
        RunSettings settings;
        settings.Problem = problem;
        settings.Scheme = GetParam();
        settings.Cells = 100;
        settings.Wave = SoundWaves{0.1, 1, 0.05, 2, 0.02, 1, 0.5};
        const std::string text = settings.IsFile() ? ContentOf(problem).value_or("") : "";
        const auto alone =
            RunOnce(settings, text, LoadSchemeLibrary(settings.Scheme), [] { return true; });
        ASSERT_TRUE(alone);
        ASSERT_EQ(alone->Figures.Refusal, "");

        Panel panel;
        ExperimentState& state = panel.Form().state;
        const auto enterCells = [&] { PutText(panel.Form().controls.txtNGridCells, "100"); };
        state.SchemeName = settings.Scheme;
        if (!settings.IsFile()) enterCells();
        if (settings.IsFile()) {
            const BoxAnswers answers({QString::fromStdString(problem)});
            panel.Press("cmdReadSetUp");
            enterCells();
        } else if (problem == "wave") {
            const BoxAnswers answers({"0.1", "1", "0.05", "2", "0.02", "1", "0.5"});
            panel.Press("cmdSoundWave");
        } else if (problem != "default") {
            panel.Press(("cmdTest" + problem.substr(4)).c_str());
        }
        panel.Press("cmdBegin");
        ASSERT_TRUE(panel.RunToEnd());
        EXPECT_GT(state.Time, 0.0);
        EXPECT_EQ(DifferencesOf(state, alone->State, true), "");
    }
}
INSTANTIATE_TEST_SUITE_P(Schemes, WholeRun,
                         testing::Values("Kestrel", "Kestrel32", "Heron32", "Plover"));
