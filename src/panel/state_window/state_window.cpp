#include "panel/state_window/state_window.h"

#include <QAccessible>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QShortcut>
#include <QTextCursor>
#include <QVBoxLayout>
#include <algorithm>

#include "core/model/experiment_state.h"
#include "core/picture/state_sentences.h"
#include "panel/entry/last_refusal.h"

namespace {

constexpr int FollowMilliseconds = 200;  // as often as somebody can read
constexpr QSize WantedSize(520, 430);    // pixels

QString RefusalText(const LastRefusal& refused) {
    if (refused.What.empty()) return "Nothing has been refused.";
    QString text = QString::fromStdString(refused.What + " was refused: " + refused.Why + ".");
    if (!refused.InForce.empty()) text += QString::fromStdString(" " + refused.InForce + " holds.");
    return text;
}

}  // namespace

StateWindow::StateWindow(const ExperimentState& state, const LastRefusal& refused, QWidget* parent)
    : QWidget(parent, Qt::Window),
      state_(state),
      refused_(refused),
      run_(new QLabel(this)),
      text_(new QPlainTextEdit(this)),
      stopped_(state.Stopped) {
    setObjectName("StateWindow");
    setWindowTitle("Ternlow: the state in words");
    run_->setTextFormat(Qt::PlainText);
    run_->setWordWrap(true);
    QFont strong = run_->font();
    strong.setBold(true);
    run_->setFont(strong);
    text_->setReadOnly(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text_->setAccessibleName("State of the panel");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(run_);
    layout->addWidget(text_, 1);
    resize(WantedSize);
    connect(&clock_, &QTimer::timeout, this, &StateWindow::Follow);
    for (const char* keys : {"F3", "Esc"}) {
        connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, this,
                &QWidget::hide);
    }
}

QString StateWindow::Told() const {
    QStringList paragraphs;
    for (const std::string& sentence : StateSentences(state_)) {
        paragraphs.append(QString::fromStdString(sentence));
    }
    paragraphs.insert(1, RefusalText(refused_));
    return paragraphs.join('\n');
}

QString StateWindow::Text() const {
    return text_->toPlainText();
}

QString StateWindow::Announced() const {
    return run_->accessibleName();
}

// The place of the reader's cursor and of the scroll bar outlive a new text.
void StateWindow::Follow() {
    const QString told = Told();
    if (told != text_->toPlainText()) {
        const int cursorAt = text_->textCursor().position();
        const int scrolledTo = text_->verticalScrollBar()->value();
        text_->setPlainText(told);
        QTextCursor cursor = text_->textCursor();
        cursor.setPosition(std::min(cursorAt, static_cast<int>(told.size())));
        text_->setTextCursor(cursor);
        text_->verticalScrollBar()->setValue(scrolledTo);
        run_->setText(told.section('\n', 0, 0));
    }
    if (state_.Stopped != stopped_) {
        stopped_ = state_.Stopped;
        Announce(told.section('\n', 0, 0));
    }
}

void StateWindow::Announce(const QString& sentence) {
    run_->setAccessibleName(sentence);  // tells the reader that the name has changed
    QAccessibleEvent alert(run_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void StateWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Follow();
    text_->setFocus();
    clock_.start(FollowMilliseconds);
}

void StateWindow::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    clock_.stop();
}
