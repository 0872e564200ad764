// A label whose whole caption can be read.
#pragma once

#include <QLabel>

#include "panel/widgets/caption_drawing.h"

class WrappingLabel : public QLabel {
public:
    WrappingLabel(const QString& caption, CaptionAlignment alignment, bool isBoxed,
                  QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    CaptionAlignment alignment_;
    bool isBoxed_;
};
