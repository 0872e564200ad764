// Drives the real panel as a user would, for tests, pictures and benchmarks.
#pragma once

#include <QPointer>
#include <QString>
#include <QTimer>
#include <deque>
#include <optional>
#include <vector>

class QDialog;
class QPushButton;
class QWidget;
class frmTernlow;

// Answers modal boxes for as long as it lives, each as soon as it has opened: with the next of the
// given answers and OK, or with Cancel where there is no text. When the answers have run out the
// default answer is taken.
class BoxAnswers : public QObject {
public:
    using Answer = std::optional<QString>;
    explicit BoxAnswers(std::deque<Answer> answers = {});

    // What the boxes showed.
    struct Box {
        QString Title;
        QString Message;
        QString Default;  // text in the field, empty for a message box
    };
    const std::vector<Box>& Seen() const { return seen_; }

private:
    void AnswerOpenBox();
    void AnswerPrompt(QDialog& box);
    void ChooseFile(QDialog& box);

    std::deque<Answer> answers_;
    std::vector<Box> seen_;
    QPointer<QWidget> answered_;  // the box that is closing
    QTimer poll_;
};

// The window as it stands after start-up, the name prompt answered.
class Panel {
public:
    explicit Panel(const QString& studentName = "Jane Q. Student");
    ~Panel();
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;

    frmTernlow& Form() { return *form_; }

    // Presses a button; fires ticks until the run stops or the condition holds, at most `ticks`.
    void Press(const char* button);
    bool Tick(int ticks = 1);
    bool RunToEnd(int mostTicks = 100000);

    // Types a text over what a box shows, key by key.
    void Type(const char* box, const QString& text);

private:
    frmTernlow* form_;
};
