// The program: one window, no command line.
#include <QApplication>
#include <QScreen>
#include <clocale>

#include "panel/widgets/look.h"
#include "panel/window/main_window.h"
#include "panel/window/screen_fit.h"
#include "panel/window/start_up.h"

int main(int argc, char** argv) {
    QGuiApplication::setDesktopFileName("ternlow");
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");  // the application object has taken the user's
    UseFixedLook();
    const QSize available = QGuiApplication::primaryScreen()->availableSize();
    frmTernlow window{PanelScale(FittingFactor(available))};
    Form_Initialize(window.state, window.controls);
    window.show();
    return QApplication::exec();
}
