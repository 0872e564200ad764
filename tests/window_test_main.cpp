// Runs the tests of the window on real widgets without a screen.
#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <clocale>

#include "panel/widgets/look.h"

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    UseFixedLook();
    testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    // What the last test has given up with deleteLater is no leak.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return result;
}
