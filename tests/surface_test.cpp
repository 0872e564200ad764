#include "panel/widgets/surface.h"

#include <gtest/gtest.h>

#include <QTest>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "pixels.h"

namespace {

const PanelScale Scale;
const QRect PlotTwips(0, 0, 6800, 2895);
constexpr float Infinite = std::numeric_limits<float>::infinity();
const float NotANumber = std::nanf("");

// A plot of the panel, in twips.
class Plot : public Surface {
public:
    Plot() : Surface(Scale, Scale.TwipsPerPixel()) { Place(PlotTwips); }

    Pixels BlackPixels() {
        const QImage& image = Image();
        return PixelsWhere(image, [&](int x, int y) { return image.pixel(x, y) == 0xFF000000; });
    }

    // The smallest rectangle in logical pixels around everything black.
    QRectF Black() {
        const QRect bounds = BlackPixels().Bounds;
        const double ratio = devicePixelRatioF();
        return {QPointF(bounds.topLeft()) / ratio, QSizeF(bounds.size()) / ratio};
    }
};

// At several device pixels to a logical one, an edge may lie nearer to its true place.
void ExpectBlack(Plot& plot, const QRectF& expected, const std::string& what) {
    const QRectF black = plot.Black();
    const double tolerance = plot.devicePixelRatioF() > 1.0 ? 0.75 : 0.0;
    for (const double shift :
         {black.left() - expected.left(), black.top() - expected.top(),
          black.right() - expected.right(), black.bottom() - expected.bottom()}) {
        EXPECT_LE(std::abs(shift), tolerance) << what;
    }
}

}  // namespace

// Every line is a whole pixel thick, and one along an edge of the surface is seen. A line goes from
// point to point, a box from a corner by a width and a height.
TEST(Surface, PutsLinesAndBoxesOnWholePixels) {
    Plot plot;
    const float w = plot.ScaleWidth();
    const float h = plot.ScaleHeight();
    EXPECT_EQ(w, 453 * 15);
    EXPECT_EQ(h, 193 * 15);
    using Draw = void (DrawingList::*)(float, float, float, float);
    const Draw line = &DrawingList::LineFrom;
    const Draw box = &DrawingList::BoxFilled;
    const Draw outline = &DrawingList::BoxOutline;
    // clang-format off
    const struct { Draw draw; float a, b, c, d; QRectF black; } rows[] = {
        {line, 0,      0,     w,      0,     {0, 0,  453, 1}},   {line, 0,     h,     w,     h,    {0, 192, 453, 1}},
        {line, 0,      h / 2, w,      h / 2, {0, 96, 453, 1}},   {line, 0,     1500,  9e9F,  1500, {0, 99,  453, 1}},
        {line, 0,      0,     0,      h,     {0, 0,  1,   193}}, {line, -3e38F, 1500, 3e38F, 1500, {0, 99,  453, 1}},
        {line, w,      0,     w,      h,     {452, 0, 1,  193}}, {line, 1500,  -9e9F, 1500,  h,    {100, 0, 1, 193}},
        {line, w / 2,  0,     w / 2,  h,     {226, 0, 1,  193}},
        {box,  1500,   1500,  150,    150,   {100, 99, 11, 11}}, {box, 1650,   1650,  -150,  -150, {100, 99, 11, 11}},
        {box,  -3e38F, -50,   3e38F,  100,   {0, 0,  1,   4}},   {box, -100,   -100,  1e9F,  1e9F, {0, 0, 453, 193}},
        {outline, 1500, 1500, 150,    150,   {100, 99, 11, 11}},
    };
    // clang-format on
    for (const auto& row : rows) {
        plot.Cls();
        (plot.Drawing().*row.draw)(row.a, row.b, row.c, row.d);
        ExpectBlack(plot, row.black, std::to_string(row.a) + " " + std::to_string(row.b));
    }
    const QPoint middle = (QPointF(105.5, 104.5) * plot.devicePixelRatioF()).toPoint();
    EXPECT_EQ(plot.Image().pixel(middle), 0xFFFFFFFF) << "an outline is hollow";
}

// Looking in between, or drawing more than the list holds, changes nothing.
TEST(Surface, DrawsOnFromTheCurrentPoint) {
    Plot looked;
    Plot unseen;
    float x = 0;
    float y = 0;
    std::mt19937 random(1);
    for (int i = 0; i < 50000; ++i) {
        const float step = random() % 2 == 0 ? 30.0F : -30.0F;
        const float nextX = i % 2 == 0 ? x : std::clamp(x + step, 0.0F, 6780.0F);
        const float nextY = i % 2 == 0 ? std::clamp(y + step, 0.0F, 2880.0F) : y;
        unseen.Drawing().LineFrom(x, y, nextX, nextY);
        looked.Drawing().LineOn(nextX, nextY);  // the current point is 0, 0 to begin with
        if (i % 1000 == 0) looked.Image();
        x = nextX;
        y = nextY;
    }
    EXPECT_EQ(looked.Image(), unseen.Image());
    EXPECT_EQ(looked.grab().toImage().convertToFormat(QImage::Format_RGB32), unseen.Image());
    looked.Cls();
    looked.Drawing().LineOn(1500, 1500);
    EXPECT_EQ(looked.Black().topLeft(), QPointF(0, 0)) << "Cls returns the current point";
}

