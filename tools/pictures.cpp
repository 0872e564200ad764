// Drives the real window and saves pictures of it: at the start, with Test 1 set up, during its run
// and at its end.
//     pictures FOLDER
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QPushButton>
#include <QTimer>
#include <clocale>
#include <cstdio>

#include "model/start_up.h"
#include "panel/look.h"
#include "panel/main_window.h"

namespace {

constexpr int SettleMilliseconds = 200;  // until what was drawn is on the screen
constexpr int LongestRunMilliseconds = 60000;

// Runs the event loop until the condition holds. False if it does not come to hold.
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

void Press(const frmTernlow& window, const char* name) {
    window.findChild<QPushButton*>(name)->click();
}

// Start-up asks for the user's name; the default is taken.
void StartUp(frmTernlow& window) {
    QTimer accept;
    QObject::connect(&accept, &QTimer::timeout, [] {
        if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget())) box->accept();
    });
    accept.start(0);
    Form_Initialize(window.state, window.controls);
}

bool Save(frmTernlow& window, const QDir& folder, const QString& name) {
    WaitFor(SettleMilliseconds, [] { return false; });
    const QString path = folder.filePath(name + ".png");
    if (!window.grab().save(path)) {
        std::fprintf(stderr, "pictures: cannot write %s\n", qPrintable(path));
        return false;
    }
    std::printf("%s\n", qPrintable(path));
    return true;
}

bool SaveTest1(frmTernlow& window, const QDir& folder) {
    const ExperimentState& state = window.state;
    Press(window, "cmdTest1");
    if (!Save(window, folder, "2-test-1")) return false;

    Press(window, "cmdBegin");
    const auto isHalfWay = [&] { return state.Time > 0.5 * state.TStop; };
    if (state.Stopped != 0 || !WaitFor(LongestRunMilliseconds, isHalfWay)) {
        std::fprintf(stderr, "pictures: the run of Test 1 did not start\n");
        return false;
    }
    Press(window, "cmdPause");  // for a sharp picture
    if (!Save(window, folder, "3-test-1-running")) return false;

    Press(window, "cmdContinue");
    if (!WaitFor(LongestRunMilliseconds, [&] { return state.Stopped == 1; })) {
        std::fprintf(stderr, "pictures: the run of Test 1 did not end\n");
        return false;
    }
    return Save(window, folder, "4-test-1-ended");
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    UseFixedLook();
    if (argc != 2) {
        std::fprintf(stderr, "usage: pictures FOLDER\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    if (!folder.mkpath(".")) {
        std::fprintf(stderr, "pictures: cannot make the folder %s\n", argv[1]);
        return 1;
    }
    frmTernlow window;
    StartUp(window);
    window.show();
    return Save(window, folder, "1-start") && SaveTest1(window, folder) ? 0 : 1;
}
