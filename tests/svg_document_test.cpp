// What the SVG writer writes, read back by the toolkit's readers.
#include "core/picture/svg_document.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QImage>
#include <QXmlStreamReader>
#include <algorithm>
#include <cmath>
#include <limits>
#include <locale>
#include <vector>

namespace {

struct Element {
    QString Name;
    QXmlStreamAttributes Attributes;
    QString Text;
};

// The elements in their order; a failure if the document is not well-formed.
std::vector<Element> Read(const SvgDocument& document) {
    QXmlStreamReader reader(QByteArray::fromStdString(document.Whole()));
    std::vector<Element> elements;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement())
            elements.push_back({reader.name().toString(), reader.attributes(), {}});
        if (reader.isCharacters() && !reader.isWhitespace())
            elements.back().Text += reader.text().toString();
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    return elements;
}

std::string Value(const Element& element, const char* name) {
    return element.Attributes.value(QLatin1String(name)).toString().toStdString();
}

// Numbers as in much of Europe: 1.234,5.
class CommaPoint : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

class InLocale {
public:
    explicit InLocale(const std::locale& locale) : before_(std::locale::global(locale)) {}
    ~InLocale() { std::locale::global(before_); }
    InLocale(const InLocale&) = delete;
    InLocale& operator=(const InLocale&) = delete;

private:
    std::locale before_;
};

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinite = std::numeric_limits<double>::infinity();

}  // namespace

TEST(SvgDocument, WritesNumbersTheSameInEveryLocale) {
    const InLocale locale(std::locale(std::locale::classic(), new CommaPoint));
    SvgDocument document(1760, 440.5);
    document.Circle({1234.567, -0.001}, 2.25, "none", "teal");
    const std::vector<DrawnPoint> points = {{0, 0.126}, {-12345678, 3e20}};
    document.Polyline(points, "#ff8800");

    const std::vector<Element> elements = Read(document);
    ASSERT_EQ(elements.size(), 4U);
    EXPECT_EQ(Value(elements[0], "viewBox"), "0 0 1760.0 440.5");
    EXPECT_EQ(Value(elements[1], "height"), "440.5");
    EXPECT_EQ(Value(elements[2], "cx"), "1234.57");
    EXPECT_EQ(Value(elements[2], "cy"), "0.0");
    EXPECT_EQ(Value(elements[2], "stroke"), "teal");
    EXPECT_EQ(Value(elements[3], "points"), "0.0,0.13 -12345678.0,300000000000000000000.0");
}

TEST(SvgDocument, EscapesWhateverAUserMayHaveTyped) {
    const std::string typed = "a<b> & \"c\" 'd' &amp; ]]> \x01\x1F \xC3\xA9";
    SvgDocument document(100, 100);
    document.Text({1, 2}, typed, SvgAnchor::Middle);
    document.Rectangle({0, 0, 1, 1}, "\"/><script>", "none");

    const std::vector<Element> elements = Read(document);
    ASSERT_EQ(elements.size(), 4U) << "a text cannot add elements";
    EXPECT_EQ(elements[2].Text.toStdString(), "a<b> & \"c\" 'd' &amp; ]]>    \xC3\xA9");
    EXPECT_EQ(Value(elements[2], "text-anchor"), "middle");
    EXPECT_EQ(Value(elements[3], "fill"), "\"/><script>");
}

// A segment with an end that is not finite is left out, and the curve goes on behind it.
TEST(SvgDocument, LeavesOutWhatIsNotFinite) {
    const std::vector<DrawnPoint> points = {{NotANumber, 0}, {1, 1},          {2, 2}, {3, Infinite},
                                            {4, 4},          {5, NotANumber}, {6, 6}, {7, 7}};
    SvgDocument document(100, 100);
    document.Polyline(points, "black");
    document.Polyline({}, "black");
    DrawingList list;
    list.BoxFilled(std::nanf(""), 0, 1, 1);
    document.Drawing(list, 100, 100, {0, 0, 100, 100});

    const std::vector<Element> elements = Read(document);
    ASSERT_EQ(elements.size(), 4U);
    EXPECT_EQ(Value(elements[2], "points"), "1.0,1.0 2.0,2.0");
    EXPECT_EQ(Value(elements[3], "points"), "6.0,6.0 7.0,7.0");
}

