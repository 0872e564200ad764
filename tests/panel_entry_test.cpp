// Boxes and bars of the panel, worked through the widgets.

#include "panel_test.h"

using PanelEntry = PanelTest;

// Every keystroke runs the handler: what counts is the last text that was a number to take.
TEST_F(PanelEntry, TakesValuesKeyByKeyAndKeepsTheTypedText) {
    const struct {
        const char *box, *typed;
        double ExperimentState::*value;
        double taken;
    } rows[] = {
        {"txtDensity", "0.5", &ExperimentState::RhoSel, 0.5},
        {"txtDensity", "2e", &ExperimentState::RhoSel, 2.0},
        {"txtDensity", "1e-10", &ExperimentState::RhoSel, 1e-8},  // raised to the floor
        {"txtDensity", "7x", &ExperimentState::RhoSel, 7.0},
        {"txtPressure", "0", &ExperimentState::PSel, 1e-8},
        {"txtPressure", "-3", &ExperimentState::PSel, 1e-8},
        {"txtVelocity", "-0.5", &ExperimentState::VxSel, -0.5},
        {"txtVelocity", "1e-9", &ExperimentState::VxSel, 0.0},
        {"txtVelocity", "3e15", &ExperimentState::VxSel, 3e1},  // but 3e15 was never taken
    };
    for (const auto& row : rows) {
        panel.Type(row.box, row.typed);
        EXPECT_EQ(state.*row.value, row.taken) << row.typed;
        EXPECT_EQ(Text(row.box), row.typed);
    }
}

TEST_F(PanelEntry, MovesTheBarWithTheBoxAndTheBoxWithTheBar) {
    state.RhoMin = 0.0;
    state.RhoMax = 2.0;
    panel.Type("txtDensity", "0.5");
    EXPECT_EQ(controls.hsbDensity->value(), -5000);
    controls.hsbDensity->setValue(2500);
    EXPECT_EQ(Text("txtDensity"), "1.25");
    EXPECT_EQ(state.RhoSel, 1.25);
    controls.hsbDensity->setValue(1);
    EXPECT_EQ(Text("txtDensity"), "1.0001");
    EXPECT_EQ(controls.hsbDensity->value(), 1) << "the box leaves the bar that wrote it alone";
    // At the left end the density is 0, which the box refuses: no floor on this road.
    controls.hsbDensity->setValue(-10000);
    EXPECT_EQ(Text("txtDensity"), "0.0");
    EXPECT_EQ(state.RhoSel, 0.0);
    // A value past the axis widens it first, so the bar stands below its end.
    panel.Type("txtDensity", "3");
    EXPECT_DOUBLE_EQ(state.RhoMax, 3.15);
    EXPECT_EQ(controls.hsbDensity->value(), 9048);
    EXPECT_EQ(state.txtDensityBusy + state.hsbDensityBusy, 0);
}

TEST_F(PanelEntry, SelectsACellByNumberAndByADraggedThumb) {
    panel.Type("txtMSelected", "40");
    EXPECT_EQ(state.MSelected, 40);
    EXPECT_EQ(controls.hsbMSelected->value(), 40);
    EXPECT_EQ(Text("txtPressure"), "1000.0000");
    EXPECT_EQ(Text("txtDensity"), "1.00");
    for (const char* refused : {"401", "0", "", "-7", "0.3"}) {
        controls.txtMSelected->setText(refused);
        EXPECT_EQ(state.MSelected, 40) << refused;
    }
    controls.txtMSelected->setText("399.6");
    EXPECT_EQ(state.MSelected, 400);
    controls.hsbMSelected->setSliderDown(true);
    controls.hsbMSelected->setSliderPosition(50);
    EXPECT_EQ(state.MSelected, 50);
    EXPECT_EQ(Text("txtMSelected"), "50");
    EXPECT_EQ(Text("txtPressure"), "0.01") << "the bar's handler writes last, in its own format";
    controls.hsbMSelected->setSliderDown(false);
    EXPECT_EQ(state.MSelected, 50);
}

TEST_F(PanelEntry, BoundsTheMetronome) {
    const struct {
        const char *text, *shown;
        int milliseconds;
    } rows[] = {{"2500", "2000", 2000}, {"1.6", "2", 2},     {"0.4", "1", 1},
                {"250", "250", 250},    {"abc", "abc", 250}, {"0", "0", 250}};
    for (const auto& row : rows) {
        controls.txtMSec->setText(row.text);
        EXPECT_EQ(Text("txtMSec"), row.shown);
        EXPECT_EQ(controls.tmrMetronome->interval(), row.milliseconds);
        EXPECT_EQ(state.MSec, row.milliseconds);
    }
}

TEST_F(PanelEntry, TakesACourantTargetBetweenZeroAndOne) {
    for (const char* refused : {"1", "1.5", "0", ".", "-0.2", "", "5e-324"}) {
        controls.txtCourantNumber->setText(refused);
        EXPECT_EQ(state.CourantNumber, 0.85) << refused;
        EXPECT_EQ(Text("txtCourantNumber"), refused);
    }
    panel.Type("txtCourantNumber", "0.123456");
    EXPECT_EQ(state.CourantNumber, 0.123456);
    panel.Press("cmdBegin");
    panel.Type("txtCourantNumber", "9");
    EXPECT_EQ(Text("txtCourantNumber"), "0.123456") << "the general form, not the one of a set-up";
}

TEST_F(PanelEntry, SetsTheLengthOfARun) {
    panel.Type("txtNPeriods", "0.5");
    EXPECT_EQ(state.TStop, 0.5 * state.PeriodTime);
    EXPECT_EQ(state.NPlotsTotal, 200);
    EXPECT_EQ(state.StoreCapacity, 402 * 200);
    controls.txtNPeriods->setText("1e308");
    EXPECT_EQ(state.Periods, 0.5) << "the run's end has to be a number";
    controls.txtNPlotsPerPeriod->setText("0.4");
    EXPECT_EQ(state.NPlotsPerPeriod, 400) << "less than half a plot is none";
    controls.txtNPlotsPerPeriod->setText("1000000");
    EXPECT_EQ(state.PlotInterval, state.PeriodTime / 1000000);
    EXPECT_EQ(state.TimeToPlot, state.PlotInterval);
    EXPECT_EQ(state.DTime, state.PlotInterval);
    EXPECT_EQ(state.SRho[41], 1.0F) << "stored state 0 survives";
}

// The right arrow and the page-up key move a horizontal bar to the right.
TEST_F(PanelEntry, StepsTheBarsByKey) {
    controls.hsbMSelected->setFocus();
    panel.Type("txtMSelected", "100");
    QTest::keyClick(controls.hsbMSelected, Qt::Key_Right);
    EXPECT_EQ(state.MSelected, 101);
    QTest::keyClick(controls.hsbMSelected, Qt::Key_PageUp);
    EXPECT_EQ(state.MSelected, 117);
}
