// The rules of the toolkit on which the handlers rely, and those that the controls add.
#include <gtest/gtest.h>

#include <QApplication>
#include <QBackingStore>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <QTest>
#include <QWheelEvent>
#include <string>
#include <vector>

#include "panel/widgets/choice_list.h"
#include "panel/widgets/control_values.h"
#include "panel/widgets/frame_pacer.h"
#include "panel/widgets/panel_scroll_bar.h"
#include "pixels.h"

namespace {

void TurnWheel(QWidget& control, int eighthsOfADegree) {
    const QPointF place = control.rect().center();
    QWheelEvent event(place, place, {}, QPoint(0, eighthsOfADegree), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&control, &event);
}

// A control has the focus only in a window that is shown.
void GiveFocus(QWidget& control) {
    control.window()->show();
    control.window()->activateWindow();
    control.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(control.window()));
    ASSERT_TRUE(control.hasFocus());
}

}  // namespace

TEST(TextBoxRule, APutOfTheSameTextRunsNothingAndLeavesCursorAndSelection) {
    QLineEdit box;
    int changes = 0;
    QObject::connect(&box, &QLineEdit::textChanged, [&] { ++changes; });
    PutText(&box, "1.25");
    box.setSelection(0, 2);
    PutText(&box, "1.25");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(box.selectedText(), "1.");
    EXPECT_EQ(box.cursorPosition(), 2);
}

TEST(ScrollBarRule, AValueIsHeldWithinTheRangeAndRunsTheHandlerOnAChange) {
    PanelScrollBar bar(Qt::Horizontal);
    std::vector<int> seen;
    QObject::connect(&bar, &QScrollBar::valueChanged, [&](int value) { seen.push_back(value); });
    PutBarRange(&bar, 1, 400);
    EXPECT_EQ(seen, std::vector<int>({1})) << "0 was below the range";
    PutBarValue(&bar, 400);
    PutBarValue(&bar, 4000);
    PutBarRange(&bar, 1, 6);
    EXPECT_EQ(seen, std::vector<int>({1, 400, 6}));
    PutBarRange(&bar, -100000, 100000);
    EXPECT_EQ(bar.minimum(), -32768);
    EXPECT_EQ(bar.maximum(), 32767);
    PutBarValue(&bar, -100000);
    EXPECT_EQ(bar.value(), -32768);
}

// Only the surroundings of the thumb are painted anew: the screen must not tell.
TEST(ScrollBarRule, ALongerRangeLeavesTheScreenAsAWholePaintWould) {
    QWidget window;
    PanelScrollBar bar(Qt::Vertical, &window);
    bar.setGeometry(0, 0, 41, 441);
    window.resize(41, 441);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    for (const int maximum : {1, 2, 3, 9, 40, 41, 600, 2001, 5, 0}) {
        PutBarRange(&bar, 0, maximum);
        if (maximum == 9) PutBarValue(&bar, 4);
        QCoreApplication::processEvents();
        auto* const screen = dynamic_cast<QImage*>(window.backingStore()->paintDevice());
        ASSERT_NE(screen, nullptr);
        const QImage shown = screen->convertToFormat(QImage::Format_RGB32);
        const QImage whole = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
        ASSERT_EQ(shown.size(), whole.size());
        EXPECT_TRUE(shown == whole) << maximum;
    }
}

TEST(ScrollBarRule, TheWheelNeedsTheFocus) {
    QWidget window;
    PanelScrollBar bar(Qt::Horizontal, &window);
    QPushButton other(&window);
    PutBarRange(&bar, 0, 100);
    GiveFocus(other);
    TurnWheel(bar, 120);
    EXPECT_EQ(bar.value(), 0);
    GiveFocus(bar);
    TurnWheel(bar, 120);
    EXPECT_GT(bar.value(), 0);
}

TEST(ListRule, EveryChoiceRunsTheHandlerOnce) {
    QWidget window;
    ChoiceList list(&window);
    list.resize(161, 200);
    list.addItems({"Density", "Pressure", "Velocity"});
    std::string chosen;
    list.Chosen = [&] { chosen += TextOf(&list) + " "; };
    const auto click = [&](int row) {
        const QPoint place = list.visualItemRect(list.item(row)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
    };
    EXPECT_EQ(TextOf(&list), "");
    PutListText(&list, "Density");
    PutListText(&list, "Density");
    PutListText(&list, "density");
    EXPECT_EQ(chosen, "Density Density ");
    chosen.clear();
    click(1);
    click(1);
    click(2);
    EXPECT_EQ(chosen, "Pressure Pressure Velocity ");

    chosen.clear();
    GiveFocus(list);
    QTest::keyClick(&list, Qt::Key_Up);
    TurnWheel(*list.viewport(), 120);
    EXPECT_EQ(chosen, "Pressure Density ");

    // A handler may put another row, and so choose once more, while the button is down.
    chosen.clear();
    list.Chosen = [&] {
        chosen += TextOf(&list) + " ";
        if (TextOf(&list) == "Velocity") PutListText(&list, "Density");
    };
    click(2);
    EXPECT_EQ(chosen, "Velocity Density ");
    EXPECT_EQ(TextOf(&list), "Density");
}

// A desktop that is dark lends its colours for every role that the application leaves open.
TEST(LookRule, LeavesNoColourToTheDesktopAndEveryTextIsReadable) {
    const QPalette palette = QApplication::palette();
    const struct {
        QPalette::ColorRole Text, Ground;
    } rows[] = {{QPalette::WindowText, QPalette::Window},
                {QPalette::Text, QPalette::Base},
                {QPalette::Text, QPalette::AlternateBase},
                {QPalette::ButtonText, QPalette::Button},
                {QPalette::PlaceholderText, QPalette::Base},
                {QPalette::HighlightedText, QPalette::Highlight},
                {QPalette::ToolTipText, QPalette::ToolTipBase},
                {QPalette::Link, QPalette::Base},
                {QPalette::LinkVisited, QPalette::Base}};
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (int role = 0; role < QPalette::NColorRoles; ++role) {
            if (role == QPalette::NoRole) continue;
            EXPECT_TRUE(palette.isBrushSet(group, static_cast<QPalette::ColorRole>(role)))
                << group << ", " << role;
        }
        for (const auto& row : rows) {
            const double one = Luminance(palette.color(group, row.Text)) + 0.05;
            const double other = Luminance(palette.color(group, row.Ground)) + 0.05;
            EXPECT_GE(std::max(one, other) / std::min(one, other),
                      group == QPalette::Disabled ? 2.0 : 4.5)
                << group << ", " << row.Text << " on " << row.Ground;
        }
    }
}

TEST(FramePacer, PaintsOncePerPictureOfTheScreenTheFirstAtOnceAndAlwaysTheLast) {
    class Painted : public QWidget {
    public:
        std::vector<int> Seen;
        int State = 0;
        void paintEvent(QPaintEvent* /*event*/) override { Seen.push_back(State); }
    } window;
    new FramePacer(window);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QTest::qWait(100);
    window.Seen.clear();

    QElapsedTimer clock;
    clock.start();
    constexpr int states = 1000;
    while (window.State < states) {
        ++window.State;
        window.update();
        QCoreApplication::processEvents();
    }
    constexpr qint64 fastestScreen = 4;  // milliseconds between two pictures
    EXPECT_LE(window.Seen.size(), static_cast<std::size_t>(2 + clock.elapsed() / fastestScreen));
    EXPECT_EQ(window.Seen.front(), 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.Seen.back() == states; }));
}
