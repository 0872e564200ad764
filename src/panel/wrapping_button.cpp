#include "panel/wrapping_button.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionButton>

#include "panel/caption_drawing.h"

namespace {

constexpr int Bevel = 2;  // logical pixels that the style draws around the face

void DrawOutlined(QPainter& painter, const QRect& room, const QString& caption) {
    painter.setPen(QColor(0, 0, 0, 200));
    for (const QPoint shift : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)}) {
        DrawCaption(painter, room.translated(shift), caption, CaptionAlignment::Centred);
    }
    painter.setPen(Qt::white);
    DrawCaption(painter, room, caption, CaptionAlignment::Centred);
}

}  // namespace

void WrappingButton::ShowPicture(const QPixmap& picture) {
    picture_ = picture;
    update();
}

void WrappingButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, this);

    const QRect face = rect().adjusted(Bevel, Bevel, -Bevel, -Bevel);
    const QPoint sunk = isDown() ? QPoint(1, 1) : QPoint(0, 0);
    if (!picture_.isNull()) {
        const QRect middle(
            QPoint((picture_.width() - face.width()) / 2, (picture_.height() - face.height()) / 2),
            face.size());
        painter.drawPixmap(face, picture_, middle.translated(-sunk));
        if (isDown()) painter.fillRect(face, QColor(0, 0, 0, 90));
        DrawOutlined(painter, face.translated(sunk), text());
    } else {
        painter.setPen(palette().color(QPalette::ButtonText));
        DrawCaption(painter, face.translated(sunk), text(), CaptionAlignment::Centred);
    }
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::ButtonText));
        painter.drawRect(face.adjusted(0, 0, -1, -1));
    }
}
