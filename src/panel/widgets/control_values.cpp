#include "panel/widgets/control_values.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QVariant>
#include <algorithm>
#include <cstdint>
#include <limits>

#include "core/model/number_text.h"

namespace {

// Names of a label's properties.
constexpr const char* CoveredCaption = "coveredCaption";
constexpr const char* ShownMessage = "shownMessage";

int To16Bits(int value) {
    constexpr int lowest = std::numeric_limits<std::int16_t>::min();
    constexpr int highest = std::numeric_limits<std::int16_t>::max();
    return std::clamp(value, lowest, highest);
}

}  // namespace

std::string TextOf(const QLineEdit* box) {
    return box->text().toStdString();
}

// The toolkit would lay the same text out again and move the user's cursor to its end.
void PutText(QLineEdit* box, const std::string& text) {
    const QString put = QString::fromStdString(text);
    if (box->text() != put) box->setText(put);
}

void PutTime(QLineEdit* box, double time) {
    PutText(box, "t=" + FormatNumber(time, "#0.0####"));
}

void PutVisible(QLineEdit* box, bool visible) {
    box->setVisible(visible);
}

std::string CaptionOf(const QLabel* label) {
    return label->text().toStdString();
}

void PutCaption(QLabel* label, const std::string& caption) {
    const QString text = QString::fromStdString(caption);
    if (label->text() == text) return;
    label->setText(text);
    label->setAccessibleName(text.simplified());
}

// The label's own text is what is remembered: bytes that are no text, say of a path, come back as
// other ones.
void ShowMessageOver(QLabel* label, const std::string& message) {
    TakeMessageAway(label);
    const std::string covered = CaptionOf(label);
    PutCaption(label, message);
    label->setProperty(CoveredCaption, QString::fromStdString(covered));
    label->setProperty(ShownMessage, label->text());
}

void TakeMessageAway(QLabel* label) {
    const QVariant message = label->property(ShownMessage);
    if (!message.isValid() || label->text() != message.toString()) return;
    PutCaption(label, label->property(CoveredCaption).toString().toStdString());
}

void PutCaption(QPushButton* button, const std::string& caption) {
    const QString text = QString::fromStdString(caption);
    if (button->text() == text) return;
    button->setText(text);
    button->setShortcut({});  // an ampersand is a letter here
    button->setAccessibleName(text.simplified());
}

int BarValue(const QScrollBar* bar) {
    return bar->value();
}

int BarMinimum(const QScrollBar* bar) {
    return bar->minimum();
}

int BarMaximum(const QScrollBar* bar) {
    return bar->maximum();
}

void PutBarValue(QScrollBar* bar, int value) {
    bar->setValue(To16Bits(value));
}

void PutBarRange(QScrollBar* bar, int minimum, int maximum) {
    bar->setRange(To16Bits(minimum), To16Bits(maximum));
}

void PutBarSteps(QScrollBar* bar, int small, int large) {
    bar->setSingleStep(To16Bits(small));
    bar->setPageStep(To16Bits(large));
}

std::string TextOf(const QListWidget* list) {
    const QListWidgetItem* item = list->currentItem();
    return item == nullptr ? std::string() : item->text().toStdString();
}

void PutListText(QListWidget* list, const std::string& text) {
    const auto items =
        list->findItems(QString::fromStdString(text), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (items.isEmpty()) return;
    if (items.first() == list->currentItem()) {
        emit list->itemClicked(items.first());
    } else {
        list->setCurrentItem(items.first());
    }
}
