#include "panel_driver.h"

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include "panel/run/metronome.h"
#include "panel/window/main_window.h"
#include "panel/window/start_up.h"

BoxAnswers::BoxAnswers(std::deque<Answer> answers) : answers_(std::move(answers)) {
    connect(&poll_, &QTimer::timeout, this, [this] { AnswerOpenBox(); });
    poll_.start(0);
}

void BoxAnswers::AnswerOpenBox() {
    auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (box == nullptr || box == answered_) return;
    answered_ = box;
    if (auto* message = qobject_cast<QMessageBox*>(box)) {
        seen_.push_back({message->windowTitle(), message->text(), {}});
        QAbstractButton* yes = message->button(QMessageBox::Yes);
        (yes != nullptr ? yes : message->button(QMessageBox::Ok))->click();
    } else if (qobject_cast<QFileDialog*>(box) != nullptr) {
        ChooseFile(*box);
    } else {
        AnswerPrompt(*box);
    }
}

void BoxAnswers::AnswerPrompt(QDialog& box) {
    auto* prompt = qobject_cast<QInputDialog*>(&box);
    if (prompt == nullptr) {
        box.reject();
        return;
    }
    seen_.push_back({prompt->windowTitle(), prompt->labelText(), prompt->textValue()});
    const Answer answer = answers_.empty() ? Answer(prompt->textValue()) : answers_.front();
    if (!answers_.empty()) answers_.pop_front();
    if (answer) {
        prompt->setTextValue(*answer);
        prompt->accept();
    } else {
        prompt->reject();
    }
}

void BoxAnswers::ChooseFile(QDialog& box) {
    auto& dialog = static_cast<QFileDialog&>(box);
    seen_.push_back({dialog.windowTitle(), dialog.nameFilters().join('|'), {}});
    const Answer answer = answers_.empty() ? Answer() : answers_.front();
    if (!answers_.empty()) answers_.pop_front();
    if (!answer) {
        dialog.reject();
        return;
    }
    auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
    name->setText(*answer);
    // Queued: the dialog may ask whether to replace a file, and no timer fires within its own
    // event. A dialog that does not take the name stays open; a user would give up.
    const QPointer<QDialog> open(&box);
    QMetaObject::invokeMethod(
        this,
        [open] {
            QMetaObject::invokeMethod(open, "accept");
            if (open && open->isVisible()) open->reject();
        },
        Qt::QueuedConnection);
}

Panel::Panel(const QString& studentName) : form_(new frmTernlow) {
    const BoxAnswers answers({studentName});
    Form_Initialize(form_->state, form_->controls);
}

Panel::~Panel() {
    delete form_;
}

void Panel::Press(const char* button) {
    QTest::mouseClick(form_->findChild<QPushButton*>(button), Qt::LeftButton);
}

bool Panel::Tick(int ticks) {
    for (int tick = 0; tick < ticks && form_->state.Stopped == 0; ++tick) {
        tmrMetronome_Timer(form_->state, form_->controls);
    }
    return form_->state.Stopped == 0;
}

bool Panel::RunToEnd(int mostTicks) {
    return !Tick(mostTicks);
}

void Panel::Type(const char* box, const QString& text) {
    auto* edit = form_->findChild<QLineEdit*>(box);
    edit->selectAll();
    QTest::keyClicks(edit, text);
}
