// The panel larger and smaller: what it computes and draws stays, where it is seen grows along.
#include <QScreen>

#include "panel/window/screen_fit.h"
#include "panel_test.h"
#include "pixels.h"

namespace {

class ZoomTest : public PanelTest {
protected:
    // As on a screen of that size.
    void ShowLarge(QSize screen) {
        panel.Form().show();
        panel.Form().ToggleFullScreen();
        QApplication::processEvents();
        panel.Form().resize(screen);
        QApplication::processEvents();
    }

    // Rows of the picture that a level line at half the height is thick.
    int LineThickness() {
        Surface& plot = *controls.pctDensityPlot;
        plot.Cls();
        plot.Drawing().LineFrom(0.0F, plot.ScaleHeight() / 2.0F, plot.ScaleWidth(),
                                plot.ScaleHeight() / 2.0F);
        const QImage image = plot.Image();
        return PixelsWhere(image, [&](int x, int y) { return qGray(image.pixel(x, y)) < 128; })
            .Bounds.height();
    }
};

}  // namespace

TEST(Zoom, StepsUpToTheScreenAndDownAgain) {
    const QSize screen(1920, 1040);
    double factor = 1.0;
    for (int step = 0; step < 20; ++step) factor = NextFactor(factor, true, screen);
    EXPECT_EQ(factor, LargestFactor(screen));
    EXPECT_GE(factor * 1000, 1300);
    EXPECT_GE(LargestFactor(QSize(3840, 2120)) * 1000, 2600);
    for (int step = 0; step < 20; ++step) {
        const double next = NextFactor(factor, false, screen);
        EXPECT_TRUE(next < factor || next <= 0.25);
        factor = next;
    }
}

TEST_F(ZoomTest, GrowsLinesAndFontsAndPicksTheSameCells) {
    Begin();
    panel.RunToEnd();
    const float width = controls.pctDensityPlot->ScaleWidth();
    const float pictureWidth = controls.pctSpaceTime->ScaleWidth();
    const int thin = LineThickness();
    const double time = state.Time;
    ASSERT_GT(state.NStored, 90);
    for (const QSize screen : {QSize(1920, 1080), QSize(3840, 2160), QSize(700, 500)}) {
        ShowLarge(screen);
        const double factor = panel.Form().Shown().Factor();
        EXPECT_NEAR(factor, std::min(screen.width() / 1000.0, screen.height() / 766.0), 1e-12);
        EXPECT_EQ(controls.pctDensityPlot->ScaleWidth(), width);
        EXPECT_EQ(controls.pctSpaceTime->ScaleWidth(), pictureWidth);
        EXPECT_EQ(state.Time, time);
        for (QWidget* control : panel.Form().findChildren<QWidget*>()) {
            if (control->parent() != &panel.Form() || control->isWindow()) continue;
            EXPECT_TRUE(panel.Form().rect().contains(control->geometry()));
        }
        for (const int cell : {1, 133, 400}) {
            QWidget* const plot = controls.pctPressurePlot;
            const double place = (cell - 0.5) / 400 * plot->width();
            QTest::mouseClick(plot, Qt::LeftButton, {}, QPoint(qRound(place), 5));
            EXPECT_NEAR(state.MSelected, cell, 1);
        }
        QWidget* const picture = controls.pctSpaceTime;
        QTest::mousePress(picture, Qt::LeftButton, {},
                          QPoint(picture->width() / 4, picture->height() / 2));
        EXPECT_NEAR(state.StoredStateNumber, state.NStored / 2, 1);
        EXPECT_NEAR(state.MSelected, 100, 1);
        QTest::mouseRelease(picture, Qt::LeftButton);
        EXPECT_EQ(LineThickness(), std::max(1, qRound(thin * factor)));
        panel.Form().ToggleFullScreen();
        EXPECT_EQ(panel.Form().size(), QSize(1000, 766));
        EXPECT_EQ(LineThickness(), thin);
    }
}

TEST_F(ZoomTest, KeysZoomAndTheBigPictureKeepsItsPlace) {
    panel.Form().show();
    panel.Form().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel.Form()));
    const auto press = [&](const char* keys) {
        QTest::keySequence(panel.Form().focusWidget(), QKeySequence(keys));
    };
    const QRect small = controls.pctSpaceTime->geometry();
    press("Ctrl+-");
    const double factor = panel.Form().Shown().Factor();
    EXPECT_LT(factor, 1.0);
    EXPECT_EQ(panel.Form().width(), qRound(1000 * factor));
    QTest::mouseDClick(controls.pctSpaceTime, Qt::LeftButton);
    EXPECT_EQ(controls.pctSpaceTime->geometry(),
              panel.Form().Shown().ToPixels(QRect(120, 2520, 14600, 6615)));
    press("Ctrl+0");
    EXPECT_EQ(controls.pctSpaceTime->geometry(), QRect(8, 168, 973, 441));
    QTest::mouseClick(controls.pctSpaceTime, Qt::LeftButton);
    EXPECT_EQ(controls.pctSpaceTime->geometry(), small);
    press("F11");
    EXPECT_TRUE(panel.Form().windowState().testFlag(Qt::WindowFullScreen));
    press("F11");
    EXPECT_EQ(panel.Form().size(), QSize(1000, 766));
}
