// Stored states, picked cells and the space-time picture, worked through the widgets.
#include <functional>
#include <vector>

#include "panel/picture/space_time_view.h"
#include "panel_test.h"

namespace {

class PanelBrowsing : public PanelTest {
protected:
    void RunTest1() {
        Begin();
        ASSERT_TRUE(panel.RunToEnd());
    }

    // The stored density of a cell.
    double Stored(int s, int i) { return state.SRho[(state.NGridCells + 2) * s + i]; }

    void ChooseGray(int row) {
        QListWidget* list = controls.lstGrayVariable;
        list->scrollToItem(list->item(row));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(row)).center());
    }
};

}  // namespace

TEST_F(PanelBrowsing, ShowsStoredStatesByBarAndByBox) {
    RunTest1();
    const double end = state.Time;
    controls.vsbStoredStateNumber->setValue(20);
    EXPECT_EQ(state.StoredStateNumber, 20);
    EXPECT_EQ(Text("txtStoredStateNumber"), "20");
    EXPECT_EQ(Text("txtTime"), "t=" + QString::number(state.StoredT[20], 'f', 5));
    EXPECT_EQ(state.Rho[150], Stored(20, 150));
    EXPECT_EQ(state.Time, end) << "the run's own time stays";
    controls.vsbStoredStateNumber->setSliderDown(true);
    controls.vsbStoredStateNumber->setSliderPosition(33);
    EXPECT_EQ(state.Rho[150], Stored(33, 150)) << "the plots follow the thumb";
    controls.vsbStoredStateNumber->setSliderDown(false);

    panel.Type("txtStoredStateNumber", "0");
    EXPECT_EQ(controls.vsbStoredStateNumber->value(), 0);
    EXPECT_EQ(Text("txtTime"), "t=0.") << "a typed number has the last word, in its form";
    const double rho = state.Rho[150];
    for (const char* refused : {"96", "100000", "-1", "", "x", "1e300"}) {
        controls.txtStoredStateNumber->setText(refused);
        EXPECT_EQ(state.StoredStateNumber, 0) << refused;
        EXPECT_EQ(state.Rho[150], rho) << refused;
    }
}

TEST_F(PanelBrowsing, NeverLoadsAStateThatWasNeverStored) {
    RunTest1();
    panel.Press("cmdTest7");  // a new problem under the counters of the old run
    EXPECT_EQ(controls.vsbStoredStateNumber->maximum(), 96);
    for (const int s : {1, 50, 96}) {
        controls.vsbStoredStateNumber->setValue(s);
        EXPECT_EQ(state.Rho[100], 1.4) << s;
        EXPECT_GT(state.Rho[350], 0.0) << s;
    }
    QTest::mouseClick(controls.pctSpaceTime, Qt::LeftButton, {}, {226, 58});
    EXPECT_EQ(state.Rho[100], 1.4);
    panel.Press("cmdContinue");
    EXPECT_EQ(state.Rho[100], 1.4);
}

TEST_F(PanelBrowsing, DoesNotMoveWhileARunGoes) {
    Begin();
    panel.Tick(5);
    const double rho = state.Rho[150];
    const int last = state.StoredStateNumber;
    controls.vsbStoredStateNumber->setValue(1);
    controls.txtStoredStateNumber->setText("2");
    QTest::mouseClick(controls.pctSpaceTime, Qt::LeftButton, {}, {226, 96});
    EXPECT_EQ(state.Rho[150], rho);
    EXPECT_EQ(state.StoredStateNumber, last);
}

TEST_F(PanelBrowsing, PicksACellInAPlotAtAnyTime) {
    // The plots are 453 pixels wide: a pixel is 0.88 of a cell.
    const std::pair<int, int> rows[] = {{0, 1}, {1, 1}, {2, 2}, {226, 200}, {451, 399}, {452, 400}};
    for (const bool running : {false, true}) {
        if (running) panel.Press("cmdBegin");
        panel.Tick(2);
        for (Surface* plot :
             {controls.pctDensityPlot, controls.pctPressurePlot, controls.pctVelocityPlot}) {
            for (const auto& [x, cell] : rows) {
                QTest::mouseClick(plot, Qt::LeftButton, {}, {x, 170});
                EXPECT_EQ(state.MSelected, cell) << x;
                EXPECT_EQ(Text("txtMSelected").toInt(), cell);
            }
        }
    }
}

TEST_F(PanelBrowsing, PicksAStoredStateInThePicture) {
    RunTest1();
    ASSERT_EQ(state.NStored, 96);  // on 193 rows of pixels
    const struct {
        QPoint place;
        int state, cell;
    } rows[] = {
        {{0, 192}, 0, 1}, {{2, 191}, 1, 2},   {{452, 96}, 48, 400}, {{451, 4}, 94, 399},
        {{2, 3}, 95, 2},  {{226, 0}, 95, 200}};  // the top half row is limited to the last state
    for (const auto& row : rows) {
        QTest::mouseClick(controls.pctSpaceTime, Qt::LeftButton, {}, row.place);
        EXPECT_EQ(state.StoredStateNumber, row.state) << row.place.y();
        EXPECT_EQ(state.MSelected, row.cell) << row.place.x();
        EXPECT_EQ(controls.vsbStoredStateNumber->value(), state.StoredStateNumber);
        EXPECT_EQ(state.Rho[150], Stored(state.StoredStateNumber, 150));
    }
}

