#include "panel/widgets/caption_drawing.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>

namespace {

constexpr int SmallestFont = 6;  // pixels; nobody can read less

// As much of a caption as could ever be seen, were all its letters in the smallest font and as
// narrow as an i: to break the rest into lines would only take time.
QString Seeable(const QString& caption, const QRect& room) {
    constexpr int narrowest = 2;  // pixels
    const int letters = room.width() / narrowest * (room.height() / SmallestFont + 1);
    return caption.size() > letters ? caption.left(letters) : caption;
}

// A caption broken into lines, in the font in which it fits.
struct FittedCaption {
    QFont Font;
    QStringList Lines;
    int Pitch;   // from one base line to the next
    int Height;  // from the top of the first line's capitals to the last base line
};

QStringList BrokenAtBlanks(const QString& paragraph, const QFont& font, int width) {
    if (paragraph.isEmpty()) return {QString()};
    QTextLayout layout(paragraph, font);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines.append(paragraph.mid(line.textStart(), line.textLength()));
    }
    layout.endLayout();
    return lines;
}

// In a strip that is several times as high as wide, one letter stands below the other.
bool IsUprightStrip(const QRect& room) {
    constexpr int timesAsHigh = 4;
    return room.height() > timesAsHigh * room.width();
}

QStringList Broken(const QString& caption, const QFont& font, const QRect& room,
                   CaptionAlignment alignment) {
    QStringList lines;
    for (const QString& paragraph : QString(caption).remove('\r').split('\n')) {
        if (IsUprightStrip(room)) {
            for (const QChar letter : paragraph.trimmed()) lines.append(QString(letter));
        } else if (alignment == CaptionAlignment::Centred) {
            lines += BrokenAtBlanks(paragraph.simplified(), font, room.width());
        } else {
            lines += BrokenAtBlanks(paragraph, font, room.width());
        }
    }
    for (QString& line : lines) {
        while (line.endsWith(' ')) line.chop(1);
    }
    return lines;
}

// The lines stand closer than the font asks where there is no room for more, but never touch.
FittedCaption Fitted(QFont font, const QString& caption, const QRect& room,
                     CaptionAlignment alignment) {
    for (;; font.setPixelSize(font.pixelSize() - 1)) {
        const QFontMetrics metrics(font);
        FittedCaption fitted = {font, Broken(caption, font, room, alignment), 0, 0};
        const int letters = metrics.capHeight() + 1;
        const int closest = IsUprightStrip(room) ? letters + 1 : letters + metrics.descent();
        const int gaps = static_cast<int>(fitted.Lines.size()) - 1;
        const int free = room.height() - letters - metrics.descent();
        fitted.Pitch = metrics.lineSpacing();
        if (gaps > 0) fitted.Pitch = std::clamp(free / gaps, closest, metrics.lineSpacing());
        fitted.Height = gaps * fitted.Pitch + letters;

        const bool isLowEnough = gaps * fitted.Pitch <= free;
        const bool isNarrowEnough = std::all_of(
            fitted.Lines.begin(), fitted.Lines.end(),
            [&](const QString& line) { return metrics.horizontalAdvance(line) <= room.width(); });
        if ((isLowEnough && isNarrowEnough) || font.pixelSize() <= SmallestFont) return fitted;
    }
}

}  // namespace

void DrawCaption(QPainter& painter, const QRect& room, const QString& caption,
                 CaptionAlignment alignment) {
    const FittedCaption fitted = Fitted(painter.font(), Seeable(caption, room), room, alignment);
    painter.save();
    painter.setFont(fitted.Font);
    const QFontMetrics metrics(fitted.Font);
    const int middle = room.top() + (room.height() + fitted.Height) / 2;
    const int lowest = room.top() + room.height() - metrics.descent();
    int baseLine =
        std::min(middle, lowest) - static_cast<int>(fitted.Lines.size() - 1) * fitted.Pitch;
    for (const QString& line : fitted.Lines) {
        const int spare = room.width() - metrics.horizontalAdvance(line);
        const int indent = alignment == CaptionAlignment::Centred ? spare / 2 : 0;
        painter.drawText(room.left() + indent, baseLine, line);
        baseLine += fitted.Pitch;
    }
    painter.restore();
}
