#include "panel/widgets/surface.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>
#include <utility>
#include <variant>

#include "panel/widgets/black_pen.h"
#include "panel/widgets/edge_drawing.h"

namespace {

// Beyond this many points the list is replaced by an image of what it drew, so that a surface that
// is never cleared does not grow.
constexpr std::size_t MaxKeptPoints = 32768;

bool IsFinite(QPointF point) {
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

QPointF Mapped(const QTransform& toDevice, DrawnPoint point) {
    return toDevice.map(QPointF(point.X, point.Y));
}

// Levels in the format of the surface's own image. The toolkit's conversion would wake its threads
// for this, which takes longer than the work.
QImage InColour(std::span<const std::uint8_t> levels, int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    auto level = levels.begin();
    for (int y = 0; y < height; ++y) {
        auto* const pixels = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < width; ++x) pixels[x] = 0xFF000000 | (*level++ * 0x010101U);
    }
    return picture;
}

}  // namespace

Surface::Surface(const PanelScale& scale, double unitsPerPixel, QWidget* parent)
    : QWidget(parent), scale_(scale), shown_(scale), unitsPerPixel_(unitsPerPixel) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::TabFocus);  // a press leaves the focus where the user types
}

void Surface::Place(const QRect& twips) {
    twips_ = twips;
    setGeometry(shown_.ToPixels(twips));
}

void Surface::MagnifyTo(const PanelScale& shown) {
    shown_ = shown;
    if (!twips_.isNull()) setGeometry(shown_.ToPixels(twips_));
}

// The size in pixels of the scale that the surface is drawn in.
QSize Surface::DrawnSize() const {
    return twips_.isNull() ? size() : scale_.ToPixels(twips_).size();
}

// Pixels of the window for one that is drawn.
QSizeF Surface::Magnification() const {
    const QSize drawn = DrawnSize();
    return {static_cast<double>(width()) / drawn.width(),
            static_cast<double>(height()) / drawn.height()};
}

void Surface::Cls() {
    Erase();
    list_.Clear();
    Refresh();
}

DrawingList& Surface::Drawing() {
    Settle();
    if (list_.PointCount() >= MaxKeptPoints) {
        Rasterise();
        under_ = image_;
        list_.ClearItems();
        drawn_ = 0;
    }
    Refresh();
    return list_;
}

void Surface::Replace(const Draw& draw) {
    Exchange(draw);
    Refresh();
}

void Surface::ReplaceWhenSeen(Draw draw) {
    awaited_ = std::move(draw);
    Refresh();
}

// Requests no repaint, since a paint event may be the caller.
void Surface::Settle() {
    if (awaited_) Exchange(std::exchange(awaited_, nullptr));
}

void Surface::Exchange(const Draw& draw) {
    next_.Clear();
    draw(next_);
    if (next_.Items().empty()) return;
    Erase();
    std::swap(list_, next_);
}

void Surface::Refresh() {
    update();
}

const QImage& Surface::Image() {
    Rasterise();
    return image_;
}

void Surface::Erase() {
    awaited_ = nullptr;
    under_ = QImage();
    drawn_ = 0;
    isBlank_ = true;
}

void Surface::Rasterise() {
    Settle();
    const double ratio = devicePixelRatioF();
    const QSize wanted(static_cast<int>(std::ceil(width() * ratio)),
                       static_cast<int>(std::ceil(height() * ratio)));
    if (wanted.isEmpty()) return;
    if (image_.size() != wanted || image_.devicePixelRatio() != ratio) {
        image_ = QImage(wanted, QImage::Format_RGB32);
        image_.setDevicePixelRatio(ratio);
        isBlank_ = true;
    }
    if (isBlank_) {
        image_.fill(palette().color(QPalette::Base));
        if (!under_.isNull()) DrawOver(under_);
        drawn_ = 0;
        isBlank_ = false;
    }
    const QTransform toDevice = ToDevice();
    for (; drawn_ < list_.Items().size(); ++drawn_) {
        std::visit([&](const auto& item) { DrawItem(item, toDevice); }, list_.Items()[drawn_]);
    }
    list_.EndCurve();
}

// A point is drawn as the pixel around it. One on the right or bottom edge belongs to the last
// pixel, so that a curve along either end of an axis is visible. Shrinking by one pixel does both
// and moves nothing by more than half a pixel. The result is in device pixels, from the image's
// corner to the middle of the pen.
QTransform Surface::ToDevice() const {
    const QSizeF ratio = devicePixelRatioF() * Magnification();
    const auto scale = [&](double pixelRatio, int pixels) {
        return pixelRatio / unitsPerPixel_ * (pixels - 1) / pixels;
    };
    return QTransform::fromTranslate(0.5 * ratio.width(), 0.5 * ratio.height())
        .scale(scale(ratio.width(), DrawnSize().width()),
               scale(ratio.height(), DrawnSize().height()));
}

int Surface::PenWidth() const {
    return std::max(1, qRound(devicePixelRatioF() * Magnification().height()));
}

void Surface::DrawItem(const DrawnCurve& curve, const QTransform& toDevice) {
    const std::span<const DrawnPoint> points = list_.PointsOf(curve);
    BlackPen pen(image_, PenWidth());
    QPointF from = Mapped(toDevice, points.front());
    for (const DrawnPoint& point : points.subspan(1)) {
        const QPointF to = Mapped(toDevice, point);
        if (IsFinite(from) && IsFinite(to)) pen.Line(from, to);
        from = to;
    }
}

void Surface::DrawItem(const DrawnBox& box, const QTransform& toDevice) {
    const QPointF corner = Mapped(toDevice, box.Corner);
    const QPointF opposite = Mapped(toDevice, box.Opposite);
    if (!IsFinite(corner) || !IsFinite(opposite)) return;
    BlackPen pen(image_, PenWidth());
    box.IsFilled ? pen.FilledBox(corner, opposite) : pen.BoxOutline(corner, opposite);
}

void Surface::DrawItem(const DrawnGray& gray, const QTransform& /*toDevice*/) {
    DrawOver(InColour(list_.LevelsOf(gray), gray.Width, gray.Height));
}

// Over the whole image, stretched where sizes differ.
void Surface::DrawOver(const QImage& picture) {
    QPainter painter(&image_);
    painter.drawImage(QRectF(QPointF(), QSizeF(image_.size()) / devicePixelRatioF()), picture,
                      picture.rect());
}

void Surface::paintEvent(QPaintEvent* /*event*/) {
    Rasterise();
    QPainter painter(this);
    painter.drawImage(0, 0, image_);
    if (hasFocus()) DrawFocusFrame(painter, *this);
}

void Surface::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && DoubleClicked) {
        DoubleClicked();
    } else if (event->key() == Qt::Key_Escape && Clicked) {
        Clicked();
    } else if (takesKeys_ != nullptr) {
        QCoreApplication::sendEvent(takesKeys_, event);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void Surface::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) pressedHere_ = true;
    if (Pressed) {
        const QPointF place = event->position() * unitsPerPixel_;
        const QSizeF times = Magnification();
        Pressed(static_cast<float>(place.x() / times.width()),
                static_cast<float>(place.y() / times.height()));
    }
}

void Surface::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const bool isClick = std::exchange(pressedHere_, false) && rect().contains(event->pos());
    if (isClick && Clicked) Clicked();
}

void Surface::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && DoubleClicked) DoubleClicked();
}
