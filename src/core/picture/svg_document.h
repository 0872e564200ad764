// The program's SVG writer: a document that grows element by element. Draws a drawing list as a
// surface does, and the lines, dots and texts of a chart around it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/picture/drawing_list.h"

// A rectangle of a document; its left and top edge and its size.
struct SvgFrame {
    double X;
    double Y;
    double Width;
    double Height;
};

enum class SvgAnchor { Start, Middle, End };

// Coordinates are in pixels from the document's top left corner, and are written with two decimals
// and a point in any locale. They must be finite, except in curves and drawings, which leave out a
// segment with an end that is not. A colour is a name or "#rrggbb", "none" for none. Texts are
// UTF-8 and are escaped.
class SvgDocument {
public:
    // A white document.
    SvgDocument(double width, double height);

    void Rectangle(const SvgFrame& frame, std::string_view fill, std::string_view stroke);
    void Polyline(std::span<const DrawnPoint> points, std::string_view stroke);
    void Circle(DrawnPoint centre, double radius, std::string_view fill, std::string_view stroke);

    // A line of text; `place` is the start, the middle or the end of its base line.
    void Text(DrawnPoint place, std::string_view text, SvgAnchor anchor = SvgAnchor::Start);

    // Levels from 0, black, to 255, white, the top row first, stretched over a frame.
    void Image(std::span<const std::uint8_t> levels, int width, int height, const SvgFrame& frame);

    // A drawing of that size in its own unit, fitted into a frame and cut off at its edges.
    void Drawing(const DrawingList& list, double width, double height, const SvgFrame& frame);

    // The whole document so far.
    std::string Whole() const;

private:
    void Open(std::string_view element, std::string_view attributes);

    std::string text_;
};
