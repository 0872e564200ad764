#include "display/surface.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

namespace {

// Beyond this many points the list gives way to a picture of what it drew: a surface that nobody
// clears takes no more memory than this.
constexpr std::size_t MostKeptPoints = 32768;

// Device pixels around the image within which coordinates are handed to the toolkit, whose
// rasteriser works with 16 bits before the point.
constexpr double Margin = 64.0;

bool IsFinite(QPointF point) {
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

// Where the segment from inside to outside crosses the vertical line at x.
QPointF CutAtX(QPointF inside, QPointF outside, double x) {
    const double part = (x - inside.x()) / (outside.x() - inside.x());
    return {x, inside.y() + part * (outside.y() - inside.y())};
}

QPointF CutAtY(QPointF inside, QPointF outside, double y) {
    return CutAtX(inside.transposed(), outside.transposed(), y).transposed();
}

// Cuts the segment back to one side of a line. Either distance is positive beyond the line. False
// if nothing is left.
template <typename Cut>
bool CutBack(QPointF& a, QPointF& b, double beyondA, double beyondB, Cut cut) {
    if (beyondA > 0.0 && beyondB > 0.0) return false;
    if (beyondA > 0.0) a = cut(b, a);
    if (beyondB > 0.0) b = cut(a, b);
    return true;
}

// Cuts the segment back to the frame. Every crossing is worked out from the end that stays, so that
// the visible part keeps its place however far the other end lies. False if nothing is left.
bool CutToFrame(QPointF& a, QPointF& b, const QRectF& frame) {
    const auto atX = [](double x) {
        return [x](QPointF inside, QPointF outside) { return CutAtX(inside, outside, x); };
    };
    const auto atY = [](double y) {
        return [y](QPointF inside, QPointF outside) { return CutAtY(inside, outside, y); };
    };
    return CutBack(a, b, frame.left() - a.x(), frame.left() - b.x(), atX(frame.left())) &&
           CutBack(a, b, a.x() - frame.right(), b.x() - frame.right(), atX(frame.right())) &&
           CutBack(a, b, frame.top() - a.y(), frame.top() - b.y(), atY(frame.top())) &&
           CutBack(a, b, a.y() - frame.bottom(), b.y() - frame.bottom(), atY(frame.bottom()));
}

}  // namespace

Surface::Surface(const PanelScale& scale, double unitsPerPixel, QWidget* parent)
    : QWidget(parent), scale_(scale), unitsPerPixel_(unitsPerPixel) {
    setAttribute(Qt::WA_OpaquePaintEvent);
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

void Surface::ShowGray(const QImage& gray) {
    if (gray.isNull()) return;
    Erase();
    Keep(gray.copy(), 0);
}

void Surface::Refresh() {
    if (std::exchange(updatePosted_, true)) return;
    update();
}

const QImage& Surface::Image() {
    Rasterise();
    return image_;
}

void Surface::Erase() {
    items_.clear();
    keptPoints_ = 0;
    drawn_ = 0;
    blank_ = true;
}

void Surface::Keep(Item item, std::size_t points) {
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
    const double ratio = devicePixelRatioF();
    const QSize wanted(static_cast<int>(std::ceil(width() * ratio)),
                       static_cast<int>(std::ceil(height() * ratio)));
    if (wanted.isEmpty()) return;
    if (image_.size() != wanted || image_.devicePixelRatio() != ratio) {
        image_ = QImage(wanted, QImage::Format_RGB32);
        blank_ = true;
    }
    if (blank_) {
        image_.fill(palette().color(QPalette::Base));
        drawn_ = 0;
        blank_ = false;
    }
    if (drawn_ < items_.size()) {
        image_.setDevicePixelRatio(1.0);  // the painter works in device pixels
        QPainter painter(&image_);
        painter.setPen(QPen(Qt::black, PenWidth()));
        for (; drawn_ < items_.size(); ++drawn_) {
            std::visit([&](const auto& item) { Draw(painter, item); }, items_[drawn_]);
        }
    }
    image_.setDevicePixelRatio(ratio);
}

// A point on the surface is drawn as the pixel around it; a point on the right or bottom edge
// belongs to the last pixel, so that a curve along either end of an axis is seen. Shrinking by one
// pixel does both, and moves nothing by more than half a pixel. The result counts device pixels
// from the image's corner to the middle of the line.
QPointF Surface::ToDevice(QPointF point) const {
    const auto along = [this](double coordinate, int pixels) {
        const double shrunk = coordinate / unitsPerPixel_ * (pixels - 1) / pixels;
        return (shrunk + 0.5) * devicePixelRatioF();
    };
    return {along(point.x(), width()), along(point.y(), height())};
}

int Surface::PenWidth() const {
    return std::max(1, qRound(devicePixelRatioF()));
}

void Surface::Draw(QPainter& painter, const Curve& curve) const {
    const QRectF frame = QRectF(image_.rect()).adjusted(-Margin, -Margin, Margin, Margin);
    QPolygonF seen;
    const auto drawSeen = [&] {
        if (seen.size() > 1) painter.drawPolyline(seen);
        seen.clear();
    };
    for (std::size_t i = 1; i < curve.size(); ++i) {
        QPointF from = ToDevice(curve[i - 1]);
        QPointF to = ToDevice(curve[i]);
        if (!IsFinite(from) || !IsFinite(to) || !CutToFrame(from, to, frame)) {
            drawSeen();
            continue;
        }
        if (seen.isEmpty() || seen.last() != from) {
            drawSeen();
            seen.append(from);
        }
        seen.append(to);
    }
    drawSeen();
}

void Surface::Draw(QPainter& painter, const Box& box) const {
    const QPointF a = ToDevice(box.Corner);
    const QPointF b = ToDevice(box.Opposite);
    if (!IsFinite(a) || !IsFinite(b)) return;
    const int pen = PenWidth();
    const auto clamped = [](double edge, int size) {
        return qRound(std::clamp(edge, -Margin, size + Margin));
    };
    const int left = clamped(std::min(a.x(), b.x()) - 0.5 * pen, image_.width());
    const int right = clamped(std::max(a.x(), b.x()) + 0.5 * pen, image_.width());
    const int top = clamped(std::min(a.y(), b.y()) - 0.5 * pen, image_.height());
    const int bottom = clamped(std::max(a.y(), b.y()) + 0.5 * pen, image_.height());
    if (box.Filled) {
        painter.fillRect(left, top, right - left, bottom - top, Qt::black);
        return;
    }
    painter.fillRect(left, top, right - left, pen, Qt::black);
    painter.fillRect(left, bottom - pen, right - left, pen, Qt::black);
    painter.fillRect(left, top, pen, bottom - top, Qt::black);
    painter.fillRect(right - pen, top, pen, bottom - top, Qt::black);
}

void Surface::Draw(QPainter& painter, const QImage& picture) const {
    painter.drawImage(image_.rect(), picture, picture.rect());
}

void Surface::paintEvent(QPaintEvent* /*event*/) {
    updatePosted_ = false;
    Rasterise();
    QPainter(this).drawImage(0, 0, image_);
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
