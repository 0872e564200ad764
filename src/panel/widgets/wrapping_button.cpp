#include "panel/widgets/wrapping_button.h"

#include <QPainter>
#include <QStyleOptionButton>

#include "panel/widgets/caption_drawing.h"
#include "panel/widgets/edge_drawing.h"
#include "panel/widgets/look.h"

namespace {

constexpr int Edge = 2;     // logical pixels of the bevel
constexpr int Spacing = 1;  // between the bevel and the caption

// On a picture the caption has a dark rim, so that it is read on any colour.
void DrawRimmed(QPainter& painter, const QRect& room, const QString& caption) {
    painter.setPen(Qt::black);
    for (const QPoint shift : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)}) {
        DrawCaption(painter, room.translated(shift), caption, CaptionAlignment::Centred);
    }
    painter.setPen(Qt::white);
    DrawCaption(painter, room, caption, CaptionAlignment::Centred);
}

}  // namespace

void WrappingButton::ShowFace(const QColor& face) {
    face_ = face;
    QPalette colours = palette();
    colours.setColor(QPalette::Button, face);
    colours.setColor(QPalette::ButtonText, ReadableOn(face.rgb()));
    setPalette(colours);
}

void WrappingButton::ShowPicture(const QPixmap& picture) {
    picture_ = picture;
    update();
}

void WrappingButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (face_.isValid()) {
        PaintFace(painter);
        PaintEdges(painter);
    } else {
        PaintToolkitFace(painter);
    }
    const int margin = Edge + Spacing;
    const QRect room = rect().adjusted(margin, Edge, -margin, -Edge);
    const QRect shown = isDown() ? room.translated(1, 1) : room;
    painter.setPen(palette().color(QPalette::ButtonText));
    if (picture_.isNull()) {
        DrawCaption(painter, shown, text(), CaptionAlignment::Centred);
    } else {
        DrawRimmed(painter, shown, text());
    }
}

void WrappingButton::PaintFace(QPainter& painter) const {
    painter.fillRect(rect(), face_);
    if (!picture_.isNull()) {
        const QPoint corner((width() - picture_.width()) / 2, (height() - picture_.height()) / 2);
        painter.drawPixmap(corner, picture_);
    }
    if (isDown()) painter.fillRect(rect(), QColor(0, 0, 0, 70));
    if (underMouse() && !isDown()) painter.fillRect(rect(), QColor(255, 255, 255, 28));
}

// Light falls from the top left; a pressed button is a hollow.
void WrappingButton::PaintEdges(QPainter& painter) const {
    const QRect inner = rect().adjusted(1, 1, -1, -1);
    if (hasFocus()) {
        DrawEdges(painter, rect(), Qt::white);  // against the dark ground of the panel
        DrawEdges(painter, inner, Qt::black);   // against the white
        return;
    }
    const QColor light(255, 255, 255, 130);
    const QColor dark(0, 0, 0, 110);
    DrawEdges(painter, rect(), Qt::black);
    DrawEdges(painter, inner, isDown() ? dark : light, isDown() ? light : dark);
}

void WrappingButton::PaintToolkitFace(QPainter& painter) const {
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    if (hasFocus()) option.state |= QStyle::State_KeyboardFocusChange;  // the style shows it then
    style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, this);
}