TEST(Surface, KeepsWhatWasDrawnWhenItsSizeChanges) {
    Plot plot;
    plot.Drawing().LineFrom(0, 0, 3000, 2000);
    plot.Drawing().BoxFilled(1000, 1000, 100, 100);
    const QImage before = plot.Image();
    plot.Place(QRect(0, 0, 14600, 6615));
    EXPECT_NE(plot.Image().size(), before.size());
    plot.Place(PlotTwips);
    EXPECT_EQ(plot.Image(), before);
}

TEST(Surface, IgnoresWhatIsNotANumberAndDrawsOn) {
    Plot plot;
    plot.Drawing().LineFrom(0, 1500, NotANumber, 0);
    plot.Drawing().LineOn(Infinite, 1500);
    plot.Drawing().LineOn(1500, 1500);
    plot.Drawing().BoxFilled(NotANumber, 0, 100, 100);
    plot.Drawing().BoxOutline(0, 0, Infinite, 100);
    EXPECT_TRUE(plot.Black().isEmpty());
    plot.Drawing().LineOn(3000, 1500);
    ExpectBlack(plot, QRectF(100, 99, 101, 1), "drawing goes on");
}

// A steep line keeps its place where it is seen, however far off its end lies.
TEST(Surface, CutsLinesWithoutMovingThem) {
    for (const float far : {1e4F, 1e6F, 1e9F, 1e30F}) {
        Plot plot;
        plot.Drawing().LineFrom(0, 0, far, far / 2);
        const QImage image = plot.Image();
        const double ratio = plot.devicePixelRatioF();
        const Pixels misplaced = PixelsWhere(image, [&](int x, int y) {
            return image.pixel(x, y) == 0xFF000000 && std::abs(y - x / 2.0) > 1.5 * ratio;
        });
        EXPECT_EQ(misplaced.Count, 0) << far;
        EXPECT_GE(plot.BlackPixels().Count, 380 * ratio * ratio) << far;
    }
}

// The gray levels reach the screen as they are, each one logical pixel large.
TEST(Surface, ShowsAGrayPictureUnsmoothed) {
    Surface surface(Scale, 1.0);
    surface.resize(40, 20);
    std::vector<std::uint8_t> levels(40 * 20);
    for (std::size_t i = 0; i < levels.size(); ++i) levels[i] = static_cast<uchar>(i * 53 % 256);
    surface.Replace(
        [&](DrawingList& list) { std::ranges::copy(levels, list.Gray(40, 20).begin()); });
    const QImage image = surface.Image();
    const double ratio = surface.devicePixelRatioF();
    const Pixels others = PixelsWhere(image, [&](int x, int y) {
        const auto level = static_cast<std::size_t>(static_cast<int>(y / ratio) * 40 + x / ratio);
        return image.pixel(x, y) != qRgb(levels[level], levels[level], levels[level]);
    });
    EXPECT_EQ(others.Count, 0);
}

// A picture that waits is drawn once, and only if nothing has come in its place before.
TEST(Surface, DrawsAReplacementOnlyWhenItIsSeen) {
    Plot plot;
    int calls = 0;
    const auto drawBox = [&calls](float x) {
        return [&calls, x](DrawingList& list) {
            ++calls;
            list.BoxFilled(x, 1500, 150, 150);
        };
    };
    plot.Drawing().LineFrom(0, 0, 3000, 2000);
    plot.ReplaceWhenSeen(drawBox(1500));
    plot.ReplaceWhenSeen(drawBox(3000));
    EXPECT_EQ(calls, 0);
    for (int look = 0; look < 2; ++look) ExpectBlack(plot, QRectF(200, 99, 11, 11), "the later");
    EXPECT_EQ(calls, 1);

    plot.ReplaceWhenSeen(drawBox(4500));
    plot.Cls();
    EXPECT_TRUE(plot.Black().isEmpty()) << "Cls is later than what waits";
    EXPECT_EQ(calls, 1);

    plot.ReplaceWhenSeen(drawBox(1500));
    plot.Drawing().BoxFilled(3000, 1500, 150, 150);
    ExpectBlack(plot, QRectF(100, 99, 111, 11), "what is added lies over what waits");
    const QImage before = plot.Image().copy();
    plot.Replace([](DrawingList&) {});
    EXPECT_EQ(plot.Image(), before) << "nothing replaces nothing";
}

TEST(Surface, TellsPressesClicksAndDoubleClicksInOrder) {
    Plot plot;
    std::string events;
    plot.Pressed = [&](float x, float y) {
        events += x == 1500.0F && y == 750.0F ? "press " : "press elsewhere ";
    };
    plot.Clicked = [&] { events += "click "; };
    plot.DoubleClicked = [&] { events += "double "; };

    const QPoint place(100, 50);
    QTest::mousePress(&plot, Qt::LeftButton, {}, place);
    QTest::mouseRelease(&plot, Qt::LeftButton, {}, place);
    QTest::mouseDClick(&plot, Qt::LeftButton, {}, place);
    QTest::mouseRelease(&plot, Qt::LeftButton, {}, place);
    EXPECT_EQ(events, "press click double ");

    events.clear();
    QTest::mousePress(&plot, Qt::LeftButton, {}, place);
    QTest::mouseRelease(&plot, Qt::LeftButton, {}, QPoint(-5, 50));
    QTest::mouseClick(&plot, Qt::RightButton, {}, place);
    EXPECT_EQ(events, "press press ") << "neither a release outside nor another button clicks";
}
