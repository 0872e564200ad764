// The program: one window, no command line.
#include <QApplication>
#include <QScreen>
#include <clocale>
#include <cstdio>
#include <cstdlib>

#include "panel/widgets/look.h"
#include "panel/window/last_words.h"
#include "panel/window/main_window.h"
#include "panel/window/screen_fit.h"
#include "panel/window/start_up.h"

int main(int argc, char** argv) {
    PrepareLastWords();
    QGuiApplication::setDesktopFileName("ternlow");
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");  // the application object has taken the user's
    UseFixedLook();
    const QScreen* const screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) {
        std::fputs("ternlow: there is no screen\n", stderr);
        return EXIT_FAILURE;
    }
    const QSize available = screen->availableSize();
    frmTernlow window{PanelScale(FittingFactor(available))};
    Form_Initialize(window.state, window.controls);
    window.show();
    return QApplication::exec();
}
