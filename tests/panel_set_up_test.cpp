// Problems set up on the panel: at start-up, by hand, as sound waves, on another grid, by prompts.
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <deque>
#include <fstream>
#include <functional>

#include "panel/help/guide_place.h"
#include "panel/plots/line_plots.h"
#include "panel_test.h"
#include "pixels.h"

namespace {

class PanelSetUp : public PanelTest {
protected:
    void Enter(int cell, const char* rho, const char* p, const char* u) {
        panel.Type("txtMSelected", QString::number(cell));
        panel.Type("txtDensity", rho);
        panel.Type("txtPressure", p);
        panel.Type("txtVelocity", u);
        panel.Press("cmdSelect");
    }
};

}  // namespace

TEST_F(PanelSetUp, ComesUpWithTheBlastWaves) {
    EXPECT_EQ(state.Stopped, 1);
    EXPECT_EQ(state.NStored, 0);
    EXPECT_NEAR(state.PeriodTime, 0.0267261, 5e-8);
    EXPECT_NEAR(state.TStop, 0.0400892, 5e-8);
    EXPECT_NEAR(state.PlotInterval, 6.68153e-05, 5e-11);
    EXPECT_DOUBLE_EQ(state.PMin, -49.9895);
    EXPECT_NEAR(state.VXMax, 1.870829, 5e-7);
    const std::pair<const char*, const char*> boxes[] = {
        {"txtNGridCells", "400"},       {"txtMSelected", "400"},
        {"txtNPeriods", "1.5"},         {"txtMSec", "5"},
        {"txtTime", "t=0.0"},           {"txtNPlotsPerPeriod", "400"},
        {"txtDensityMin", "0.95"},      {"txtPressureMax", "1049.9995"},
        {"txtVelocityMin", "-1.87083"}, {"txtCourantNumber", "0.85"}};
    for (const auto& [box, text] : boxes) EXPECT_EQ(Text(box), text) << box;
    EXPECT_EQ(state.StudentName, "Jane Q. Student");
    EXPECT_TRUE(controls.lblStudentID->text().startsWith("RhoL = 1.0,     PL = 1000.0,"));
}

TEST_F(PanelSetUp, DrawsAProblemByHand) {
    panel.Press("cmdReset");
    EXPECT_EQ(state.NSelected, 2);
    EXPECT_EQ(Text("txtMSelected"), "40") << "the former entry 2 went last";
    EXPECT_NEAR(state.P[200], 1000.0 - 900.0 * 199.0 / 399.0, 1e-9) << "one ramp is left";

    Enter(100, "2", "50.5", "-1.25");
    EXPECT_EQ(state.NSelected, 3);
    EXPECT_EQ(state.Rho[100], 2.0);
    EXPECT_EQ(state.Ux[100], -1.25);
    EXPECT_NEAR(state.Rho[50], 1.0 + 49.0 / 99.0, 1e-12);
    EXPECT_EQ(Text("txtPressure"), "50.5000") << "the paints write last";
    Enter(100, "3", "50.5", "0");  // once more: taken off and put on anew
    EXPECT_EQ(state.NSelected, 3);
    EXPECT_EQ(state.Rho[100], 3.0);

    // Nothing is divided by zero, whatever the boxes hold.
    Enter(200, "0", "-7", "x");
    EXPECT_GT(state.Rho[200], 0.0);
    EXPECT_EQ(state.P[200], 1e-8);
    EXPECT_EQ(BrokenPromise(panel.Form()), "");

    panel.Type("txtMSelected", "100");
    panel.Press("cmdDeselect");
    EXPECT_EQ(state.NSelected, 3);
    // What is no cell is on no list, whichever cell is selected.
    panel.Type("txtMSelected", QString::number(state.MSelList[2]));
    const auto before = Fields();
    for (const char* noCell : {"0", "1219", "", "x"}) {
        controls.txtMSelected->setText(noCell);
        panel.Press("cmdDeselect");
        EXPECT_EQ(state.NSelected, 3) << noCell;
        EXPECT_EQ(Fields(), before) << noCell;
    }
    for (int k = 0; k < 5; ++k) {  // also off an empty list
        panel.Type("txtMSelected", QString::number(state.MSelList[1]));
        panel.Press("cmdDeselect");
    }
    EXPECT_EQ(state.NSelected, 0);
    Enter(400, "1", "1", "0");
    EXPECT_EQ(state.NSelected, 2);
    EXPECT_EQ(state.P[0], 1.0);
}

