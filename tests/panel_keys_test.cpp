// Keys that press the panel's buttons.
#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <set>

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

}  // namespace

TEST(PanelKeys, PressEachItsButtonOnceAndNoOther) {
    Panel panel;
    Activate(panel);
    std::multiset<QString> pressed;
    for (QPushButton* button : panel.Form().findChildren<QPushButton*>()) {
        QObject::connect(button, &QPushButton::clicked,
                         [&pressed, button] { pressed.insert(button->objectName()); });
    }
    for (const KeyRow& row : Keys) {
        const BoxAnswers cancelled({std::nullopt});
        pressed.clear();
        Activate(panel);  // a dialog has taken the focus
        Type(panel, row.Keys);
        EXPECT_EQ(pressed,
                  std::multiset<QString>{(panel.Form().controls.*row.Control)->objectName()})
            << row.Keys;
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
