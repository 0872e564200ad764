#include "panel/run_control.h"

#include <cmath>
#include <functional>
#include <memory>
#include <vector>

#include "integration/metronome.h"
#include "integration/state_store.h"
#include "panel_test.h"
#include "setup/riemann_problem.h"

namespace {

// The stages of an experiment that its locks know.
enum class Stage { SetUp, Begun, Running, Paused };

std::unique_ptr<Panel> At(Stage stage) {
    auto panel = std::make_unique<Panel>();
    panel->Press("cmdTest1");
    if (stage != Stage::SetUp) panel->Press("cmdBegin");
    if (stage == Stage::Running || stage == Stage::Paused) panel->Tick(3);
    if (stage == Stage::Paused) panel->Press("cmdPause");
    return panel;
}

// One control of the lock table: what a user does there, and what shows whether it was accepted.
struct LockRow {
    const char* Name;
    bool NeedsStop;
    bool NeedsTimeZero;
    std::function<void(Panel&)> Act;
    std::function<bool(Panel&)> WasAccepted;
};

using Action = std::function<void(Panel&)>;

Action Press(const char* button) {
    return [=](Panel& panel) { panel.Press(button); };
}

// Presses a button with a cell selected.
Action PressAt(const char* cell, const char* button) {
    return [=](Panel& panel) {
        panel.Type("txtMSelected", cell);
        panel.Press(button);
    };
}

LockRow Pressing(const char* button, bool needsStop, bool needsTimeZero, const Action& act,
                 std::function<bool(const ExperimentState&)> wasAccepted) {
    return {button, needsStop, needsTimeZero, act,
            [=](Panel& panel) { return wasAccepted(panel.Form().state); }};
}

LockRow Typing(const char* box, const QString& typed, bool needsTimeZero, const char* refused) {
    return {box, true, needsTimeZero, [=](Panel& panel) { panel.Type(box, typed); },
            [=](Panel& panel) {
                const QString shown = panel.Form().findChild<QLineEdit*>(box)->text();
                EXPECT_TRUE(shown == typed || shown == refused) << box;
                return shown == typed;
            }};
}

LockRow Asking(const char* button, bool needsStopAndTimeZero) {
    auto boxes = std::make_shared<std::size_t>();
    return {button, needsStopAndTimeZero, needsStopAndTimeZero,
            [=](Panel& panel) {
                const BoxAnswers answers;
                panel.Press(button);
                *boxes = answers.Seen().size();
            },
            [=](Panel&) { return *boxes > 0; }};
}

std::vector<LockRow> LockTable() {
    using State = ExperimentState;
    const Action beginAnew = [](Panel& panel) {
        panel.Form().state.NStored = 7;
        panel.Press("cmdBegin");
    };
    const Action moveBar = [](Panel& panel) {
        panel.Form().controls.hsbDensity->setValue(0);
        panel.Type("txtDensity", "0.125");
        EXPECT_EQ(panel.Form().state.RhoSel, 0.125);
    };
    const auto barFollowed = [](Panel& panel) {
        return panel.Form().controls.hsbDensity->value() < -5000;
    };
    const Action typeInterval = [](Panel& panel) { panel.Type("txtMSec", "9"); };
    // clang-format off
    return {
        Asking("cmdBoundaryConditionType", true),
        Asking("cmdGetDiffConsts",         true),
        Asking("cmdNumericalScheme",       true),
        Asking("cmdSoundWave",             true),
        Asking("cmdGetTitle",              false),
        Asking("cmdDocumentation",         false),
        Typing("txtNGridCells",      "50",  true,  "400"),
        Typing("txtNPeriods",        "3.5", true,  "1.5"),
        Typing("txtNPlotsPerPeriod", "77",  true,  "400"),
        Typing("txtCourantNumber",   "0.5", false, "0.85"),
        Pressing("cmdBegin",    false, true,  beginAnew,                     [](const State& s) { return s.NStored == 1; }),
        Pressing("cmdSelect",   true,  true,  PressAt("77", "cmdSelect"),    [](const State& s) { return s.NSelected == 5; }),
        Pressing("cmdReset",    true,  true,  Press("cmdReset"),             [](const State& s) { return s.NSelected == 2; }),
        Pressing("cmdDeselect", false, false, PressAt("121", "cmdDeselect"), [](const State& s) { return s.NSelected == 3; }),
        Pressing("cmdTest7",    false, false, Press("cmdTest7"),             [](const State& s) { return s.TStop == 2.0; }),
        Pressing("cmdPause",    false, false, Press("cmdPause"),             [](const State& s) { return s.Stopped == 1; }),
        Pressing("cmdRestart",  false, false, Press("cmdRestart"),           [](const State& s) { return s.Stopped == 1 && s.Time == 0.0; }),
        Pressing("txtMSec",     false, false, typeInterval,                  [](const State& s) { return s.MSec == 9; }),
        {"hsbDensity", true, false, moveBar, barFollowed},
    };
    // clang-format on
}

using RunControl = PanelTest;

}  // namespace

