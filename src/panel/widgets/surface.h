// A picture on the panel that is drawn by plain calls and keeps what was drawn.
#pragma once

#include <QImage>
#include <QPointF>
#include <QTransform>
#include <QWidget>
#include <functional>
#include <variant>
#include <vector>

#include "panel/widgets/panel_scale.h"

// Coordinates are in the surface's own unit, from the interior's top left, y growing downward. They
// may lie anywhere: what is off the surface or not finite is not seen. Lines and boxes are black
// and one logical pixel wide.
//
// Drawing since the last Cls is kept as a list and becomes an image once, when somebody looks. The
// paint event only copies that image out, and lays a frame over it while the surface has the focus.
// It runs no procedure that writes text boxes; so exposure loses nothing and changes nothing.
class Surface : public QWidget {
public:
    // unitsPerPixel: the size of a logical pixel in the unit of the coordinates.
    Surface(const PanelScale& scale, double unitsPerPixel, QWidget* parent = nullptr);

    // The outer position and size in twips. What was drawn stays; a gray picture stretches.
    void Place(const QRect& twips);

    // Interior size in the surface's unit.
    float ScaleWidth() const { return static_cast<float>(width() * unitsPerPixel_); }
    float ScaleHeight() const { return static_cast<float>(height() * unitsPerPixel_); }

    // Erases everything; the current point returns to 0, 0.
    void Cls();

    // A segment from the given start, or from the current point; its end is the new current point.
    void LineFrom(float x1, float y1, float x2, float y2);
    void LineOn(float x2, float y2);

    // The rectangle with the corners x, y and x+w, y+h, or its edge only. The current point stays.
    void BoxFilled(float x, float y, float w, float h);
    void BoxOutline(float x, float y, float w, float h);

    // Shows a picture in 256 grays, 8 bits a pixel, over the whole surface, in place of all that
    // was drawn. The picture owns its pixels.
    void ShowGray(QImage gray);

    // The same with the picture that `draw` gives, which is asked when somebody looks, and never if
    // another picture comes before.
    void ShowGrayWhenSeen(std::function<QImage()> draw);

    // Has what ShowGrayWhenSeen was told drawn now, before what it is drawn from changes.
    void Settle();

    // True while nobody will see what is drawn here, because the surface is going to be cleared
    // first: whoever draws can leave it out. Changes nothing that the surface shows.
    bool IsUnseen() const { return isUnseen_; }
    void SetUnseen(bool isUnseen) { isUnseen_ = isUnseen; }

    // Brings what was drawn to the screen when the present event has been handled.
    void Refresh();

    // What the surface shows, at the device pixel ratio of its screen.
    const QImage& Image();

    // What the user does here, in the order press, click, double click. Any button presses; only
    // the left one clicks. A click is a release inside the surface; the second release of a double
    // click is none. With the focus, Escape is a click and Enter a double click.
    std::function<void(float x, float y)> Pressed;
    std::function<void()> Clicked;
    std::function<void()> DoubleClicked;

    // The control that is given every other key. Not owned.
    void PassKeysTo(QWidget* control) { takesKeys_ = control; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    using Curve = std::vector<QPointF>;
    struct Box {
        QPointF Corner;
        QPointF Opposite;
        bool Filled;
    };
    using Item = std::variant<Curve, Box, QImage>;

    void Erase();
    void ReplaceBy(QImage gray);
    void Keep(Item item, std::size_t points);
    void Rasterise();
    void Draw(const Curve& curve);
    void Draw(const Box& box);
    void Draw(const QImage& picture);
    QTransform ToDevice() const;
    int PenWidth() const;

    PanelScale scale_;
    double unitsPerPixel_;
    QPointF current_;
    std::vector<Item> items_;     // all that the surface shows, the oldest first
    std::size_t keptPoints_ = 0;  // points in items_
    std::size_t drawn_ = 0;       // items that image_ holds already
    bool blank_ = true;           // image_ has to be erased before the first item
    QImage image_;
    std::function<QImage()> awaited_;  // draws what is to replace all that was drawn
    bool isUnseen_ = false;
    bool pressedHere_ = false;  // the button went down here and the release will be a click
    QWidget* takesKeys_ = nullptr;
};
