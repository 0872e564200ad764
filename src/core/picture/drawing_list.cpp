#include "core/picture/drawing_list.h"

#include <cassert>

void DrawingList::Clear() {
    ClearItems();
    current_ = {};
}

void DrawingList::ClearItems() {
    items_.clear();
    points_.clear();
    levels_.clear();
    boxCount_ = 0;
    isCurveOpen_ = false;
}

void DrawingList::LineFrom(float x1, float y1, float x2, float y2) {
    isCurveOpen_ = false;
    current_ = {x1, y1};
    LineOn(x2, y2);
}

void DrawingList::LineOn(float x2, float y2) {
    if (!isCurveOpen_) {
        Add(DrawnCurve{points_.size(), 1});
        points_.push_back(current_);
        isCurveOpen_ = true;
    }
    current_ = {x2, y2};
    points_.push_back(current_);
    ++std::get_if<DrawnCurve>(&items_.back())->Count;
}

void DrawingList::BoxFilled(float x, float y, float w, float h) {
    AddBox(x, y, w, h, true);
}

void DrawingList::BoxOutline(float x, float y, float w, float h) {
    AddBox(x, y, w, h, false);
}

void DrawingList::AddBox(float x, float y, float w, float h, bool isFilled) {
    const DrawnPoint corner{x, y};
    Add(DrawnBox{corner, {corner.X + w, corner.Y + h}, isFilled});
    ++boxCount_;
}

std::span<std::uint8_t> DrawingList::Gray(int width, int height) {
    assert(width >= 1 && height >= 1);
    const std::size_t first = levels_.size();
    const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    Add(DrawnGray{first, width, height});
    levels_.resize(first + count);
    return std::span(levels_).subspan(first);
}

std::span<const DrawnPoint> DrawingList::PointsOf(const DrawnCurve& curve) const {
    return std::span(points_).subspan(curve.First, curve.Count);
}

std::span<const std::uint8_t> DrawingList::LevelsOf(const DrawnGray& gray) const {
    return std::span(levels_).subspan(
        gray.First, static_cast<std::size_t>(gray.Width) * static_cast<std::size_t>(gray.Height));
}

void DrawingList::Add(const Item& item) {
    items_.push_back(item);
    isCurveOpen_ = false;
}
