#include "random_player.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <cstdio>

#include "core/run/strip_driver.h"
#include "core/run/time_step.h"
#include "panel/widgets/surface.h"
#include "panel/window/main_window.h"
#include "panel_promises.h"

RandomPlayer::RandomPlayer(std::uint64_t seed, bool tells)
    : random_(seed), likesWaves_(seed % 2 == 0), tells_(tells) {}

int RandomPlayer::Below(int n) {
    return static_cast<int>(random_() % static_cast<std::uint64_t>(n));
}

void RandomPlayer::Tell(const QString& action) {
    constexpr std::size_t remembered = 40;
    last_.push_back(action.toStdString());
    if (last_.size() > remembered) last_.pop_front();
    if (!tells_) return;
    std::printf("%s\n", last_.back().c_str());
    std::fflush(stdout);
}

void RandomPlayer::Act() {
    using Action = void (RandomPlayer::*)();
    struct Choice {
        int Weight;
        Action Take;
    };
    static constexpr Choice choices[] = {
        {30, &RandomPlayer::PressButton},
        {24, &RandomPlayer::EnterAnywhere},
        {6, &RandomPlayer::DrawPoints},
        {10, &RandomPlayer::MoveBar},
        {8, &RandomPlayer::Pick},
        {3, &RandomPlayer::SpoilFile},
        {3, &RandomPlayer::ChooseGrayVariable},
        {12, &RandomPlayer::FireTicks},
        {2, &RandomPlayer::LookAtPictures},
        {2, &RandomPlayer::StartAfresh},
    };
    int left = Below(100);
    for (const Choice& choice : choices) {
        left -= choice.Weight;
        if (left < 0) return (this->*choice.Take)();
    }
}

std::string RandomPlayer::Broken() {
    return BrokenPromise(panel_.Form());
}

// ---- What is typed and answered ----

QString RandomPlayer::GridSize() {
    if (OneIn(60)) return OneOf<QString>({"5001", "5002", "3000", "1001", "1e9", "5000.5"});
    if (OneIn(10)) return QString::number(60 + Below(400));
    return OneIn(20) ? AnyText() : QString::number(4 + Below(40));
}

QString RandomPlayer::PlainNumber() {
    switch (Below(4)) {
        case 0:
            return QString::number(Below(10));
        case 1:
            return QString::number(Below(60));
        case 2:
            return QString::number(Below(3000) / 1000.0);
        default:
            return QString::number(Below(2000) / 100.0 - 10.0);
    }
}

QString RandomPlayer::AnyText() {
    switch (Below(12)) {
        case 0:
            return OneOf<QString>({"", ".", "-", "-.", "+", "1e", " ", "0.", "-0", "1.2.3", "--1"});
        case 1:
            return OneOf<QString>(
                {"abc", "nan", "inf", "0x10", "1,5", "Plover", "%n%s", "<b>1</b>"});
        case 2:
            return OneOf<QString>(
                {"1e12", "1.1e12", "1e300", "2147483648", "99999999999999999999"});
        case 3:
            return OneOf<QString>({"-1e12", "-1e300", "-2147483649", "-0.5", "-7"});
        case 4:
            return OneOf<QString>({"1e-8", "1e-9", "1e-30", "1e-310", "5e-324", "0", "0.0000001"});
        case 5:
            return " " + PlainNumber() + " ";
        default:
            return PlainNumber();
    }
}

QString RandomPlayer::TextFor(const QLineEdit& box) {
    const Controls& controls = panel_.Form().controls;
    if (&box == controls.txtNGridCells) return GridSize();
    if (&box == controls.txtCourantNumber && !OneIn(4)) return QString::number(Below(100) / 100.0);
    if (&box == controls.txtMSelected && !OneIn(4)) {
        return QString::number(Below(panel_.Form().state.NGridCells + 2));
    }
    if (&box == controls.txtNPlotsPerPeriod && OneIn(2)) return QString::number(1 + Below(300));
    return AnyText();
}

