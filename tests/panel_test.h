// The panel as a user has it, for the tests of what it does.
#pragma once

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "display/surface.h"
#include "panel/main_window.h"
#include "panel_driver.h"

class PanelTest : public testing::Test {
protected:
    QString Text(const char* box) { return panel.Form().findChild<QLineEdit*>(box)->text(); }

    Panel panel;
    ExperimentState& state = panel.Form().state;
    const Controls& controls = panel.Form().controls;
};
