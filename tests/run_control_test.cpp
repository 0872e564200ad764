#include "panel/run/run_control.h"

#include <QRegularExpression>
#include <cmath>
#include <functional>
#include <memory>
#include <vector>

#include "core/run/state_store.h"
#include "core/setup/riemann_problem.h"
#include "panel/run/metronome.h"
#include "panel_test.h"

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

// Does with a control what a user does with it; says whether the panel took it.
using Check = std::function<bool(Panel&, const char* name)>;

struct LockRow {
    const char* Name;
    bool NeedsStop;
    bool NeedsTimeZero;
    Check IsAccepted;
};

using State = ExperimentState;
using Condition = bool (*)(const State&);

bool Asks(Panel& panel, const char* button) {
    const BoxAnswers answers;
    panel.Press(button);
    return !answers.Seen().empty();
}

// Presses with a cell selected.
Check Pressed(Condition wasAccepted, const char* cell = "400") {
    return [=](Panel& panel, const char* button) {
        panel.Type("txtMSelected", cell);
        panel.Press(button);
        return wasAccepted(panel.Form().state);
    };
}

Check Typed(const QString& text, const char* refused) {
    return [=](Panel& panel, const char* box) {
        panel.Type(box, text);
        const QString shown = panel.Form().findChild<QLineEdit*>(box)->text();
        EXPECT_TRUE(shown == text || shown == refused) << box;
        return shown == text;
    };
}

bool TakesInterval(Panel& panel, const char* box) {
    panel.Type(box, "9");
    return panel.Form().state.MSec == 9;
}

bool BeginsAnew(Panel& panel, const char* button) {
    panel.Form().state.NStored = 7;
    panel.Press(button);
    return panel.Form().state.NStored == 1;
}

bool FollowsItsBox(Panel& panel, const char* /*bar*/) {
    panel.Form().controls.hsbDensity->setValue(0);
    panel.Type("txtDensity", "0.125");
    EXPECT_EQ(panel.Form().state.RhoSel, 0.125);
    return panel.Form().controls.hsbDensity->value() < -5000;
}

// clang-format off
const LockRow LockTable[] = {
    {"cmdBoundaryConditionType", true, true, Asks},
    {"cmdGetDiffConsts",   true,  true,  Asks},
    {"cmdNumericalScheme", true,  true,  Asks},
    {"cmdSoundWave",       true,  true,  Asks},
    {"cmdGetTitle",        false, false, Asks},
    {"cmdDocumentation",   false, false, Asks},
    {"txtNGridCells",      true,  true,  Typed("50", "400")},
    {"txtNPeriods",        true,  true,  Typed("3.5", "1.5")},
    {"txtNPlotsPerPeriod", true,  true,  Typed("77", "400")},
    {"txtCourantNumber",   true,  false, Typed("0.5", "0.85")},
    {"txtMSec",            false, false, TakesInterval},
    {"cmdBegin",           false, true,  BeginsAnew},
    {"cmdSelect",          true,  true,  Pressed([](const State& s) { return s.NSelected == 5; }, "77")},
    {"cmdDeselect",        false, false, Pressed([](const State& s) { return s.NSelected == 3; }, "121")},
    {"cmdReset",           true,  true,  Pressed([](const State& s) { return s.NSelected == 2; })},
    {"cmdTest7",           false, false, Pressed([](const State& s) { return s.TStop == 2.0; })},
    {"cmdPause",           false, false, Pressed([](const State& s) { return s.Stopped == 1; })},
    {"cmdRestart",         false, false, Pressed([](const State& s) { return s.Stopped == 1 && s.Time == 0.0; })},
    {"hsbDensity",         true,  false, FollowsItsBox},
};
// clang-format on

using RunControl = PanelTest;

}  // namespace

TEST_F(RunControl, LocksEachControlAtItsStages) {
    for (const Stage stage : {Stage::SetUp, Stage::Begun, Stage::Running, Stage::Paused}) {
        const bool isStopped = stage == Stage::SetUp || stage == Stage::Paused;
        const bool isAtTimeZero = stage == Stage::SetUp || stage == Stage::Begun;
        for (const LockRow& row : LockTable) {
            const auto own = At(stage);
            const bool isOpen =
                (isStopped || !row.NeedsStop) && (isAtTimeZero || !row.NeedsTimeZero);
            EXPECT_EQ(row.IsAccepted(*own, row.Name), isOpen)
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
    Begin();
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

// Whatever a user does after a run has come to a halt, a title is not lost to the message.
TEST_F(RunControl, PutsTheTitleBackAfterAHalt) {
    const std::pair<const char*, const char*> rows[] = {
        {"cmdTest1", "cmdRestart"},    {"cmdTest1", "cmdBegin"},
        {"cmdTest1", "cmdContinue"},   {"cmdTest1", "cmdTest2"},
        {"cmdTest1", "cmdSoundWave"},  {"cmdTest1", "cmdGetTitle"},
        {"cmdTest1", "txtNGridCells"}, {"cmdSoundWave", "txtNGridCells"}};
    for (const auto& [setUp, next] : rows) {
        SCOPED_TRACE(testing::Message() << setUp << ", " << next);
        Panel own;
        const QLabel* caption = own.Form().controls.lblStudentID;
        const BoxAnswers answers({"Waves", "0.01"});
        own.Press("cmdGetTitle");
        own.Press(setUp);
        own.Press("cmdBegin");
        own.Form().state.SchemeName = "Osp\xFFrey";  // with a byte that no label can show
        ASSERT_FALSE(own.Tick());
        ASSERT_TRUE(caption->text().contains(
            QRegularExpression("^The run has stopped: .*no scheme \"Osp.*rey\"")))
            << qPrintable(caption->text());
        if (QString(next) == "txtNGridCells") {
            own.Type(next, "200");
        } else {
            own.Press(next);
        }
        const char* title = QString(next) == "cmdGetTitle" ? "0.01" : "Waves";
        EXPECT_EQ(caption->text(), title);
        own.Press("cmdRestart");
        EXPECT_EQ(caption->text(), title);
    }
}

// A sound wave takes no snapshot, so that after a change of grid the stored state 0 is empty.
TEST_F(RunControl, RestartsFromTheFieldsWhereNothingIsStored) {
    Ask("cmdSoundWave", {"0.01"});
    panel.Type("txtNGridCells", "100");
    ASSERT_FALSE(IsStored(state, 0));
    const double rho = state.Rho[25];
    panel.Press("cmdRestart");
    EXPECT_EQ(state.Rho[25], rho);
    EXPECT_EQ(state.NStored, 1);
    EXPECT_TRUE(IsStored(state, 0));
}

// More plots than there are times, or none at all, or half a plot over: the run goes on, the store
// stays whole.
TEST_F(RunControl, KeepsTheStoreWholeForAnyNumberOfPlots) {
    const struct {
        const char *plots, *periods;
        int states;
    } rows[] = {{"100000", "40000", 2002}, {"1", "0.5", 1}, {"5", "0.5", 2}};
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
            Begin(qPrintable(QString("cmdTest%1").arg(test)));
            ASSERT_TRUE(panel.RunToEnd());
            EXPECT_GE(state.Time, RiemannTests[static_cast<std::size_t>(test - 1)].TStop);
            ASSERT_EQ(BrokenPromise(panel.Form()), "");
        }
    }
}

// After Restart the panel stands as it did before the run, whatever was browsed and typed
// meanwhile.
TEST_F(RunControl, RestoresThePanel) {
    Begin();
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
