// The panel as a user has it, for the tests of what it does.
#pragma once

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <deque>
#include <vector>

#include "panel/widgets/surface.h"
#include "panel/window/main_window.h"
#include "panel_driver.h"
#include "panel_promises.h"

class PanelTest : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(BrokenPromise(panel.Form()), ""); }

    // The clock and the cells.
    std::vector<double> Fields() const {
        std::vector<double> all = {state.Time, state.DTime, state.TimeToPlot, state.TStop,
                                   state.PlotInterval};
        for (const auto* field :
             {&state.X, &state.Rho, &state.P, &state.Ux, &state.Uy, &state.FSmoke}) {
            all.insert(all.end(), field->At(1), field->At(state.NGridCells) + 1);
        }
        return all;
    }

    QString Text(const char* box) { return panel.Form().findChild<QLineEdit*>(box)->text(); }

    // Begins a run, with the problem of a button.
    void Begin(const char* setUp = "cmdTest1") {
        panel.Press(setUp);
        panel.Press("cmdBegin");
    }

    // Presses a button that asks; gives what its boxes showed.
    std::vector<BoxAnswers::Box> Ask(const char* button,
                                     const std::deque<BoxAnswers::Answer>& given = {}) {
        const BoxAnswers answers(given);
        panel.Press(button);
        return answers.Seen();
    }

    Panel panel;
    ExperimentState& state = panel.Form().state;
    const Controls& controls = panel.Form().controls;
};