TEST_F(PanelBrowsing, ShowsThePictureSmallAndBig) {
    RunTest1();
    QTest::mouseDClick(controls.pctSpaceTime, Qt::LeftButton);
    EXPECT_EQ(state.SpaceTimeBig, 1);
    EXPECT_EQ(controls.pctSpaceTime->geometry(), QRect(8, 168, 973, 441));
    EXPECT_TRUE(controls.txtDensityMin->isHidden() && controls.txtPressureMax->isHidden());
    EXPECT_EQ(controls.lblVelocityPlot->text(), "Density");
    EXPECT_EQ(Text("txtVelocityMin"), "0.125");
    ChooseGray(1);
    EXPECT_EQ(controls.lblVelocityPlot->text(), "Pressure");
    EXPECT_EQ(Text("txtVelocityMin"), "0.1");
    EXPECT_EQ(Text("txtVelocityMax"), "1.0");

    QTest::mouseClick(controls.pctSpaceTime, Qt::LeftButton);
    EXPECT_EQ(state.SpaceTimeBig, 0);
    EXPECT_EQ(controls.pctSpaceTime->geometry(), QRect(528, 416, 453, 193));
    EXPECT_FALSE(controls.txtDensityMin->isHidden() || controls.txtPressureMax->isHidden());
    EXPECT_EQ(controls.lblVelocityPlot->text(), "Velocity");
    EXPECT_EQ(Text("txtVelocityMin"), "-0.825");
}

TEST_F(PanelBrowsing, PaintsEveryVariableByItsOwnTable) {
    RunTest1();
    std::vector<QImage> pictures;
    for (int row = 0; row < 8; ++row) {
        ChooseGray(row);
        pictures.push_back(controls.pctSpaceTime->Image().copy());
    }
    for (std::size_t a = 0; a < pictures.size(); ++a) {
        for (std::size_t b = 0; b < a; ++b) EXPECT_NE(pictures[a], pictures[b]) << a << ", " << b;
    }
    // State 0 is the bottom row, and lighter is more: high density left of the jump.
    EXPECT_EQ(qGray(pictures[0].pixel(10, 192)), 250);
    EXPECT_EQ(qGray(pictures[0].pixel(440, 192)), 5);
    EXPECT_LT(qGray(pictures[0].pixel(440, 0)), 100) << "nothing is left white";
}

TEST_F(PanelBrowsing, HasNoSmokeUnderPlover) {
    state.SchemeName = "Plover";
    RunTest1();
    QListWidget& list = *controls.lstGrayVariable;
    const std::pair<const char*, std::function<void()>> choices[] = {
        {"mouse", [&] { ChooseGray(7); }},
        {"key", [&] { QTest::keyClick(&list, Qt::Key_End); }},
        {"letter", [&] { QTest::keyClicks(&list, "f"); }},
    };
    for (const auto& [by, choose] : choices) {
        SCOPED_TRACE(by);
        ChooseGray(3);
        choose();
        ASSERT_EQ(list.currentRow(), 0);
        EXPECT_EQ(list.selectedItems(), QList{list.item(0)});
        EXPECT_EQ(list.itemAt(list.viewport()->rect().center()), list.item(0)) << "is on show";
    }
}

// On 400 cells every second state repaints the picture, and several can fall into one tick. A tick
// that stores an odd number of states leaves the last one out of the picture.
TEST_F(PanelBrowsing, ShowsBehindATickTheLastPictureThatFellIntoIt) {
    Surface& surface = *controls.pctSpaceTime;
    panel.Press("cmdBegin");
    int oddTicks = 0;
    for (int tick = 0; tick < 12; ++tick) {
        const int before = state.NStored;
        ASSERT_TRUE(panel.Tick());
        if (state.NStored / 2 == before / 2) continue;
        const QImage shown = surface.Image().copy();
        PaintFirstStates(state, panel.Form().controls, state.NStored / 2 * 2);
        EXPECT_TRUE(shown == surface.Image()) << state.NStored;
        if (state.NStored % 2 == 0) continue;
        ++oddTicks;
        pctSpaceTime_Paint(state, panel.Form().controls);
        EXPECT_FALSE(shown == surface.Image()) << state.NStored;
    }
    EXPECT_GT(oddTicks, 0);
    ASSERT_TRUE(panel.RunToEnd());
    const QImage shown = surface.Image().copy();
    pctSpaceTime_Paint(state, panel.Form().controls);
    EXPECT_TRUE(shown == surface.Image()) << "the end shows every state";
}

TEST_F(PanelBrowsing, LeavesThePictureAloneBeforeTwoStatesAreStored) {
    RunTest1();
    const QImage picture = controls.pctSpaceTime->Image().copy();
    panel.Press("cmdRestart");
    ChooseGray(2);
    QTest::mouseClick(controls.pctSpaceTime, Qt::LeftButton, {}, {226, 96});
    EXPECT_EQ(controls.pctSpaceTime->Image(), picture);
}

TEST_F(PanelBrowsing, KeepsThePictureOfARunThatNobodySawBeforeItsStatesWereGone) {
    RunTest1();
    panel.Press("cmdRestart");
    panel.Type("txtNGridCells", "200");

    Panel looked;
    looked.Press("cmdTest1");
    looked.Press("cmdBegin");
    ASSERT_TRUE(looked.RunToEnd());
    EXPECT_EQ(controls.pctSpaceTime->Image(), looked.Form().controls.pctSpaceTime->Image());
}
