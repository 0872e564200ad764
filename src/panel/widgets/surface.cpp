#include "panel/widgets/surface.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cassert>
#include <cmath>
#include <utility>

#include "panel/widgets/black_pen.h"
#include "panel/widgets/edge_drawing.h"

namespace {

// Beyond this many points the list gives way to a picture of what it drew: a surface that nobody
// clears takes no more memory than this.
constexpr std::size_t MostKeptPoints = 32768;

bool IsFinite(QPointF point) {
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

// The picture in the format of the surface's own image. The toolkit's conversion would wake its
// threads for it, which takes longer than the work.
QImage InColour(const QImage& gray) {
    const int width = gray.width();
    const int height = gray.height();
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        const uchar* const levels = gray.constScanLine(y);
        auto* const pixels = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < width; ++x) pixels[x] = 0xFF000000 | (levels[x] * 0x010101U);
    }
    return picture;
}

}  // namespace

Surface::Surface(const PanelScale& scale, double unitsPerPixel, QWidget* parent)
    : QWidget(parent), scale_(scale), unitsPerPixel_(unitsPerPixel) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::TabFocus);  // a press leaves the focus where the user types
}

void Surface::Place(const QRect& twips) {
    setGeometry(scale_.ToPixels(twips));
}

void Surface::Cls() {
    Erase();
    current_ = {};
    Refresh();
}

void Surface::LineFrom(float x1, float y1, float x2, float y2) {
    const QPointF start(x1, y1);
    current_ = QPointF(x2, y2);
    Keep(Curve{start, current_}, 2);
}

void Surface::LineOn(float x2, float y2) {
    Settle();
    const QPointF start = std::exchange(current_, QPointF(x2, y2));
    Curve* const open = items_.size() > drawn_ ? std::get_if<Curve>(&items_.back()) : nullptr;
    if (open == nullptr || keptPoints_ >= MostKeptPoints) {
        Keep(Curve{start, current_}, 2);
        return;
    }
    open->push_back(current_);
    ++keptPoints_;
}

void Surface::BoxFilled(float x, float y, float w, float h) {
    Keep(Box{QPointF(x, y), QPointF(x, y) + QPointF(w, h), true}, 2);
}

void Surface::BoxOutline(float x, float y, float w, float h) {
    Keep(Box{QPointF(x, y), QPointF(x, y) + QPointF(w, h), false}, 2);
}

void Surface::ShowGray(QImage gray) {
    if (gray.isNull()) return;
    ReplaceBy(std::move(gray));
    Refresh();
}

void Surface::ShowGrayWhenSeen(std::function<QImage()> draw) {
    awaited_ = std::move(draw);
    Refresh();
}

void Surface::Settle() {
    if (!awaited_) return;
    QImage gray = std::exchange(awaited_, nullptr)();
    if (!gray.isNull()) ReplaceBy(std::move(gray));
}

void Surface::ReplaceBy(QImage gray) {
    assert(gray.format() == QImage::Format_Grayscale8);
    Erase();
    items_.emplace_back(std::move(gray));
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
    items_.clear();
    keptPoints_ = 0;
    drawn_ = 0;
    blank_ = true;
}

void Surface::Keep(Item item, std::size_t points) {
    Settle();
    if (keptPoints_ >= MostKeptPoints) {
        Rasterise();
        items_.clear();
        items_.emplace_back(image_);
        drawn_ = 1;
        keptPoints_ = 0;
    }
    items_.push_back(std::move(item));
    keptPoints_ += points;
    Refresh();
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
        blank_ = true;
    }
    if (blank_) {
        image_.fill(palette().color(QPalette::Base));
        drawn_ = 0;
        blank_ = false;
    }
    for (; drawn_ < items_.size(); ++drawn_) {
        std::visit([this](const auto& item) { Draw(item); }, items_[drawn_]);
    }
}

// A point on the surface is drawn as the pixel around it; a point on the right or bottom edge
// belongs to the last pixel, so that a curve along either end of an axis is seen. Shrinking by one
// pixel does both, and moves nothing by more than half a pixel. The result counts device pixels
// from the image's corner to the middle of the pen.
QTransform Surface::ToDevice() const {
    const double ratio = devicePixelRatioF();
    const auto scale = [&](int pixels) { return ratio / unitsPerPixel_ * (pixels - 1) / pixels; };
    return QTransform::fromTranslate(0.5 * ratio, 0.5 * ratio)
        .scale(scale(width()), scale(height()));
}

int Surface::PenWidth() const {
    return std::max(1, qRound(devicePixelRatioF()));
}

void Surface::Draw(const Curve& curve) {
    const QTransform toDevice = ToDevice();
    BlackPen pen(image_, PenWidth());
    QPointF from = toDevice.map(curve.front());
    for (std::size_t i = 1; i < curve.size(); ++i) {
        const QPointF to = toDevice.map(curve[i]);
        if (IsFinite(from) && IsFinite(to)) pen.Line(from, to);
        from = to;
    }
}

void Surface::Draw(const Box& box) {
    const QPointF corner = ToDevice().map(box.Corner);
    const QPointF opposite = ToDevice().map(box.Opposite);
    if (!IsFinite(corner) || !IsFinite(opposite)) return;
    BlackPen pen(image_, PenWidth());
    box.Filled ? pen.FilledBox(corner, opposite) : pen.BoxOutline(corner, opposite);
}

void Surface::Draw(const QImage& picture) {
    QPainter painter(&image_);
    const bool isGray = picture.format() == QImage::Format_Grayscale8;
    painter.drawImage(QRectF(QPointF(), QSizeF(image_.size()) / devicePixelRatioF()),
                      isGray ? InColour(picture) : picture, picture.rect());
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
        Pressed(static_cast<float>(place.x()), static_cast<float>(place.y()));
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
