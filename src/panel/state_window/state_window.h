// The state of the panel in words, in a small window of its own.
#pragma once

#include <QTimer>
#include <QWidget>

class QLabel;
class QPlainTextEdit;
struct ExperimentState;
struct LastRefusal;

// Follows the record and the last refusal, which it only reads, as long as it is seen. The text can
// be walked through by keys and copied. The first line stands by itself as well: that a run has
// begun, has been halted or has ended is announced to a screen reader.
class StateWindow : public QWidget {
public:
    StateWindow(const ExperimentState& state, const LastRefusal& refused, QWidget* parent);

    // Brings the text up to date.
    void Follow();

    QString Text() const;

    // What a screen reader was told last; empty before the first run.
    QString Announced() const;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QString Told() const;
    void Announce(const QString& sentence);

    const ExperimentState& state_;
    const LastRefusal& refused_;
    QLabel* run_;
    QPlainTextEdit* text_;
    QTimer clock_;
    int stopped_;  // as announced
};
