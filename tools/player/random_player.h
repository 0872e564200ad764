// A user who does anything at all on the real panel, the same for the same seed.
#pragma once

#include <QString>
#include <QTemporaryDir>
#include <cstdint>
#include <deque>
#include <random>
#include <string>
#include <vector>

#include "panel_driver.h"

class QLineEdit;
class QScrollBar;
class Surface;

class RandomPlayer {
public:
    // `tells`: every action is printed before it is taken, for the replay of a crash.
    explicit RandomPlayer(std::uint64_t seed, bool tells = false);

    // Takes one action.
    void Act();

    // What the actions so far have broken; empty if nothing.
    std::string Broken();

    frmTernlow& Form() { return panel_.Form(); }

    // The last actions, oldest first.
    const std::deque<std::string>& LastActions() const { return last_; }

private:
    // Numbers below n, and choices made by them.
    int Below(int n);
    bool OneIn(int n) { return Below(n) == 0; }
    template <typename T>
    const T& OneOf(const std::vector<T>& choices) {
        return choices[static_cast<std::size_t>(Below(static_cast<int>(choices.size())))];
    }

    void Tell(const QString& action);

    QString GridSize();
    QString PlainNumber();
    QString AnyText();
    QString TextFor(const QLineEdit& box);
    QString SchemeName();
    QString FileName();
    std::deque<BoxAnswers::Answer> AnswersTo(const QString& button);

    void PressButton();
    void Press(const QString& button);
    void EnterAnywhere();
    void DrawPoints();
    void Enter(QLineEdit* box);
    void MoveBar();
    void Pick();
    void ChooseGrayVariable();
    void FireTicks();
    void LookAtPictures();
    void SpoilFile();
    void StartAfresh();

    std::mt19937_64 random_;
    bool likesWaves_;  // a wave is for good, so some players never start one
    bool tells_;
    QTemporaryDir folder_;
    Panel panel_;
    std::deque<std::string> last_;
};
