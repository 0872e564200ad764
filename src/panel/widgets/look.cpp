#include "panel/widgets/look.h"

#include <QApplication>
#include <QColor>
#include <QPalette>
#include <cmath>

namespace {

// The brightness that the eye sees, 0 to 1.
double Luminance(QRgb colour) {
    constexpr double gamma = 2.2;
    const auto light = [](int channel) { return std::pow(channel / 255.0, gamma); };
    return 0.2126 * light(qRed(colour)) + 0.7152 * light(qGreen(colour)) +
           0.0722 * light(qBlue(colour));
}

}  // namespace

void UseFixedLook() {
    const QColor face(236, 233, 226);
    const QColor highlight(36, 92, 172);
    QPalette light(face);
    light.setColor(QPalette::Base, Qt::white);
    light.setColor(QPalette::AlternateBase, QColor(245, 245, 242));
    for (const auto text : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        light.setColor(text, Qt::black);
        light.setColor(QPalette::Disabled, text, QColor(120, 120, 120));  // only in boxes
    }
    light.setColor(QPalette::PlaceholderText, QColor(110, 110, 110));
    light.setColor(QPalette::Highlight, highlight);
    light.setColor(QPalette::HighlightedText, Qt::white);
    light.setColor(QPalette::ToolTipBase, QColor(255, 255, 225));
    light.setColor(QPalette::ToolTipText, Qt::black);
    light.setColor(QPalette::Link, highlight);
    light.setColor(QPalette::LinkVisited, QColor(120, 50, 140));
    QApplication::setStyle("Fusion");
    QApplication::setPalette(light);
}

QColor ReadableOn(QRgb ground) {
    // At this brightness black and white have the same contrast.
    constexpr double even = 0.179;
    return Luminance(ground) > even ? Qt::black : Qt::white;
}
