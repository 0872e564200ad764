// The guide's instructions, played from a fresh start in their order: what it says must come true.
#include <QTimer>

#include "panel_test.h"

namespace {

class GuideTest : public PanelTest {
protected:
    void Run() {
        panel.Press("cmdBegin");
        ASSERT_TRUE(panel.RunToEnd());
    }

    // The cell that the guide's rule gives for a place.
    int CellNear(double x) const { return qRound(x * state.NGridCells + 0.5); }

    void PressPlotAt(double x) {
        QWidget* const plot = controls.pctDensityPlot;
        QTest::mouseClick(plot, Qt::LeftButton, {}, QPoint(static_cast<int>(x * plot->width()), 9));
    }

    // Where the density falls through a value, from the right.
    double PlaceWhere(double density) const {
        int m = state.NGridCells;
        while (m > 1 && state.Rho[m] < density) --m;
        return (m - 0.5) / state.NGridCells;
    }
};

}  // namespace

TEST_F(GuideTest, TenMinutes) {
    EXPECT_EQ(Text("txtNGridCells"), "400");
    EXPECT_EQ(state.P[1], 1000.0);
    panel.Press("cmdTest1");
    PressPlotAt(0.1);
    EXPECT_EQ(Text("txtDensity") + Text("txtPressure") + Text("txtVelocity"), "1.001.00000.75");
    PressPlotAt(0.9);
    EXPECT_EQ(Text("txtDensity") + Text("txtPressure") + Text("txtVelocity"), "0.1250.10000.00");
    panel.Type("txtMSec", "100");
    EXPECT_EQ(controls.tmrMetronome->interval(), 100);
    Run();
    EXPECT_NEAR(PlaceWhere(0.2), 0.3 + 2.1532 * state.Time, 0.004);
    EXPECT_NEAR(PlaceWhere(0.45), 0.3 + 1.3609 * state.Time, 0.004);
    QTest::mouseDClick(controls.pctSpaceTime, Qt::LeftButton);
    EXPECT_EQ(state.SpaceTimeBig, 1);
    QTest::mouseClick(controls.pctSpaceTime, Qt::LeftButton);
    EXPECT_EQ(state.SpaceTimeBig, 0);
    controls.vsbStoredStateNumber->setValue(20);
    EXPECT_EQ(Text("txtStoredStateNumber"), "20");
    panel.Press("cmdRestart");
    panel.Type("txtNGridCells", "100");
    Begin();
    ASSERT_TRUE(panel.RunToEnd());
    EXPECT_NEAR(PlaceWhere(0.2), 0.3 + 2.1532 * state.Time, 0.012);
    PressPlotAt(0.5);
    EXPECT_NEAR(state.MSelected, CellNear(0.5), 1);
}

// What the table of the controls warns of.
TEST_F(GuideTest, AWholeNumberOfTimeUnitsCountsForTheNextTest) {
    panel.Type("txtNPeriods", "2");
    panel.Press("cmdTest1");
    EXPECT_EQ(Text("txtNPeriods"), "2.");
    EXPECT_NEAR(state.TStop, 2 * state.PeriodTime, 1e-12);
    panel.Press("cmdTest1");
    EXPECT_EQ(state.TStop, 0.2);
    panel.Type("txtNPeriods", "1.5");
    panel.Press("cmdTest3");
    EXPECT_EQ(state.TStop, 0.15);
    EXPECT_EQ(controls.tmrMetronome->interval(), 5);
}

TEST_F(GuideTest, Test4LeavesItsNumbersInTheBoxes) {
    panel.Type("txtNPeriods", "0.01");
    panel.Type("txtNPlotsPerPeriod", "40000");
    Begin("cmdTest4");
    ASSERT_TRUE(panel.RunToEnd());
    EXPECT_NEAR(PlaceWhere(3.5), 0.5 + 0.2 * state.Time, 0.005);
    panel.Press("cmdRestart");
    panel.Press("cmdTest1");
    EXPECT_EQ(Text("txtNPeriods") + " " + Text("txtNPlotsPerPeriod"), "0.01 40000");
}

TEST_F(GuideTest, CancelAndDeselectAndRefusedEntries) {
    Ask("cmdGetTitle", {QString("Mine")});
    Ask("cmdGetTitle", {std::nullopt});
    EXPECT_EQ(controls.lblStudentID->text(), "");
    panel.Press("cmdTest1");
    EXPECT_EQ(state.MnBdry, 2);  // open, and they stay so
    const int points = state.NSelected;
    panel.Type("txtMSelected", "120");
    panel.Press("cmdDeselect");
    EXPECT_EQ(state.NSelected, points - 1);
    panel.Type("txtCourantNumber", "1.5");
    EXPECT_EQ(Text("txtCourantNumber"), "1.5");
    EXPECT_EQ(state.CourantNumber, 0.85);
}