TEST_F(PanelSetUp, ChangesTheGrid) {
    const struct {
        const char* text;
        int cells, leftJump, rightJump;  // last cells before the jumps
        const char* shown;
    } rows[] = {{"800", 800, 80, 720, "800"},
                {"5", 800, 80, 720, "5"},
                {"400.5", 400, 40, 360, "400"},     // a half goes to the even number
                {"6000", 5001, 501, 4501, "5001"},  // both sides of a jump fall into one cell
                {"abc", 5001, 501, 4501, "abc"},
                {"20", 20, 3, 18, "20"},
                {"6", 6, 2, 4, "6"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        controls.txtNGridCells->setText(row.text);
        EXPECT_EQ(state.NGridCells, row.cells);
        EXPECT_EQ(Text("txtNGridCells"), row.shown);
        EXPECT_EQ(state.NSelected, 6);
        EXPECT_EQ(BrokenPromise(panel.Form()), "");
        EXPECT_EQ(controls.hsbMSelected->pageStep(), std::max(1, qRound(row.cells / 25.0)));
        EXPECT_EQ(state.X[row.cells + 1], 1.0);
        EXPECT_TRUE(state.P[row.leftJump] == 1000.0 && state.P[row.leftJump + 1] == 0.01);
        EXPECT_TRUE(state.P[row.rightJump] == 0.01 && state.P[row.rightJump + 1] == 100.0);
    }
}

TEST_F(PanelSetUp, SetsUpSoundWaves) {
    const auto boxes = Ask("cmdSoundWave", {"0.01", "2", std::nullopt, "0", "0.005", "none", "-1"});
    ASSERT_EQ(boxes.size(), 7u);
    EXPECT_EQ(state.SoundWaveMode, 1);
    EXPECT_EQ(state.RPlusFreq, 2);
    EXPECT_EQ(state.RMinusAmp, 0.0) << "a cancelled prompt keeps the value";
    EXPECT_EQ(state.RMinusFreq, 1) << "and so does a frequency of 0";
    EXPECT_EQ(state.R0Freq, 1);
    EXPECT_EQ(state.MnBdry, 4);
    EXPECT_EQ(state.NSelected, 2);
    EXPECT_EQ(controls.lblPressurePlot->text(), "P / (Rho^Gamma)");
    EXPECT_EQ(state.TStop, 1.5);

    panel.Press("cmdBegin");
    ASSERT_TRUE(panel.RunToEnd());
    EXPECT_GE(state.Time, 1.5);
    EXPECT_GT(state.RMinusMax, state.RMinusMin);
}

TEST_F(PanelSetUp, LeavesTheProblemStandingWhereNoSuchWaveIsPossible) {
    const auto before = Fields();
    const QString caption = controls.lblDensityPlot->text();
    // The last one is cancelled at once: nothing more is asked, though the former amplitude stands.
    state.RPlusAmp = 0.01;
    for (const BoxAnswers::Answer& answer : {BoxAnswers::Answer("100"), BoxAnswers::Answer()}) {
        const std::size_t asked = Ask("cmdSoundWave", {answer}).size();
        EXPECT_EQ(asked, answer ? 7U : 1U);
        EXPECT_EQ(state.SoundWaveMode, 0);
        EXPECT_EQ(state.MnBdry, 1);
        EXPECT_EQ(state.RPlusAmp, 0.01);
        EXPECT_EQ(Fields(), before);
        EXPECT_EQ(controls.lblDensityPlot->text(), caption);
    }
}

TEST_F(PanelSetUp, AsksForOptions) {
    const auto boundaries = [&](int mn, int mx) {
        return [=, this] { return state.MnBdry == mn && state.MxBdry == mx; };
    };
    const auto scheme = [&](const char* name, int meter) {
        return [=, this] { return state.SchemeName == name && state.MeterOn == meter; };
    };
    const auto constants = [&] {
        return state.difcon == 0.1 && state.shkjmp == 0.2 && state.wavhaf == 2.0;
    };
    const auto title = [&] { return controls.lblStudentID->text() == "Waves & <b>walls</b>"; };
    // clang-format off
    const struct {
        const char* button; std::deque<BoxAnswers::Answer> answers; std::size_t boxes; std::function<bool()> holds;
    } rows[] = {
        {"cmdBoundaryConditionType", {"4"},                          1, boundaries(4, 4)},
        {"cmdBoundaryConditionType", {"2", "7"},                     2, boundaries(2, 7)},
        {"cmdBoundaryConditionType", {std::nullopt, "x"},            2, boundaries(2, 7)},
        {"cmdNumericalScheme",       {"Heron32", "7"},               2, scheme("Heron32", 1)},
        {"cmdNumericalScheme",       {"kestrel", "Plover", "-3"},    3, scheme("Plover", 0)},
        {"cmdNumericalScheme",       {std::nullopt, std::nullopt},   2, scheme("Plover", 0)},
        {"cmdNumericalScheme",       {"a", "b", "0"},                3, scheme("b", 0)},
        {"cmdGetDiffConsts",         {"0.1", "", "2"},               3, constants},
        {"cmdGetTitle",              {"Waves & <b>walls</b>"},       1, title},
        {"cmdDocumentation",         {},                             1, title},
    };
    // clang-format on
    for (const auto& row : rows) {
        EXPECT_EQ(Ask(row.button, row.answers).size(), row.boxes) << row.button;
        EXPECT_TRUE(row.holds()) << row.button;
    }
    panel.Press("cmdTest1");
    EXPECT_TRUE(title()) << "a title stays";
}

TEST_F(PanelSetUp, MetersARunFromItsFirstStep) {
    Ask("cmdNumericalScheme", {"Kestrel32", "1"});
    Begin();
    panel.Tick();
    EXPECT_EQ(controls.cmdTest1->text(), "Mflop/s");
    EXPECT_GT(controls.cmdTest2->text().toInt(), 0);
    EXPECT_EQ(controls.cmdTest6->text(), "flops /");
    EXPECT_EQ(controls.cmdTest7->text(), "cell =");
    EXPECT_TRUE(controls.lblStudentID->text().startsWith(
        "flops / cell = " + controls.cmdTest8->text() + ",    adds"));
    EXPECT_GT(state.TotalMflop, 0.0);
    panel.Press("cmdRestart");
    EXPECT_EQ(state.TotalMflop + state.TotalSeconds, 0.0);
    EXPECT_EQ(controls.cmdTest1->text(), "Mflop/s") << "the last figures stay";
}

TEST_F(PanelSetUp, LaysCurvesOverOneAnotherOnRequest) {
    const auto ink = [&] {
        const QImage& image = controls.pctPressurePlot->Image();
        return PixelsWhere(image, [&](int x, int y) { return qGray(image.pixel(x, y)) == 0; })
            .Count;
    };
    panel.Type("txtMSelected", "100");
    const auto single = ink();
    panel.Press("cmdMultiplePlots");
    panel.Type("txtMSelected", "250");
    const auto laidOver = ink();
    EXPECT_GT(laidOver, single) << "the old mark stays";
    panel.Press("cmdSinglePlots");
    EXPECT_LT(ink(), laidOver);
}

// A replay paints many times and draws once: the plots end up as one fresh paint leaves them.
TEST_F(PanelSetUp, ShowsAfterAReplayWhatAFreshPaintShows) {
    const auto expectFresh = [&](const char* after) {
        const std::array<Surface*, 3> plots = {controls.pctDensityPlot, controls.pctPressurePlot,
                                               controls.pctVelocityPlot};
        std::vector<QImage> shown;
        for (Surface* plot : plots) shown.push_back(plot->Image().copy());
        ClearAndPaintPlots(state, panel.Form().controls);
        for (std::size_t k = 0; k < plots.size(); ++k) {
            EXPECT_TRUE(shown[k] == plots[k]->Image()) << after << ", plot " << k;
        }
    };
    panel.Type("txtNGridCells", "100");
    expectFresh("another grid");
    Enter(50, "2", "3", "-1");
    panel.Press("cmdMultiplePlots");
    panel.Type("txtMSelected", "20");
    panel.Press("cmdReset");
    expectFresh("Reset over plots laid over one another");
    EXPECT_FALSE(controls.pctDensityPlot->IsUnseen());
}

// The test writes the grid size over the refused one, which lays the wave anew in its place.
TEST_F(PanelSetUp, KeepsTheClockWhenAWaveTakesThePlaceOfATest) {
    Ask("cmdSoundWave", {"0.01"});
    panel.Type("txtNGridCells", "4");
    panel.Press("cmdTest3");
    EXPECT_NEAR(state.PeriodTime, 1.0, 0.02) << "the time in which the wave crosses the grid";
    EXPECT_EQ(state.PlotInterval, state.PeriodTime / state.NPlotsPerPeriod);
}

// A cell number that was refused on a smaller grid can still stand in the box.
TEST_F(PanelSetUp, SelectsTheSelectedCellWhateverTheBoxHolds) {
    controls.txtNGridCells->setText("200");
    Ask("cmdSoundWave", {"0.01"});
    controls.txtMSelected->setText("200");
    controls.txtMSelected->setText("300");
    controls.txtNGridCells->setText("400");
    panel.Press("cmdSelect");
    EXPECT_EQ(state.MSelected, 200);
}

// 10 cells on the way to 1000 are too coarse for it.
TEST_F(PanelSetUp, BringsALargeWaveBackOnAFinerGrid) {
    Ask("cmdSoundWave", {"3"});
    panel.Type("txtNGridCells", "10");
    EXPECT_EQ(state.Rho[3], 1.0);
    panel.Type("txtNGridCells", "1000");
    EXPECT_EQ(state.RPlusAmp, 3.0);
    EXPECT_GT(state.RhoMax, 1.1);
}

TEST_F(PanelSetUp, AsksWordForWord) {
    const QString boundary = " boundary condition type:  4=periodic, 1=reflecting, 2=continuation";
    const QString scheme =
        "Type the name of the numerical scheme.  Choose from:  Kestrel (64-bit), Kestrel32, "
        "Heron32, or Plover (32-bit).";
    const QString harmonics = "  (1 = fundamental,  2 = first harmonic, etc.):";
    const QString guide =
        "The documentation for this utility program is contained in the file\n"
        "Ternlow-Users-Guide-9-1-01.doc\n"
        "It is also available on the Web: press F1, or open " +
        GuideAddress() + "\nREAD IT!!";
    // clang-format off
    const struct { const char* button; std::vector<BoxAnswers::Box> boxes; } rows[] = {
        {"cmdBoundaryConditionType", {{"Get MnBdry", "Type the value of the left" + boundary, "1"},
                                      {"Get MxBdry", "Type the value of the right" + boundary, "1"}}},
        {"cmdNumericalScheme", {{"Specify Scheme", scheme, "Kestrel"},
                                {"Type 1 for Mflop/s metering,  0 to run without this overhead:",
                                 "Do you want the meagflop/s meter to be turned on?", "0"}}},
        {"cmdGetDiffConsts", {{"Get difcon", "Type the value of the PPM shock diffusion constant, difcon", "0.3"},
                              {"Get shkjmp", "Type the value of the PPM shock detection constant, shkjmp", "0.2"},
                              {"Get wavhaf", "Type the value of the PPM shock diffusion constant, wavhaf", "1"}}},
        {"cmdGetTitle", {{"Get ID and Title", "Enter your name, the date, and a title for this experiment:", ""}}},
        {"cmdDocumentation", {{panel.Form().windowTitle(), guide, ""}}},
        {"cmdSoundWave", {{"Get R+ Amplitude", "Type the amplitude of the R+ Riemann invariant", "1"},
                          {"Get R+ Frequency", "Type the frequency of the R+ Riemann invariant" + harmonics, "1"},
                          {"Get R- Amplitude", "Type the amplitude of the R- Riemann invariant", "0"},
                          {"Get R- Frequency", "Type the frequency of the R- Riemann invariant" + harmonics, "1"},
                          {"Get R0 Amplitude", "Type the amplitude of the R0 Riemann invariant", "0"},
                          {"Get R0 Frequency", "Type the frequency of the R0 Riemann invariant" + harmonics, "1"},
                          {"Get U0 Value", "Type the average velocity", "-1"}}},
    };
    // clang-format on
    for (const auto& row : rows) {
        const auto seen = Ask(row.button);
        ASSERT_EQ(seen.size(), row.boxes.size()) << row.button;
        for (std::size_t k = 0; k < row.boxes.size(); ++k) {
            EXPECT_EQ(seen[k].Title, row.boxes[k].Title);
            EXPECT_EQ(seen[k].Message, row.boxes[k].Message);
            EXPECT_EQ(seen[k].Default, row.boxes[k].Default);
        }
    }
}

// The largest grid with the largest store wants 320 MB beside what is there.
TEST_F(PanelSetUp, RefusesWhatFindsNoMemoryAndKeepsTheExperiment) {
    panel.Type("txtNPlotsPerPeriod", "1333");
    panel.Press("cmdTest1");
    const auto before = Fields();
    rlimit former{};
    getrlimit(RLIMIT_AS, &former);
    std::ifstream used("/proc/self/statm");
    rlim_t pages = 0;
    used >> pages;
    const rlimit tight{pages * static_cast<rlim_t>(getpagesize()) + (200U << 20), former.rlim_max};
    setrlimit(RLIMIT_AS, &tight);
    controls.txtNGridCells->setText("5001");
    EXPECT_EQ(Fields(), before);
    EXPECT_TRUE(controls.lblStudentID->text().contains(
        "not enough memory for 5001 cells and 2000 stored states"))
        << qPrintable(controls.lblStudentID->text());
    controls.txtNGridCells->setText("1000");
    EXPECT_EQ(state.NGridCells, 1000);
    EXPECT_FALSE(controls.lblStudentID->text().contains("memory"));
    panel.Press("cmdTest1");
    panel.Press("cmdBegin");
    EXPECT_TRUE(panel.Tick(3));
    setrlimit(RLIMIT_AS, &former);
}
