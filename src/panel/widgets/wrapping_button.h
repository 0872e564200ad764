// A button whose whole caption can be read, on a face of any colour or with a picture.
#pragma once

#include <QPixmap>
#include <QPushButton>

class WrappingButton : public QPushButton {
public:
    using QPushButton::QPushButton;

    // Gives the button a face of exactly that colour, in place of the toolkit's.
    void ShowFace(const QColor& face);

    // Lays a picture over the face; its middle is seen.
    void ShowPicture(const QPixmap& picture);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintFace(QPainter& painter) const;
    void PaintEdges(QPainter& painter) const;
    void PaintToolkitFace(QPainter& painter) const;

    QColor face_;  // not valid: the toolkit's own face
    QPixmap picture_;
};