TEST_F(RunControl, LocksEachControlAtItsStages) {
    for (const Stage stage : {Stage::SetUp, Stage::Begun, Stage::Running, Stage::Paused}) {
        const bool isStopped = stage == Stage::SetUp || stage == Stage::Paused;
        const bool isAtTimeZero = stage == Stage::SetUp || stage == Stage::Begun;
        for (const LockRow& row : LockTable()) {
            const auto own = At(stage);
            row.Act(*own);
            const bool isOpen =
                (isStopped || !row.NeedsStop) && (isAtTimeZero || !row.NeedsTimeZero);
            EXPECT_EQ(row.WasAccepted(*own), isOpen)
                << row.Name << " at stage " << static_cast<int>(stage);
        }
    }
}

TEST_F(RunControl, RunsAShockTubeToItsStopAndBack) {
    panel.Press("cmdTest1");
    state.Ux[7] = 0.123;
    tmrMetronome_Timer(state, panel.Form().controls);
    EXPECT_EQ(state.Time, 0.0) << "nothing runs before Begin";
    state.Ux[7] = 0.75;
    panel.Press("cmdBegin");
    EXPECT_EQ(controls.cmdNumericalScheme->text(), "Kestrel");
    EXPECT_EQ(state.NStored, 1);
    ASSERT_TRUE(panel.RunToEnd());
    EXPECT_GE(state.Time, 0.2);
    EXPECT_LT(state.Time, 0.2 + 2.0 * state.PlotInterval);
    EXPECT_EQ(state.NStored, 96);  // the initial state and 95 plot times of 1/400 of a period
    EXPECT_EQ(controls.vsbStoredStateNumber->maximum(), 95);
    EXPECT_EQ(Text("txtStoredStateNumber"), "95");
    for (int s = 1; s < state.NStored; ++s) EXPECT_GT(state.StoredT[s], state.StoredT[s - 1]);

    panel.Press("cmdRestart");
    EXPECT_EQ(state.Time, 0.0);
    EXPECT_EQ(state.NStored, 1);
    EXPECT_NEAR(state.DTime, 0.085 * 0.0025 / (0.75 + std::sqrt(1.4)), 1e-12);
    EXPECT_EQ(Text("txtTime"), "t=0.0");
    for (int i = 1; i <= 400; ++i) {
        ASSERT_EQ(state.Rho[i], i <= 120 ? 1.0 : 0.125);
        ASSERT_EQ(state.P[i], i <= 120 ? 1.0 : static_cast<double>(0.1F));  // as it was stored
    }
}