// A drawing fills its frame from the middle of the first pixel to the middle of the last.
TEST(SvgDocument, FitsADrawingIntoItsFrame) {
    DrawingList list;
    list.LineFrom(0, 0, 2000, 1000);
    list.BoxFilled(2000, 1000, -1000, -500);
    list.BoxOutline(0, 0, 2000, 500);
    SvgDocument document(300, 200);
    document.Drawing(list, 2000, 1000, {50, 25, 201, 101});

    const std::vector<Element> elements = Read(document);
    ASSERT_EQ(elements.size(), 5U);
    EXPECT_EQ(Value(elements[2], "points"), "50.5,25.5 250.5,125.5");
    EXPECT_EQ(Value(elements[3], "x"), "150.5");
    EXPECT_EQ(Value(elements[3], "y"), "75.5");
    EXPECT_EQ(Value(elements[3], "width"), "100.0");
    EXPECT_EQ(Value(elements[3], "height"), "50.0");
    EXPECT_EQ(Value(elements[4], "points"), "50.5,25.5 250.5,25.5 250.5,75.5 50.5,75.5 50.5,25.5");
}

// What lies outside is left out, and a curve that comes back begins a new line on the edge, in its
// true place however far off its points lie.
TEST(SvgDocument, CutsADrawingOffAtItsFrame) {
    DrawingList list;
    list.LineFrom(10, 50, 150, 50);
    list.LineOn(150, 80);
    list.LineOn(-1e9F, 80);
    list.LineFrom(-100, -100, 1e6F, 1e6F);
    list.LineFrom(-10, 50, 50, -1000);
    list.LineFrom(50, std::numeric_limits<float>::infinity(), 50, 50);
    list.BoxFilled(-50, 90, 60, 3e38F);
    list.BoxFilled(-50, -50, 40, 40);
    list.BoxOutline(90, 40, 20, 20);
    SvgDocument document(101, 101);
    document.Drawing(list, 100, 100, {0, 0, 101, 101});

    std::vector<std::string> drawn;
    for (const Element& element : Read(document)) {
        if (element.Name == "polyline") drawn.push_back(Value(element, "points"));
        if (element.Name == "rect")
            drawn.push_back(Value(element, "x") + " " + Value(element, "y") + " " +
                            Value(element, "width") + " " + Value(element, "height"));
    }
    const std::vector<std::string> expected = {
        "0.0 0.0 101.0 101.0",           "10.5,50.5 100.5,50.5", "100.5,80.5 0.5,80.5",
        "0.5,0.5 100.5,100.5",           "0.5 90.5 10.0 10.0",   "90.5,40.5 100.5,40.5",
        "100.5,60.5 90.5,60.5 90.5,40.5"};
    EXPECT_EQ(drawn, expected);
}

// Sizes below, at and above a block of the PNG's stream; the reader checks its sums.
TEST(SvgDocument, EmbedsAGrayImageThatReadersUnderstand) {
    for (const auto& [width, height] :
         {std::pair(1, 1), {3, 2}, {254, 257}, {257, 255}, {973, 441}}) {
        DrawingList list;
        const auto levels = list.Gray(width, height);
        for (std::size_t i = 0; i < levels.size(); ++i)
            levels[i] = static_cast<std::uint8_t>(i * i % 251);
        SvgDocument document(500, 300);
        document.Drawing(list, 453, 193, {0, 0, 500, 300});

        const Element image = Read(document).back();
        const QString link =
            image.Attributes.value("http://www.w3.org/1999/xlink", "href").toString();
        const QString head = "data:image/png;base64,";
        ASSERT_TRUE(link.startsWith(head));
        const QByteArray png = QByteArray::fromBase64(link.mid(head.size()).toLatin1());
        const QImage read = QImage::fromData(png, "PNG").convertToFormat(QImage::Format_Grayscale8);
        ASSERT_EQ(read.size(), QSize(width, height));
        for (int y = 0; y < height; ++y) {
            ASSERT_TRUE(std::equal(read.constScanLine(y), read.constScanLine(y) + width,
                                   levels.begin() + y * width))
                << width << " by " << height << " row " << y;
        }
        EXPECT_EQ(Value(image, "width"), "500.0");
        EXPECT_EQ(Value(image, "preserveAspectRatio"), "none");
    }
}
