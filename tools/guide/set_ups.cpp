// Rewrites the set-up files of the guide, by the panel's own button.
//     set_ups FOLDER
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <clocale>
#include <cstdio>

#include "guide/guide_problems.h"
#include "panel/widgets/look.h"

namespace {

bool Write(Panel& panel, const QDir& folder, const QString& name) {
    const QString path = folder.absoluteFilePath(name + ".txt");
    WriteSetUp(panel, path);
    const bool written = QFileInfo(path).size() > 0;
    std::printf("%s%s\n", qPrintable(path), written ? "" : ": not written");
    return written;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    UseFixedLook();
    if (argc != 2) {
        std::fprintf(stderr, "usage: set_ups FOLDER\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    if (!folder.mkpath(".")) return 1;
    bool good = true;
    {
        Panel panel;
        good = Write(panel, folder, "blast-waves");
    }
    for (const GuideSetUp& setUp : GuideSetUps()) {
        Panel panel;
        DrawByHand(panel, setUp);
        good = Write(panel, folder, setUp.Name) && good;
    }
    return good ? 0 : 1;
}
