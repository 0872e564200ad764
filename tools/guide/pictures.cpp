// Drives the real window and saves pictures of it.
//     pictures FOLDER             every picture of the guide, without a display
//     pictures --test-1 FOLDER    Test 1 before, during and after its run, on the display
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <clocale>
#include <cstdio>
#include <cstring>

#include "guide/guide_problems.h"
#include "guide/small_picture.h"
#include "panel/widgets/look.h"
#include "panel/widgets/surface.h"
#include "panel/window/main_window.h"

namespace {

constexpr int SettleMilliseconds = 200;  // until what was drawn is on the screen
constexpr int LongestRunMilliseconds = 60000;

// Of the window at factor 1: the four surfaces with the boxes and titles under them.
constexpr QRect PlotsArea(0, 160, 1000, 496);

// Saves pictures into one folder and remembers whether all went well.
class Album {
public:
    explicit Album(const QString& folder) : folder_(folder), good_(folder_.mkpath(".")) {}

    void Save(const QImage& picture, const QString& name) {
        const QString path = folder_.filePath(name + ".png");
        const bool saved = WithPalette(picture).save(path, "PNG", 0);  // 0 packs best
        std::printf("%s%s\n", qPrintable(path), saved ? "" : ": not written");
        good_ = good_ && saved;
    }

    void Refuse(const char* why) {
        std::fprintf(stderr, "pictures: %s\n", why);
        good_ = false;
    }

    bool IsGood() const { return good_; }

private:
    QDir folder_;
    bool good_;
};

QImage WindowOf(Panel& panel) {
    return panel.Form().grab().toImage();
}

QImage PlotsOf(Panel& panel) {
    return panel.Form().grab(PlotsArea).toImage();
}

QImage SpaceTimeOf(Panel& panel) {
    return panel.Form().controls.pctSpaceTime->grab().toImage();
}

void SaveRun(Panel& panel, Album& album, const QString& name) {
    if (!RunWhole(panel)) album.Refuse("a run did not end");
    album.Save(PlotsOf(panel), name);
}

void SaveStart(Album& album) {
    Panel panel;
    album.Save(WindowOf(panel), "start");
}

// Test 4 asks for closer pictures than its cold gas gives.
void SaveTests(Album& album) {
    for (int test = 1; test <= 8; ++test) {
        Panel panel;
        const QByteArray button = "cmdTest" + QByteArray::number(test);
        if (test == 4) {
            panel.Type("txtNPeriods", "0.01");
            panel.Type("txtNPlotsPerPeriod", "40000");
        }
        panel.Press(button);
        SaveRun(panel, album, "test-" + QString::number(test));
        if (test == 1) album.Save(WindowOf(panel), "window");
    }
}

// The eight variables of one run with something in each, small as the window shows them.
void SaveVariables(Album& album) {
    Panel panel;
    panel.Press("cmdTest2");
    if (!RunWhole(panel)) album.Refuse("Test 2 did not end");
    const struct {
        const char* Row;
        const char* Name;
    } variables[] = {
        {"Density", "density"}, {"Pressure", "pressure"}, {"Velocity", "velocity"},
        {"R+", "r-plus"},       {"R-", "r-minus"},        {"R0 (Entropy)", "entropy"},
        {"VY", "vy"},           {"FSmoke", "smoke"},
    };
    for (const auto& variable : variables) {
        ShowVariable(panel, variable.Row);
        album.Save(SpaceTimeOf(panel), QString("space-time-") + variable.Name);
    }
}

void SaveBlastWaves(Album& album) {
    Panel panel;
    SaveRun(panel, album, "blast-waves");
    QTest::mouseDClick(panel.Form().controls.pctSpaceTime, Qt::LeftButton);
    album.Save(PlotsOf(panel), "blast-waves-big");
}

void SaveSoundWaves(Album& album) {
    {
        Panel panel;
        SetUpSoundWave(panel,
                       {.RPlus = "0.01", .RMinus = "0.01", .RMinusFrequency = "3", .R0 = "0.01"});
        SaveRun(panel, album, "sound-waves");
    }
    Panel panel;
    SetUpSoundWave(panel, {.RPlus = "0.3"});
    SaveRun(panel, album, "steepening");
}

// Written and read back, so that the unit of time is that of the problem.
void SaveHandDrawn(Album& album) {
    const QTemporaryDir scratch;
    for (const GuideSetUp& setUp : GuideSetUps()) {
        const QString name = setUp.Name;
        Panel panel;
        DrawByHand(panel, setUp);
        if (name == "shock-meets-dense-gas") album.Save(WindowOf(panel), name + "-drawn");
        const QString path = scratch.filePath(name + ".txt");
        WriteSetUp(panel, path);
        ReadSetUp(panel, path);
        ChooseBoundaries(panel, setUp.Boundaries);
        SaveRun(panel, album, name);
    }
}

// Gives the event loop the time that a condition takes to hold. False if it does not come to hold.
template <typename Condition>
bool WaitFor(int milliseconds, Condition condition) {
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.elapsed() > milliseconds) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

void SaveSettled(Panel& panel, Album& album, const QString& name) {
    WaitFor(SettleMilliseconds, [] { return false; });
    album.Save(WindowOf(panel), name);
}

// By the metronome's own ticks, as a user sees it.
void SaveTest1(Album& album) {
    Panel panel;
    const ExperimentState& state = panel.Form().state;
    panel.Form().show();
    SaveSettled(panel, album, "1-start");
    panel.Press("cmdTest1");
    SaveSettled(panel, album, "2-test-1");

    panel.Press("cmdBegin");
    if (state.Stopped != 0 ||
        !WaitFor(LongestRunMilliseconds, [&] { return state.Time > 0.5 * state.TStop; })) {
        return album.Refuse("the run of Test 1 did not start");
    }
    panel.Press("cmdPause");  // for a sharp picture
    SaveSettled(panel, album, "3-test-1-running");

    panel.Press("cmdContinue");
    if (!WaitFor(LongestRunMilliseconds, [&] { return state.Stopped == 1; })) {
        return album.Refuse("the run of Test 1 did not end");
    }
    SaveSettled(panel, album, "4-test-1-ended");
}

void SaveGuide(Album& album) {
    SaveStart(album);
    SaveTests(album);
    SaveVariables(album);
    SaveBlastWaves(album);
    SaveSoundWaves(album);
    SaveHandDrawn(album);
}

}  // namespace

int main(int argc, char** argv) {
    const bool isTest1 = argc == 3 && std::strcmp(argv[1], "--test-1") == 0;
    if (argc != 2 && !isTest1) {
        std::fprintf(stderr, "usage: pictures [--test-1] FOLDER\n");
        return 2;
    }
    if (!isTest1) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    UseFixedLook();

    Album album(QString::fromLocal8Bit(argv[argc - 1]));
    isTest1 ? SaveTest1(album) : SaveGuide(album);
    return album.IsGood() ? 0 : 1;
}