TEST_F(RunControl, ContinuesFromTheLastStoredState) {
    panel.Press("cmdContinue");
    EXPECT_EQ(state.Stopped, 1) << "nothing is stored yet";
    panel.Press("cmdTest1");
    panel.Press("cmdBegin");
    panel.Tick(5);
    panel.Press("cmdPause");
    const int last = state.NStored - 1;
    const double pausedAt = state.Time;
    const double rho = state.SRho[402 * last + 150];

    // Without browsing the fields go on from where they were; only the clock goes back.
    const double live = state.Rho[150];
    panel.Press("cmdContinue");
    EXPECT_EQ(state.Stopped, 0);
    EXPECT_EQ(state.Time, state.StoredT[last]);
    EXPECT_LE(state.Time, pausedAt);
    EXPECT_EQ(state.Rho[150], live);

    panel.Press("cmdPause");
    panel.Type("txtStoredStateNumber", "1");
    EXPECT_EQ(state.StoredStateNumber, 1);
    EXPECT_EQ(controls.vsbStoredStateNumber->value(), 1);
    panel.Press("cmdContinue");
    EXPECT_EQ(state.Rho[150], rho) << "the last state is loaded after browsing";
    EXPECT_EQ(state.NStored, last + 1);
    EXPECT_TRUE(panel.RunToEnd());
    panel.Press("cmdContinue");
    EXPECT_TRUE(panel.RunToEnd()) << "a finished run goes to the next plot time and stops again";
}

TEST_F(RunControl, StopsARunThatNoSchemeCanAdvance) {
    panel.Press("cmdTest1");
    state.SchemeName = "Osprey";
    panel.Press("cmdBegin");
    EXPECT_FALSE(panel.Tick());
    EXPECT_EQ(state.Time, 0.0);
    EXPECT_EQ(state.Rho[120], 1.0);
    EXPECT_EQ(state.Rho[121], 0.125);
    const QLabel* said = panel.Form().controls.lblStudentID;
    EXPECT_TRUE(said->text().contains("no scheme \"Osprey\"")) << qPrintable(said->text());

    state.SchemeName = "Kestrel";
    panel.Press("cmdBegin");
    EXPECT_TRUE(said->text().startsWith("RhoL = 1.0,")) << qPrintable(said->text());
    state.Ux[200] = std::nan("");
    EXPECT_FALSE(panel.Tick());
    EXPECT_TRUE(said->text().contains("can take no step")) << qPrintable(said->text());
}

// Whatever a user does after a run has come to a halt, a title is not lost to the message.
TEST_F(RunControl, PutsTheTitleBackAfterAHalt) {
    for (const char* next :
         {"cmdRestart", "cmdBegin", "cmdContinue", "cmdTest2", "cmdSoundWave", "cmdGetTitle"}) {
        Panel own;
        const QLabel* caption = own.Form().controls.lblStudentID;
        {
            const BoxAnswers answers({"Waves"});
            own.Press("cmdGetTitle");
        }
        own.Press("cmdTest1");
        own.Press("cmdBegin");
        own.Form().state.SchemeName = "Osp\xFFrey";  // with a byte that no label can show
        ASSERT_FALSE(own.Tick());
        ASSERT_TRUE(caption->text().startsWith("The run has stopped"))
            << qPrintable(caption->text());
        const BoxAnswers more({"A title of 1"});
        own.Press(next);
        const bool isNewTitle = std::string(next) == "cmdGetTitle";
        EXPECT_EQ(caption->text(), isNewTitle ? "A title of 1" : "Waves") << next;
        own.Press("cmdRestart");
        EXPECT_EQ(caption->text(), isNewTitle ? "A title of 1" : "Waves") << next;
    }
}

TEST_F(RunControl, PutsTheTitleBackAtAChangeOfGrid) {
    const BoxAnswers answers({"Waves", "0.01"});
    panel.Press("cmdGetTitle");
    const QLabel* caption = controls.lblStudentID;
    for (const char* setUp : {"cmdTest1", "cmdSoundWave"}) {
        panel.Press(setUp);
        state.SchemeName = "Osprey";
        panel.Press("cmdBegin");
        ASSERT_FALSE(panel.Tick());
        ASSERT_NE(caption->text(), "Waves");
        controls.txtNGridCells->setText(QString::number(state.NGridCells / 2));
        EXPECT_EQ(caption->text(), "Waves") << setUp;
    }
}

