// Keys that press the panel's buttons.
#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <set>

#include "panel_test.h"
#include "pixels.h"

namespace {

class PanelKeys : public PanelTest {
protected:
    void SetUp() override { Activate(); }

    void Type(const char* keys) {
        QTest::keySequence(panel.Form().focusWidget(), QKeySequence(keys));
    }

    void Activate() {
        panel.Form().show();
        panel.Form().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&panel.Form()));
        controls.tmrMetronome->stop();  // ticks only where the test asks for them
    }
};

// Pixels by which a control looks clearly different when it has the focus.
int FocusInk(QWidget& control) {
    const QImage with = control.grab().toImage();
    const QPointer<QWidget> focused = QApplication::focusWidget();
    control.clearFocus();
    const QImage without = control.grab().toImage();
    focused->setFocus();
    const auto isDifferent = [&](int x, int y) {
        return std::abs(qGray(with.pixel(x, y)) - qGray(without.pixel(x, y))) > 60;
    };
    return PixelsWhere(with, isDifferent).Count;
}

// clang-format off
constexpr const char* TabOrder[] = {
    "txtNGridCells", "txtMSelected", "hsbMSelected", "cmdSelect", "cmdDeselect", "cmdReset",
    "pctDensityPlot", "vsbStoredStateNumber", "txtStoredStateNumber",
    "cmdSinglePlots", "cmdMultiplePlots", "cmdBoundaryConditionType",
    "pctVelocityPlot", "cmdSoundWave", "cmdGetTitle", "txtCourantNumber",
    "pctPressurePlot", "cmdReadSetUp", "cmdWriteSetUp", "cmdGetDiffConsts",
    "txtNPlotsPerPeriod", "txtNPeriods", "txtMSec",
    "cmdPause", "cmdContinue", "cmdRestart", "cmdDocumentation", "cmdBegin", "pctSpaceTime",
    "txtVelocity", "txtPressure", "txtDensity", "hsbVelocity", "hsbPressure", "hsbDensity",
    "txtTime", "txtDensityMin", "txtDensityMax", "txtVelocityMin", "txtVelocityMax",
    "txtPressureMin", "txtPressureMax", "lstGrayVariable",
    "cmdTest1", "cmdTest2", "cmdTest3", "cmdTest4", "cmdTest5", "cmdTest6", "cmdTest7", "cmdTest8",
    "cmdNumericalScheme"};
// clang-format on

}  // namespace

TEST_F(PanelKeys, TabGoesThroughTheControlsInTheirOrderAndTheFocusIsSeen) {
    for (const char* name : TabOrder) {
        QWidget* const control = panel.Form().focusWidget();
        EXPECT_EQ(control->objectName(), name);
        EXPECT_GT(FocusInk(*control), 100) << name;
        Type("Tab");
    }
    EXPECT_EQ(panel.Form().focusWidget()->objectName(), TabOrder[0]);
    Type("Shift+Tab");
    EXPECT_EQ(panel.Form().focusWidget()->objectName(), "cmdNumericalScheme");
}

TEST_F(PanelKeys, WorkThePlotsAndThePicture) {
    controls.pctPressurePlot->setFocus();
    Type("Left");
    EXPECT_EQ(state.MSelected, 399);
    EXPECT_TRUE(controls.pctPressurePlot->accessibleDescription().startsWith("Cell 399 of 400"));
    Type("Home");
    EXPECT_EQ(state.MSelected, 1);
    controls.pctSpaceTime->setFocus();
    Type("Return");
    EXPECT_EQ(state.SpaceTimeBig, 1);
    // What it covers is passed over, and so are the boxes that it hides.
    for (std::size_t k = 0; k < std::size(TabOrder); ++k) {
        Type("Tab");
        const QWidget* const control = panel.Form().focusWidget();
        const QWidget* const seen = panel.Form().childAt(control->geometry().center());
        EXPECT_TRUE(control == seen || control->isAncestorOf(seen))
            << qPrintable(control->objectName());
    }
    controls.pctSpaceTime->setFocus();
    Type("Esc");
    EXPECT_EQ(state.SpaceTimeBig, 0);
}

TEST_F(PanelKeys, PressEachItsButtonOnceAndNoOther) {
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
            Activate();  // a dialog has taken the focus
            panel.Form().findChild<QWidget*>(focus)->setFocus();
            Type(row.Keys);
            EXPECT_EQ(pressed, std::multiset<QString>{(controls.*row.Control)->objectName()})
                << row.Keys << " in " << focus;
        }
    }
}
