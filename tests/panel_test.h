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

#include "display/surface.h"
#include "panel/main_window.h"
#include "panel_driver.h"

class PanelTest : public testing::Test {
protected:
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
