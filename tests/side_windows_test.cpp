// The windows beside the panel: what they show, and that the panel does not notice.
#include <QApplication>
#include <QDir>
#include <QRegularExpression>
#include <QTextBlock>
#include <algorithm>

#include "panel/help/guide_place.h"
#include "panel/help/guide_window.h"
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
