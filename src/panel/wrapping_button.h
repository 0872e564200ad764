// A button whose whole caption can be read, on a face of any colour or with a picture.
#pragma once

#include <QPixmap>
#include <QPushButton>

class WrappingButton : public QPushButton {
public:
    using QPushButton::QPushButton;

    // Lays a picture over the face; its middle is seen.
    void ShowPicture(const QPixmap& picture);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap picture_;
};
