// The windows beside the panel: what they show, and that the panel does not notice.
#include <QApplication>
#include <QDir>
#include <QRegularExpression>
#include <QTextBlock>
#include <algorithm>

#include "panel/help/guide_place.h"
#include "panel/help/guide_window.h"
#include "panel/state_window/state_window.h"
#include "panel/window/side_windows.h"
#include "panel_test.h"

namespace {

class SideWindowsTest : public PanelTest {
protected:
    void SetUp() override {
        panel.Form().show();
        panel.Form().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&panel.Form()));
        controls.tmrMetronome->stop();
    }

    void Press(const char* keys) {
        QTest::keySequence(panel.Form().focusWidget(), QKeySequence(keys));
    }
};

// The first line of the page that is seen.
QString TopOf(const GuideWindow& guide) {
    return guide.Page().cursorForPosition(QPoint(20, 12)).block().text();
}

}  // namespace

TEST_F(SideWindowsTest, F1ShowsTheGuideAndShiftF1TheKeys) {
    Press("F1");
    const GuideWindow& guide = panel.Form().Beside().Guide();
    EXPECT_TRUE(guide.isVisible());
    EXPECT_EQ(guide.Page().documentTitle(), "Ternlow: the user's guide");
    panel.Form().activateWindow();
    Press("Shift+F1");
    EXPECT_TRUE(QTest::qWaitFor([&] { return TopOf(guide) == "Keys"; }, 2000))
        << qPrintable(TopOf(guide));
    panel.Form().close();
    EXPECT_TRUE(std::ranges::none_of(QApplication::topLevelWidgets(),
                                     [](const QWidget* window) { return window->isVisible(); }));
}

TEST_F(SideWindowsTest, GuideFindsOnFromPageToPage) {
    GuideWindow& guide = panel.Form().Beside().Guide();
    guide.ShowPage("users-guide.html");
    EXPECT_TRUE(guide.Search("first-order upwinding"));
    EXPECT_EQ(guide.Page().documentTitle(), "Answers");
    EXPECT_TRUE(guide.Search("wind tunnel"));
    EXPECT_EQ(guide.Page().documentTitle(), "Ternlow: the user's guide");
    EXPECT_TRUE(guide.Search("first-order upwinding", /*backwards=*/true));
    EXPECT_EQ(guide.Page().documentTitle(), "Answers");
    EXPECT_FALSE(guide.Search("zzzz"));
    EXPECT_TRUE(guide.Page().isBackwardAvailable());
}

// Pictures that do not load leave a small sign in their place, as high as a letter.
TEST_F(SideWindowsTest, GuideShowsItsPictures) {
    for (const char* page : {"users-guide.html", "schemes.html", "verification.html"}) {
        QFile file(GuidePage(page));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << page;
        const QString html = QString::fromUtf8(file.readAll());
        const QRegularExpression source("src=\"([^\"]+)\"");
        for (const auto& match : source.globalMatch(html)) {
            EXPECT_FALSE(QImage(QFileInfo(file).dir().filePath(match.captured(1))).isNull())
                << qPrintable(match.captured(1));
        }
    }
}

// What a user sees is what the window tells: every control that refuses says so there.
TEST_F(SideWindowsTest, F3TellsTheStateAndWhatWasRefused) {
    Press("F3");
    StateWindow& words = panel.Form().Beside().StateInWords();
    ASSERT_TRUE(words.isVisible());
    const auto tells = [&](const char* sentence) {
        words.Follow();
        return words.Text().contains(sentence);
    };
    EXPECT_TRUE(tells("Ready to begin at t = 0. Set-up is open.\nNothing has been refused."));
    panel.Type("txtCourantNumber", "1.5");
    EXPECT_TRUE(tells("Courant Number \"1.5\" was refused: it must lie above 0 and below 1."));
    panel.Type("txtDensity", "0.5");  // takes "0." on the way
    EXPECT_FALSE(tells("Density \""));
    Begin();
    panel.Tick();
    panel.Press("cmdBoundaryConditionType");
    EXPECT_TRUE(tells("Bdrys was refused: a run has begun: press Restart first."));
    panel.Type("txtNPeriods", "7");
    EXPECT_TRUE(
        tells("Time Units to Run \"7\" was refused: a run has begun: press Restart first. "));
    panel.Press("cmdPause");
    EXPECT_TRUE(tells("Halted at t = "));
    panel.Press("cmdBegin");
    EXPECT_TRUE(tells("Begin was refused: a run has begun: press Restart first."));
}

TEST_F(SideWindowsTest, TheEndOfARunIsAnnounced) {
    Press("F3");
    StateWindow& words = panel.Form().Beside().StateInWords();
    Begin();
    panel.Tick();
    words.Follow();
    EXPECT_TRUE(words.Announced().startsWith("Running at t = "));
    panel.RunToEnd();
    words.Follow();
    EXPECT_TRUE(words.Announced().startsWith("Ended at t = 0.2"));
    const QString ended = words.Announced();
    panel.Press("cmdTest2");  // changes the record, not the run
    words.Follow();
    EXPECT_EQ(words.Announced(), ended);
}
