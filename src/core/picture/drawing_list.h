// What a picture is made of, as data: lines, boxes and a gray image, in the order in which they are
// drawn. Knows no window: a surface turns it into pixels, an SVG document into elements.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <variant>
#include <vector>

struct DrawnPoint {
    double X = 0.0;
    double Y = 0.0;

    bool operator==(const DrawnPoint&) const = default;
};

// Segments from point to point: Count points of the list from First on, at least two.
struct DrawnCurve {
    std::size_t First;
    std::size_t Count;
};

// The rectangle between two opposite corners, or only its edge.
struct DrawnBox {
    DrawnPoint Corner;
    DrawnPoint Opposite;
    bool IsFilled;
};

// An image in 256 grays, 0 black and 255 white, that covers the whole picture whatever the size of
// that. Width * Height levels of the list from First on, the top row first.
struct DrawnGray {
    std::size_t First;
    int Width;
    int Height;
};

// Coordinates are in the picture's own unit, from its top left corner, y growing downward. They may
// lie anywhere, and need not be finite: what is off the picture is not seen, and a segment or a box
// with a coordinate that is not finite is left out. Lines and boxes are black and one pixel wide.
//
// Clearing keeps the storage, so that drawing a picture again allocates nothing.
class DrawingList {
public:
    using Item = std::variant<DrawnCurve, DrawnBox, DrawnGray>;

    // Empties the list; the current point returns to 0, 0, or stays.
    void Clear();
    void ClearItems();

    // A segment from the given start, or from the current point; its end is the new current point.
    void LineFrom(float x1, float y1, float x2, float y2);
    void LineOn(float x2, float y2);

    // The rectangle with the corners x, y and x+w, y+h, or its edge only. The current point stays.
    void BoxFilled(float x, float y, float w, float h);
    void BoxOutline(float x, float y, float w, float h);

    // Adds a gray image of at least 1 by 1 pixels and returns its levels, all 0, for the caller to
    // fill. The span is valid until the next change of the list.
    std::span<std::uint8_t> Gray(int width, int height);

    // Makes the next LineOn begin a new curve, so that the present items no longer change.
    void EndCurve() { isCurveOpen_ = false; }

    const std::vector<Item>& Items() const { return items_; }
    std::span<const DrawnPoint> PointsOf(const DrawnCurve& curve) const;
    std::span<const std::uint8_t> LevelsOf(const DrawnGray& gray) const;

    // A measure of the list's memory: the points of all curves, and two for each box.
    std::size_t PointCount() const { return points_.size() + 2 * boxCount_; }

private:
    void Add(const Item& item);
    void AddBox(float x, float y, float w, float h, bool isFilled);

    std::vector<Item> items_;
    std::vector<DrawnPoint> points_;    // of all curves
    std::vector<std::uint8_t> levels_;  // of all gray images
    std::size_t boxCount_ = 0;
    DrawnPoint current_;
    bool isCurveOpen_ = false;  // the last item is a curve that ends at the current point
};
