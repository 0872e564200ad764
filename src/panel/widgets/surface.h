// A picture on the panel: a drawing list and the image made from it.
#pragma once

#include <QImage>
#include <QTransform>
#include <QWidget>
#include <functional>

#include "core/picture/drawing_list.h"
#include "panel/widgets/panel_scale.h"

// Coordinates are in the surface's own unit, from the interior's top left.
//
// A magnified surface is like a screen with larger pixels: drawing and presses keep the same
// coordinates.
//
// What was drawn since the last Cls is kept as a list, which becomes an image once its pixels are
// asked for. The paint event only copies that image to the screen, and draws a frame over it while
// the surface has the focus. It runs no procedure that writes text boxes, so exposure loses nothing
// and changes nothing.
class Surface : public QWidget {
public:
    // unitsPerPixel: the size of a logical pixel in the unit of the coordinates.
    Surface(const PanelScale& scale, double unitsPerPixel, QWidget* parent = nullptr);

    // The outer position and size in twips. What was drawn stays; a gray picture stretches.
    void Place(const QRect& twips);

    // Shows the surface, wherever it is placed, at another scale than it is drawn in.
    void MagnifyTo(const PanelScale& shown);

    // Interior size in the surface's unit, whatever the magnification.
    float ScaleWidth() const { return static_cast<float>(DrawnSize().width() * unitsPerPixel_); }
    float ScaleHeight() const { return static_cast<float>(DrawnSize().height() * unitsPerPixel_); }

    // Erases everything; the current point returns to 0, 0.
    void Cls();

    // The list of what the surface shows, to add to. Fetch it anew for each drawing: this is where
    // a list that has grown too long is turned into an image, and where a repaint is requested.
    DrawingList& Drawing();

    // Replaces everything by what `draw` adds to an empty list. If it adds nothing, the surface
    // stays as it is.
    using Draw = std::function<void(DrawingList&)>;
    void Replace(const Draw& draw);

    // The same, but `draw` is called only once the pixels are asked for, and never if the surface
    // is cleared or replaced before that.
    void ReplaceWhenSeen(Draw draw);

    // Calls a `draw` that is still waiting. Needed before the data it reads change.
    void Settle();

    // True while nothing drawn here will be seen, because the surface is going to be cleared first;
    // the drawing can then be skipped. Changes nothing that the surface shows.
    bool IsUnseen() const { return isUnseen_; }
    void SetUnseen(bool isUnseen) { isUnseen_ = isUnseen; }

    // Brings what was drawn to the screen once the present event has been handled.
    void Refresh();

    // What the surface shows, at the device pixel ratio of its screen.
    const QImage& Image();

    // What the user does here, in the order press, click, double click. Any button presses, only
    // the left one clicks. A click is a release inside the surface, but not the second release of a
    // double click. With the focus, Escape is a click and Enter a double click.
    std::function<void(float x, float y)> Pressed;
    std::function<void()> Clicked;
    std::function<void()> DoubleClicked;

    // The control that receives every other key. Not owned.
    void PassKeysTo(QWidget* control) { takesKeys_ = control; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void Erase();
    void Exchange(const Draw& draw);
    void Rasterise();
    void DrawItem(const DrawnCurve& curve, const QTransform& toDevice);
    void DrawItem(const DrawnBox& box, const QTransform& toDevice);
    void DrawItem(const DrawnGray& gray, const QTransform& toDevice);
    void DrawOver(const QImage& picture);
    QSize DrawnSize() const;
    QSizeF Magnification() const;
    QTransform ToDevice() const;
    int PenWidth() const;

    PanelScale scale_;
    PanelScale shown_;
    double unitsPerPixel_;
    QRect twips_;            // the place; null before the first
    QImage under_;           // what lies under the list: items that made it too long
    DrawingList list_;       // everything else that the surface shows
    DrawingList next_;       // filled while a picture is replaced; keeps its storage
    std::size_t drawn_ = 0;  // items of list_ that image_ holds already
    bool isBlank_ = true;    // image_ has to be erased first
    QImage image_;
    Draw awaited_;  // given to ReplaceWhenSeen and not called yet
    bool isUnseen_ = false;
    bool pressedHere_ = false;  // the button went down here, so that its release is a click
    QWidget* takesKeys_ = nullptr;
};