// A sound wave takes no snapshot, so that after a change of grid the stored state 0 is empty.
TEST_F(RunControl, RestartsFromTheFieldsWhereNothingIsStored) {
    const BoxAnswers answers({"0.01"});
    panel.Press("cmdSoundWave");
    panel.Type("txtNGridCells", "100");
    ASSERT_FALSE(IsStored(state, 0));
    const double rho = state.Rho[25];
    panel.Press("cmdRestart");
    EXPECT_EQ(state.Rho[25], rho);
    EXPECT_EQ(state.NStored, 1);
    EXPECT_TRUE(IsStored(state, 0));
}

// More plots than there are times, or none at all: the run goes on, the store stays whole.
TEST_F(RunControl, KeepsTheStoreWholeForAnyNumberOfPlots) {
    const struct {
        const char *plots, *periods;
        int states;
    } rows[] = {{"100000", "40000", 2002}, {"1", "0.2", 1}};
    for (const auto& row : rows) {
        panel.Press("cmdRestart");
        panel.Press("cmdTest1");
        panel.Type("txtNPlotsPerPeriod", row.plots);
        panel.Type("txtNPeriods", row.periods);
        EXPECT_EQ(state.StoreCapacity, 402 * row.states);
        panel.Press("cmdBegin");
        panel.Tick(200);
        EXPECT_LE(state.NStored, row.states);
        EXPECT_GT(state.Time, 0.0);
        panel.Press("cmdPause");
    }
}

TEST_F(RunControl, RunsEveryTestWithEveryScheme) {
    for (const char* scheme : {"Kestrel", "Kestrel32", "Heron32", "Plover"}) {
        for (int test = 1; test <= 8; ++test) {
            SCOPED_TRACE(testing::Message() << scheme << ", test " << test);
            panel.Press("cmdRestart");
            state.SchemeName = scheme;
            panel.Press(qPrintable(QString("cmdTest%1").arg(test)));
            panel.Press("cmdBegin");
            ASSERT_TRUE(panel.RunToEnd());
            EXPECT_GE(state.Time, RiemannTests[static_cast<std::size_t>(test - 1)].TStop);
            for (int i = 1; i <= 400; ++i) {
                ASSERT_TRUE(std::isfinite(state.Ux[i]) && std::isfinite(state.Uy[i])) << i;
                ASSERT_GT(state.Rho[i], 0.0) << i;
                ASSERT_GT(state.P[i], 0.0) << i;
            }
        }
    }
}

// After Restart the panel stands as it did before the run, whatever was browsed and typed
// meanwhile.
TEST_F(RunControl, RestoresThePanel) {
    panel.Press("cmdTest1");
    panel.Press("cmdBegin");
    panel.Tick(4);
    EXPECT_EQ(state.MultiplePlots, 0);
    state.MultiplePlots = 1;
    panel.Tick();
    EXPECT_EQ(state.MultiplePlots, 0) << "a tick goes back to single plots";
    panel.Press("cmdPause");
    const QImage unmarked = controls.pctDensityPlot->Image().copy();
    controls.vsbStoredStateNumber->setValue(2);
    controls.txtCourantNumber->setText("0.123456");
    panel.Press("cmdRestart");
    EXPECT_EQ(controls.vsbStoredStateNumber->value(), 0);
    EXPECT_EQ(controls.vsbStoredStateNumber->maximum(), 0);
    EXPECT_EQ(state.StoredStateNumber, 0);
    EXPECT_EQ(controls.txtCourantNumber->text(), "0.123");
    EXPECT_EQ(state.CourantNumber, 0.123) << "as it is shown";
    EXPECT_EQ(state.TimeToPlot, state.PlotInterval);
    EXPECT_NE(controls.pctDensityPlot->Image(), unmarked) << "the control points are marked again";
    const std::vector<double> rho(state.Rho.At(0), state.Rho.At(401));
    panel.Press("cmdRestart");
    EXPECT_EQ(std::vector<double>(state.Rho.At(0), state.Rho.At(401)), rho);
    panel.Press("cmdBegin");
    panel.Press("cmdPause");
    panel.Press("cmdBegin");
    EXPECT_TRUE(panel.Tick()) << "a pause before the first step is a set-up, and Begin begins anew";
}
