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

// Cuts a segment off at the edges of a rectangle; false if nothing of it is inside. Each edge
// bounds the part of the way that is inside: ACM Trans. Graphics 3, 1 (1984).
bool CutSegment(const SvgFrame& room, DrawnPoint& from, DrawnPoint& to) {
    const double dx = to.X - from.X;
    const double dy = to.Y - from.Y;
    double first = 0.0;  // of the way from `from` to `to`
    double last = 1.0;
    const auto cut = [&](double rate, double reach) {  // inside where rate * way <= reach
        if (rate == 0.0) return reach >= 0.0;
        const double way = reach / rate;
        rate < 0.0 ? first = std::max(first, way) : last = std::min(last, way);
        return first <= last;
    };
    const bool isInside = cut(-dx, from.X - room.X) && cut(dx, room.X + room.Width - from.X) &&
                          cut(-dy, from.Y - room.Y) && cut(dy, room.Y + room.Height - from.Y);
    if (!isInside) return false;
    if (last < 1.0) to = {from.X + last * dx, from.Y + last * dy};
    if (first > 0.0) from = {from.X + first * dx, from.Y + first * dy};
    return true;
}

// Writes the items of a drawing into a frame of a document. They are cut off here and not by the
// viewer: viewers differ in what they support. As on a surface, the drawing is shrunk by a pixel,
// so that a line along an edge is seen as wide as any other.
class ItemWriter {
public:
    ItemWriter(const DrawingList& list, double width, double height, const SvgFrame& frame,
               SvgDocument& document)
        : list_(list),
          frame_(frame),
          room_{frame.X + 0.5, frame.Y + 0.5, frame.Width - 1, frame.Height - 1},
          scaleX_(room_.Width / width),
          scaleY_(room_.Height / height),
          document_(document) {}

    void operator()(const DrawnCurve& curve) { WriteCurve(list_.PointsOf(curve)); }

    void operator()(const DrawnBox& box) {
        const DrawnPoint& a = box.Corner;
        const DrawnPoint& b = box.Opposite;
        if (!IsFinite(a) || !IsFinite(b)) return;
        if (!box.IsFilled) {
            const std::array<DrawnPoint, 5> edge = {a, {b.X, a.Y}, b, {a.X, b.Y}, a};
            WriteCurve(edge);
            return;
        }
        const DrawnPoint low = InFrame({std::min(a.X, b.X), std::min(a.Y, b.Y)});
        const DrawnPoint high = InFrame({std::max(a.X, b.X), std::max(a.Y, b.Y)});
        const double left = std::max(low.X, room_.X);
        const double top = std::max(low.Y, room_.Y);
        const double right = std::min(high.X, room_.X + room_.Width);
        const double bottom = std::min(high.Y, room_.Y + room_.Height);
        if (left > right || top > bottom) return;
        document_.Rectangle({left, top, right - left, bottom - top}, "black", "black");
    }

    void operator()(const DrawnGray& gray) {
        document_.Image(list_.LevelsOf(gray), gray.Width, gray.Height, frame_);
    }

private:
    DrawnPoint InFrame(DrawnPoint point) const {
        return {room_.X + point.X * scaleX_, room_.Y + point.Y * scaleY_};
    }

    // A polyline for each run of segments that are inside and finite.
    void WriteCurve(std::span<const DrawnPoint> points) {
        run_.clear();
        for (std::size_t i = 1; i < points.size(); ++i) {
            DrawnPoint from = InFrame(points[i - 1]);
            DrawnPoint to = InFrame(points[i]);
            if (!IsFinite(from) || !IsFinite(to) || !CutSegment(room_, from, to)) continue;
            if (run_.empty() || !(run_.back() == from)) {
                document_.Polyline(run_, "black");
                run_ = {from};
            }
            run_.push_back(to);
        }
        document_.Polyline(run_, "black");
    }

    const DrawingList& list_;
    const SvgFrame& frame_;
    SvgFrame room_;  // for the middle of the pen
    double scaleX_;
    double scaleY_;
    SvgDocument& document_;
    std::vector<DrawnPoint> run_;
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
    ItemWriter write(list, width, height, frame, *this);
    for (const DrawingList::Item& item : list.Items()) std::visit(write, item);
}

std::string SvgDocument::Whole() const {
    return text_ + "</svg>\n";
}

void SvgDocument::Open(std::string_view element, std::string_view attributes) {
    text_.append("<").append(element).append(attributes);
}
