// Keys that press the panel's buttons.
#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <set>

#include "display/surface.h"
#include "panel/main_window.h"
#include "panel_driver.h"

namespace {

void Type(Panel& panel, const char* keys) {
    QTest::keySequence(panel.Form().focusWidget(), QKeySequence(keys));
}

void Activate(Panel& panel) {
    panel.Form().show();
    panel.Form().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel.Form()));
    panel.Form().controls.tmrMetronome->stop();  // ticks only where the test asks for them
}

// Pixels by which a control looks clearly different when it has the focus.
int FocusInk(QWidget& control) {
    const QImage with = control.grab().toImage();
    const QPointer<QWidget> focused = QApplication::focusWidget();
    control.clearFocus();
    const QImage without = control.grab().toImage();
    focused->setFocus();
    int different = 0;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
            if (std::abs(qGray(with.pixel(x, y)) - qGray(without.pixel(x, y))) > 60) ++different;
        }
    }
    return different;
}

constexpr const char* TabOrder[] = {"txtNGridCells",
                                    "txtMSelected",
                                    "hsbMSelected",
                                    "cmdSelect",
                                    "cmdDeselect",
                                    "cmdReset",
                                    "pctDensityPlot",
                                    "vsbStoredStateNumber",
                                    "txtStoredStateNumber",
                                    "cmdSinglePlots",
                                    "cmdMultiplePlots",
                                    "cmdBoundaryConditionType",
                                    "pctVelocityPlot",
                                    "cmdSoundWave",
                                    "cmdGetTitle",
                                    "txtCourantNumber",
                                    "pctPressurePlot",
                                    "cmdReadSetUp",
                                    "cmdWriteSetUp",
                                    "cmdGetDiffConsts",
                                    "txtNPlotsPerPeriod",
                                    "txtNPeriods",
                                    "txtMSec",
                                    "cmdPause",
                                    "cmdContinue",
                                    "cmdRestart",
                                    "cmdDocumentation",
                                    "cmdBegin",
                                    "pctSpaceTime",
                                    "txtVelocity",
                                    "txtPressure",
                                    "txtDensity",
                                    "hsbVelocity",
                                    "hsbPressure",
                                    "hsbDensity",
                                    "txtTime",
                                    "txtDensityMin",
                                    "txtDensityMax",
                                    "txtVelocityMin",
                                    "txtVelocityMax",
                                    "txtPressureMin",
                                    "txtPressureMax",
                                    "lstGrayVariable",
                                    "cmdTest1",
                                    "cmdTest2",
                                    "cmdTest3",
                                    "cmdTest4",
                                    "cmdTest5",
                                    "cmdTest6",
                                    "cmdTest7",
                                    "cmdTest8",
                                    "cmdNumericalScheme"};

}  // namespace

TEST(PanelKeys, TabGoesThroughTheControlsInTheirOrderAndTheFocusIsSeen) {
    Panel panel;
    Activate(panel);
    for (const char* name : TabOrder) {
        QWidget* const control = panel.Form().focusWidget();
        EXPECT_EQ(control->objectName(), name);
        EXPECT_GT(FocusInk(*control), 100) << name;
        Type(panel, "Tab");
    }
    EXPECT_EQ(panel.Form().focusWidget()->objectName(), TabOrder[0]);
    Type(panel, "Shift+Tab");
    EXPECT_EQ(panel.Form().focusWidget()->objectName(), "cmdNumericalScheme");
}

TEST(PanelKeys, WorkThePlotsAndThePicture) {
    Panel panel;
    Activate(panel);
    const Controls& controls = panel.Form().controls;
    const ExperimentState& state = panel.Form().state;
    controls.pctPressurePlot->setFocus();
    Type(panel, "Left");
    EXPECT_EQ(state.MSelected, 399);
    Type(panel, "Home");
    EXPECT_EQ(state.MSelected, 1);
    controls.pctSpaceTime->setFocus();
    Type(panel, "Return");
    EXPECT_EQ(state.SpaceTimeBig, 1);
    // What it covers is passed over, and so are the boxes that it hides.
    for (std::size_t k = 0; k < std::size(TabOrder); ++k) {
        Type(panel, "Tab");
        const QWidget* const control = panel.Form().focusWidget();
        const QWidget* const seen = panel.Form().childAt(control->geometry().center());
        EXPECT_TRUE(control == seen || control->isAncestorOf(seen))
            << qPrintable(control->objectName());
    }
    controls.pctSpaceTime->setFocus();
    Type(panel, "Esc");
    EXPECT_EQ(state.SpaceTimeBig, 0);
}

TEST(PanelKeys, PressEachItsButtonOnceAndNoOther) {
    Panel panel;
    Activate(panel);
    std::multiset<QString> pressed;
    for (QPushButton* button : panel.Form().findChildren<QPushButton*>()) {
        QObject::connect(button, &QPushButton::clicked,
                         [&pressed, button] { pressed.insert(button->objectName()); });
    }
    for (const char* focus :
         {"txtDensity", "hsbDensity", "pctSpaceTime", "lstGrayVariable", "cmdTest3"}) {
        for (const KeyRow& row : Keys) {
            const BoxAnswers cancelled({std::nullopt});
            pressed.clear();
            Activate(panel);  // a dialog has taken the focus
            panel.Form().findChild<QWidget*>(focus)->setFocus();
            Type(panel, row.Keys);
            EXPECT_EQ(pressed,
                      std::multiset<QString>{(panel.Form().controls.*row.Control)->objectName()})
                << row.Keys << " in " << focus;
        }
    }
}

TEST(PanelKeys, AreLockedAsTheirButtonsAre) {
    Panel panel;
    Activate(panel);
    const ExperimentState& state = panel.Form().state;
    Type(panel, "F7");
    EXPECT_EQ(state.Stopped, 1) << "nothing to continue";
    Type(panel, "Ctrl+1");
    Type(panel, "F5");
    ASSERT_EQ(state.Stopped, 0);
    panel.Tick(2);
    Type(panel, "F6");
    const double time = state.Time;
    ASSERT_GT(time, 0.0);
    Type(panel, "F5");
    EXPECT_EQ(state.Stopped, 1) << "Begin is locked once time has passed";
    EXPECT_EQ(state.Time, time);
    Type(panel, "Ctrl+F5");
    EXPECT_EQ(state.Time, 0.0);
}
