#include "panel/dialogs/prompt.h"

#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>

#include "panel/dialogs/tick_hold.h"
#include "panel/widgets/panel_scale.h"

namespace {

constexpr int CornerTwips = 3000;     // from the screen's left and top edges
constexpr int NarrowestPixels = 520;  // shows the longest title that is asked with

// A longer text is cut: quoted input, say a line of a file, may have any length, and the buttons
// below it must stay on the screen.
constexpr qsizetype LongestLine = 200;
constexpr qsizetype MostLines = 12;

QString ToMessage(const std::string& text) {
    QStringList lines = QString::fromStdString(text).remove('\r').split('\n');
    if (lines.size() > MostLines) lines = lines.mid(0, MostLines) + QStringList{QChar(0x2026)};
    for (QString& line : lines) {
        if (line.size() > LongestLine) line = line.left(LongestLine) + QChar(0x2026);
    }
    return lines.join('\n');
}

QWidget* WindowOf(const Controls& controls) {
    return controls.cmdBegin->window();
}

}  // namespace

std::string Prompt(Controls& controls, const std::string& message, const std::string& title,
                   const std::string& defaultAnswer, PromptPlace place) {
    const TickHold hold(controls);
    QWidget* const window = WindowOf(controls);
    QInputDialog box(window);
    box.setObjectName("Prompt");
    box.setWindowTitle(QString::fromStdString(title));
    box.setLabelText(ToMessage(message));
    for (QLabel* label : box.findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setMinimumWidth(NarrowestPixels);  // the box fits its size to what is in it
    }
    box.setTextValue(QString::fromStdString(defaultAnswer));
    if (place == PromptPlace::NearScreenCorner) {
        const int offset = PanelScale().ToPixels(CornerTwips);
        box.move(window->screen()->geometry().topLeft() + QPoint(offset, offset));
    }
    return box.exec() == QDialog::Accepted ? box.textValue().toStdString() : std::string();
}

void ShowMessage(Controls& controls, const std::string& text) {
    const TickHold hold(controls);
    QWidget* const window = WindowOf(controls);
    QMessageBox box(window);
    box.setObjectName("MessageBox");
    box.setWindowTitle(window->windowTitle());
    box.setTextFormat(Qt::PlainText);
    box.setText(ToMessage(text));
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}
