#include "panel/run_control.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <cmath>
#include <functional>
#include <memory>
#include <vector>

#include "integration/state_store.h"
#include "panel/main_window.h"
#include "panel_driver.h"
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

LockRow Typing(const char* box, const char* text, bool needsTimeZero, const char* shownIfRefused) {
    const QString typed = text;
    return {box, true, needsTimeZero, [=](Panel& panel) { panel.Type(box, typed); },
            [=](Panel& panel) {
                const QString shown = panel.Form().findChild<QLineEdit*>(box)->text();
                EXPECT_TRUE(shown == typed || shown == shownIfRefused) << box;
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
    const auto press = [](const char* button) {
        return [=](Panel& panel) { panel.Press(button); };
    };
    return {
        {"cmdBegin", false, true,
         [](Panel& panel) {
             panel.Form().state.NStored = 7;
             panel.Press("cmdBegin");
         },
         [](Panel& panel) { return panel.Form().state.NStored == 1; }},
        Asking("cmdBoundaryConditionType", true),
        Asking("cmdGetDiffConsts", true),
        Asking("cmdNumericalScheme", true),
        Asking("cmdSoundWave", true),
        Asking("cmdGetTitle", false),
        Asking("cmdDocumentation", false),
        {"cmdSelect", true, true,
         [](Panel& panel) {
             panel.Type("txtMSelected", "77");
             panel.Press("cmdSelect");
         },
         [](Panel& panel) { return panel.Form().state.NSelected == 5; }},
        {"cmdReset", true, true, press("cmdReset"),
         [](Panel& panel) { return panel.Form().state.NSelected == 2; }},
        {"cmdDeselect", false, false,
         [](Panel& panel) {
             panel.Type("txtMSelected", "121");
             panel.Press("cmdDeselect");
         },
         [](Panel& panel) { return panel.Form().state.NSelected == 3; }},
        Typing("txtNGridCells", "50", true, "400"),
        Typing("txtNPeriods", "3.5", true, "1.5"),
        Typing("txtNPlotsPerPeriod", "77", true, "400"),
        Typing("txtCourantNumber", "0.5", false, "0.85"),
        {"hsbDensity", true, false,
         [](Panel& panel) {
             panel.Form().controls.hsbDensity->setValue(0);
             panel.Type("txtDensity", "0.125");
         },
         [](Panel& panel) {
             EXPECT_EQ(panel.Form().state.RhoSel, 0.125);
             return panel.Form().controls.hsbDensity->value() < -5000;
         }},
        {"txtMSec", false, false, [](Panel& panel) { panel.Type("txtMSec", "9"); },
         [](Panel& panel) { return panel.Form().state.MSec == 9; }},
        {"cmdTest7", false, false, press("cmdTest7"),
         [](Panel& panel) { return panel.Form().state.TStop == 2.0; }},
        {"cmdPause", false, false, press("cmdPause"),
         [](Panel& panel) { return panel.Form().state.Stopped == 1; }},
        {"cmdRestart", false, false, press("cmdRestart"),
         [](Panel& panel) {
             return panel.Form().state.Stopped == 1 && panel.Form().state.Time == 0.0;
         }},
    };
}

}  // namespace

TEST(RunControl, LocksEachControlAtItsStages) {
    for (const Stage stage : {Stage::SetUp, Stage::Begun, Stage::Running, Stage::Paused}) {
        const bool isStopped = stage == Stage::SetUp || stage == Stage::Paused;
        const bool isAtTimeZero = stage == Stage::SetUp || stage == Stage::Begun;
        for (const LockRow& row : LockTable()) {
            const auto panel = At(stage);
            row.Act(*panel);
            const bool isOpen =
                (isStopped || !row.NeedsStop) && (isAtTimeZero || !row.NeedsTimeZero);
            EXPECT_EQ(row.WasAccepted(*panel), isOpen)
                << row.Name << " at stage " << static_cast<int>(stage);
        }
    }
}

TEST(RunControl, RunsAShockTubeToItsStopAndBack) {
    Panel panel;
    ExperimentState& state = panel.Form().state;
    const Controls& controls = panel.Form().controls;
    panel.Press("cmdTest1");
    EXPECT_FALSE(panel.Tick()) << "nothing runs before Begin";
    panel.Press("cmdBegin");
    EXPECT_EQ(controls.cmdNumericalScheme->text(), "Kestrel");
    EXPECT_EQ(state.NStored, 1);
    ASSERT_TRUE(panel.RunToEnd());
    EXPECT_GE(state.Time, 0.2);
    EXPECT_LT(state.Time, 0.2 + 2.0 * state.PlotInterval);
    EXPECT_EQ(state.NStored, 96);  // the initial state and 95 plot times of 1/400 of a period
    EXPECT_EQ(controls.vsbStoredStateNumber->maximum(), 95);
    EXPECT_EQ(controls.txtStoredStateNumber->text(), "95");
    for (int s = 1; s < state.NStored; ++s) EXPECT_GT(state.StoredT[s], state.StoredT[s - 1]);

    panel.Press("cmdRestart");
    EXPECT_EQ(state.Time, 0.0);
    EXPECT_EQ(state.NStored, 1);
    EXPECT_NEAR(state.DTime, 0.085 * 0.0025 / (0.75 + std::sqrt(1.4)), 1e-12);
    EXPECT_EQ(controls.txtTime->text(), "t=0.0");
    for (int i = 1; i <= 400; ++i) {
        ASSERT_EQ(state.Rho[i], i <= 120 ? 1.0 : 0.125);
        ASSERT_EQ(state.P[i], i <= 120 ? 1.0 : static_cast<double>(0.1F));  // as it was stored
    }
}

TEST(RunControl, ContinuesFromTheLastStoredState) {
    Panel panel;
    ExperimentState& state = panel.Form().state;
    const Controls& controls = panel.Form().controls;
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

TEST(RunControl, StopsARunThatNoSchemeCanAdvance) {
    Panel panel;
    ExperimentState& state = panel.Form().state;
    panel.Press("cmdTest1");
    state.SchemeName = "Osprey";
    panel.Press("cmdBegin");
    EXPECT_FALSE(panel.Tick());
    EXPECT_EQ(state.Time, 0.0);
    EXPECT_EQ(state.Rho[120], 1.0);
    EXPECT_EQ(state.Rho[121], 0.125);
}

// A sound wave takes no snapshot, so that after a change of grid the stored state 0 is empty.
TEST(RunControl, RestartsFromTheFieldsWhereNothingIsStored) {
    Panel panel;
    ExperimentState& state = panel.Form().state;
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
TEST(RunControl, KeepsTheStoreWholeForAnyNumberOfPlots) {
    const struct {
        const char* plots;
        const char* periods;
        int capacity;
    } rows[] = {{"100000", "40000", 402 * 2002}, {"1", "0.2", 402}};
    for (const auto& row : rows) {
        Panel panel;
        panel.Press("cmdTest1");
        panel.Type("txtNPlotsPerPeriod", row.plots);
        panel.Type("txtNPeriods", row.periods);
        EXPECT_EQ(panel.Form().state.StoreCapacity, row.capacity);
        panel.Press("cmdBegin");
        panel.Tick(200);
        EXPECT_LE(panel.Form().state.NStored, row.capacity / 402);
        EXPECT_GT(panel.Form().state.Time, 0.0);
    }
}

TEST(RunControl, RunsEveryTestWithEveryScheme) {
    for (const char* scheme : {"Kestrel", "Kestrel32", "Heron32", "Plover"}) {
        for (int test = 1; test <= 8; ++test) {
            SCOPED_TRACE(testing::Message() << scheme << ", test " << test);
            Panel panel;
            ExperimentState& state = panel.Form().state;
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