QString RandomPlayer::SchemeName() {
    return OneIn(5) ? AnyText() : OneOf<QString>({"Kestrel", "Kestrel32", "Heron32", "Plover"});
}

QString RandomPlayer::FileName() {
    const QString name =
        OneOf<QString>({"one.txt", "one.txt", "two.txt", "bad.txt", "bad.txt", "none.txt", "."});
    return folder_.filePath(name);
}

std::deque<BoxAnswers::Answer> RandomPlayer::AnswersTo(const QString& button) {
    std::deque<BoxAnswers::Answer> answers;
    for (int i = 0; i < 8; ++i) {
        if (OneIn(8)) {
            answers.emplace_back(std::nullopt);
        } else if (button.endsWith("SetUp")) {
            answers.emplace_back(FileName());
        } else if (button == "cmdNumericalScheme" && i < 2) {
            answers.emplace_back(SchemeName());
        } else if (button == "cmdSoundWave" && !OneIn(8)) {
            answers.emplace_back(i % 2 == 0 ? QString::number(Below(200) / 1000.0 - 0.1)
                                            : QString::number(Below(5)));
        } else {
            answers.emplace_back(AnyText());
        }
    }
    return answers;
}

// ---- What is done ----

void RandomPlayer::PressButton() {
    const auto buttons =
        panel_.Form().findChildren<QPushButton*>(Qt::FindDirectChildrenOnly).toVector();
    const QString name = buttons[Below(static_cast<int>(buttons.size()))]->objectName();
    if (name == "cmdSoundWave" && !likesWaves_) return Press("cmdBegin");
    Press(name);
}

void RandomPlayer::Press(const QString& button) {
    const auto answers = AnswersTo(button);
    QString action = "press " + button;
    const bool asks = button.endsWith("SetUp") || button.startsWith("cmdGet") ||
                      button == "cmdSoundWave" || button == "cmdNumericalScheme" ||
                      button == "cmdBoundaryConditionType";
    for (const auto& answer : answers) {
        if (asks) action += answer ? " '" + *answer + "'" : " Cancel";
    }
    action.remove(folder_.path() + '/');
    Tell(action);
    const BoxAnswers given(answers);
    panel_.Press(button.toUtf8());
}

void RandomPlayer::EnterAnywhere() {
    const auto boxes = panel_.Form().findChildren<QLineEdit*>(Qt::FindDirectChildrenOnly);
    Enter(OneIn(6) ? panel_.Form().controls.txtNGridCells
                   : boxes[Below(static_cast<int>(boxes.size()))]);
}

void RandomPlayer::DrawPoints() {
    const Controls& controls = panel_.Form().controls;
    for (int points = 1 + Below(6); points > 0; --points) {
        for (QLineEdit* box : {controls.txtMSelected, controls.txtDensity, controls.txtPressure,
                               controls.txtVelocity}) {
            if (!OneIn(4)) Enter(box);
        }
        Press("cmdSelect");
    }
}

void RandomPlayer::Enter(QLineEdit* box) {
    const QString text = TextFor(*box);
    const bool pastes = OneIn(3);
    Tell((pastes ? "paste '" : "type '") + text + "' into " + box->objectName());
    if (!OneIn(5)) box->selectAll();
    if (pastes) {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
    } else {
        if (OneIn(4)) QTest::keyClick(box, Qt::Key_Backspace);
        QTest::keyClicks(box, text);
    }
}

void RandomPlayer::MoveBar() {
    const Controls& controls = panel_.Form().controls;
    QScrollBar* bar =
        OneOf<QScrollBar*>({controls.hsbMSelected, controls.hsbDensity, controls.hsbPressure,
                            controls.hsbVelocity, controls.vsbStoredStateNumber});
    const int place = bar->minimum() + Below(bar->maximum() - bar->minimum() + 1);
    const int way = Below(3);
    Tell(QString("move %1, way %2, to %3").arg(bar->objectName()).arg(way).arg(place));
    if (way == 0) {
        QTest::keyClick(bar, OneOf<Qt::Key>({Qt::Key_Left, Qt::Key_Right, Qt::Key_PageUp,
                                             Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End}));
    } else if (way == 1) {
        bar->setSliderDown(true);
        for (int step = 1; step <= 3; ++step) {
            bar->setSliderPosition(bar->value() + (place - bar->value()) * step / 3);
        }
        bar->setSliderDown(false);
    } else {
        QTest::mouseClick(bar, Qt::LeftButton, {},
                          QPoint(Below(bar->width()), Below(bar->height())));
    }
}

