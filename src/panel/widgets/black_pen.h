// Black lines and boxes on an image, without smoothing.
#pragma once

#include <QImage>
#include <QPointF>

// The pen is a square of whole pixels. Coordinates are in pixels, from the image's corner to the
// middle of the pen. They must be finite and may lie anywhere: only what falls on the image costs
// time, and it stays in its place however far a line goes on.
//
// The toolkit's painter draws the same lines 20 to 40 times slower once they are thicker than one
// pixel, and holds coordinates in 16 bits before the point.
class BlackPen {
public:
    // image: 32 bits a pixel. width: 1 or more.
    BlackPen(QImage& image, int width);

    void Line(QPointF from, QPointF to);
    void FilledBox(QPointF corner, QPointF opposite);
    void BoxOutline(QPointF corner, QPointF opposite);

private:
    void Fill(int left, int top, int right, int bottom);
    void Dot(int x, int y) { Fill(x, y, x + width_, y + width_); }
    int Pixel(double middle, int size) const;

    QRgb* pixels_;
    std::ptrdiff_t rowLength_;
    int imageWidth_;
    int imageHeight_;
    int width_;
};
