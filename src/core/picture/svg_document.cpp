#include "core/picture/svg_document.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <variant>
#include <vector>

#include "core/model/number_text.h"
#include "core/picture/gray_png.h"

namespace {

std::string Number(double value) {
    return FormatNumber(value, "0.0#");
}

// As the text of an element or the value of an attribute. Control characters, which XML does not
// allow even escaped, become blanks.
std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            default:
                escaped += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
        }
    }
    return escaped;
}

std::string Attribute(std::string_view name, std::string_view value) {
    std::string attribute(" ");
    attribute.append(name).append("=\"").append(Escaped(value)).append("\"");
    return attribute;
}

std::string Attribute(std::string_view name, double value) {
    return Attribute(name, Number(value));
}

std::string Attributes(const SvgFrame& frame) {
    return Attribute("x", frame.X) + Attribute("y", frame.Y) + Attribute("width", frame.Width) +
           Attribute("height", frame.Height);
}

std::string Base64(std::string_view bytes) {
    constexpr std::string_view digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::string_view group = bytes.substr(at, 3);
        std::uint32_t bits = 0;
        for (std::size_t k = 0; k < 3; ++k) {
            bits = (bits << 8) | (k < group.size() ? static_cast<std::uint8_t>(group[k]) : 0U);
        }
        for (std::size_t k = 0; k < 4; ++k) {
            text += k <= group.size() ? digits[(bits >> (18 - 6 * k)) & 63] : '=';
        }
    }
    return text;
}

bool IsFinite(DrawnPoint point) {
    return std::isfinite(point.X) && std::isfinite(point.Y);
}

// From the unit of a drawing to the pixels of its frame, as on a surface: shrunk by a pixel, so
// that a line along an edge is seen as wide as any other.
struct ToFrame {
    double ScaleX;
    double ScaleY;

    DrawnPoint operator()(DrawnPoint point) const {
        return {0.5 + point.X * ScaleX, 0.5 + point.Y * ScaleY};
    }
};

// Writes the items of a drawing into a document.
class ItemWriter {
public:
    ItemWriter(const DrawingList& list, const SvgFrame& frame, ToFrame toFrame,
               SvgDocument& document)
        : list_(list), frame_(frame), toFrame_(toFrame), document_(document) {}

    void operator()(const DrawnCurve& curve) {
        points_.clear();
        for (const DrawnPoint& point : list_.PointsOf(curve)) points_.push_back(toFrame_(point));
        document_.Polyline(points_, "black");
    }

    void operator()(const DrawnBox& box) {
        const DrawnPoint corner = toFrame_(box.Corner);
        const DrawnPoint opposite = toFrame_(box.Opposite);
        if (!IsFinite(corner) || !IsFinite(opposite)) return;
        document_.Rectangle({std::min(corner.X, opposite.X), std::min(corner.Y, opposite.Y),
                             std::abs(opposite.X - corner.X), std::abs(opposite.Y - corner.Y)},
                            box.IsFilled ? "black" : "none", "black");
    }

    void operator()(const DrawnGray& gray) {
        document_.Image(list_.LevelsOf(gray), gray.Width, gray.Height,
                        {0.0, 0.0, frame_.Width, frame_.Height});
    }

private:
    const DrawingList& list_;
    const SvgFrame& frame_;
    ToFrame toFrame_;
    SvgDocument& document_;
    std::vector<DrawnPoint> points_;
};

}  // namespace

SvgDocument::SvgDocument(double width, double height) {
    const std::string size = Number(width) + " " + Number(height);
    Open("svg", Attribute("xmlns", "http://www.w3.org/2000/svg") +
                    Attribute("xmlns:xlink", "http://www.w3.org/1999/xlink") +
                    Attribute("viewBox", "0 0 " + size) + Attribute("font-family", "sans-serif") +
                    Attribute("font-size", "13"));
    text_ += ">\n";
    Rectangle({0.0, 0.0, width, height}, "white", "none");
}

void SvgDocument::Rectangle(const SvgFrame& frame, std::string_view fill, std::string_view stroke) {
    Open("rect", Attributes(frame) + Attribute("fill", fill) + Attribute("stroke", stroke));
    text_ += "/>\n";
}

// A polyline for each run of finite points.
void SvgDocument::Polyline(std::span<const DrawnPoint> points, std::string_view stroke) {
    auto from = points.begin();
    while (from != points.end()) {
        from = std::find_if(from, points.end(), IsFinite);
        const auto end = std::find_if_not(from, points.end(), IsFinite);
        if (end - from > 1) {
            Open("polyline", Attribute("fill", "none") + Attribute("stroke", stroke));
            text_ += " points=\"";
            for (; from != end; ++from) text_ += Number(from->X) + "," + Number(from->Y) + " ";
            text_.back() = '"';
            text_ += "/>\n";
        }
        from = end;
    }
}

void SvgDocument::Circle(DrawnPoint centre, double radius, std::string_view fill,
                         std::string_view stroke) {
    Open("circle", Attribute("cx", centre.X) + Attribute("cy", centre.Y) + Attribute("r", radius) +
                       Attribute("fill", fill) + Attribute("stroke", stroke));
    text_ += "/>\n";
}

void SvgDocument::Text(DrawnPoint place, std::string_view text, SvgAnchor anchor) {
    constexpr std::array<std::string_view, 3> anchors = {"start", "middle", "end"};
    Open("text", Attribute("x", place.X) + Attribute("y", place.Y) +
                     Attribute("text-anchor", anchors[static_cast<std::size_t>(anchor)]));
    text_.append(">").append(Escaped(text)).append("</text>\n");
}

void SvgDocument::Image(std::span<const std::uint8_t> levels, int width, int height,
                        const SvgFrame& frame) {
    Open("image", Attributes(frame) + Attribute("preserveAspectRatio", "none") +
                      Attribute("image-rendering", "pixelated"));
    text_ +=
        " xlink:href=\"data:image/png;base64," + Base64(GrayPng(levels, width, height)) + "\"/>\n";
}

void SvgDocument::Drawing(const DrawingList& list, double width, double height,
                          const SvgFrame& frame) {
    Open("svg", Attributes(frame));  // an inner document cuts off what lies outside
    text_ += ">\n";
    const ToFrame toFrame{(frame.Width - 1) / width, (frame.Height - 1) / height};
    ItemWriter write(list, frame, toFrame, *this);
    for (const DrawingList::Item& item : list.Items()) std::visit(write, item);
    text_ += "</svg>\n";
}

std::string SvgDocument::Whole() const {
    return text_ + "</svg>\n";
}

void SvgDocument::Open(std::string_view element, std::string_view attributes) {
    text_.append("<").append(element).append(attributes);
}