void RandomPlayer::Pick() {
    const Controls& controls = panel_.Form().controls;
    const std::vector<Surface*> surfaces = {controls.pctDensityPlot, controls.pctPressurePlot,
                                            controls.pctVelocityPlot, controls.pctSpaceTime,
                                            controls.pctSpaceTime};
    const std::vector<const char*> names = {"density plot", "pressure plot", "velocity plot",
                                            "picture", "picture"};
    const auto which = static_cast<std::size_t>(Below(static_cast<int>(surfaces.size())));
    Surface* surface = surfaces[which];
    const QPoint place(Below(surface->width()), Below(surface->height()));
    const auto button = OneIn(5) ? Qt::RightButton : Qt::LeftButton;
    const bool twice = OneIn(4);
    Tell(QString("%1 in the %2 at %3, %4")
             .arg(twice ? "double click" : "click", names[which])
             .arg(place.x())
             .arg(place.y()));
    if (twice) {
        QTest::mouseDClick(surface, button, {}, place);
    } else {
        QTest::mouseClick(surface, button, {}, place);
    }
}

void RandomPlayer::ChooseGrayVariable() {
    QListWidget* list = panel_.Form().controls.lstGrayVariable;
    const auto key = OneOf<Qt::Key>({Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End});
    Tell(QString("key %1 in the list, row %2").arg(key).arg(list->currentRow()));
    QTest::keyClick(list, key);
    if (OneIn(3)) QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, QPoint(5, 5));
}

void RandomPlayer::FireTicks() {
    // A whole run now and then, but not of a fine grid, nor metered, nor of a wave that crawls.
    const ExperimentState& state = panel_.Form().state;
    const int cost = StepsOfTick(state) * state.NGridCells * CallsPerStrip(state);
    if (cost > 3'000'000 && !OneIn(200)) return Press("cmdRestart");
    const int ticks = std::clamp(OneIn(20) ? 300 : 1 + Below(20), 1, 600'000 / cost + 1);
    Tell(QString("fire %1 ticks").arg(ticks));
    panel_.Tick(ticks);
}

void RandomPlayer::LookAtPictures() {
    Tell("look at the window");
    panel_.Form().grab();
}

// A set-up file in which one field or one byte is another.
void RandomPlayer::SpoilFile() {
    QFile good(folder_.filePath("one.txt"));
    if (!good.open(QIODevice::ReadOnly)) return Press("cmdWriteSetUp");
    QByteArray text = good.readAll();
    const auto place = Below(static_cast<int>(text.size()) - 1);
    if (OneIn(3)) {
        text[place] = static_cast<char>(Below(256));
    } else {
        const auto from = text.indexOf(", ", place);
        const auto to = from < 0 ? -1 : text.indexOf('\r', from);
        if (to > 0) text.replace(from + 2, to - from - 2, AnyText().toUtf8());
    }
    QFile bad(folder_.filePath("bad.txt"));
    Tell("spoil the file at " + QString::number(place));
    if (bad.open(QIODevice::WriteOnly)) bad.write(text);
}

// Back to a small grid and, often, into a run.
void RandomPlayer::StartAfresh() {
    Press("cmdRestart");
    Tell("type '24' into txtNGridCells");
    panel_.Type("txtNGridCells", "24");
    if (OneIn(2)) Press("cmdTest" + QString::number(1 + Below(8)));
    if (OneIn(2)) Press("cmdBegin");
}
