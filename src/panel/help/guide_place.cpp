#include "panel/help/guide_place.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace {

constexpr const char* InstalledFolder = "/usr/share/ternlow/guide";

// The first of the folders of the guide that holds a file or folder of that name.
QString InGuide(const QString& name) {
    const QString program = QCoreApplication::applicationDirPath();
    for (const QString& folder : {program + "/guide", program + "/../share/ternlow/guide"}) {
        const QFileInfo found(QDir::cleanPath(folder) + "/" + name);
        if (found.exists()) return found.absoluteFilePath();
    }
    return {};
}

}  // namespace

QString GuidePage(const QString& name) {
    return InGuide(name);
}

QString GuideAddress() {
    const QString first = "users-guide.html";
    const QString page = GuidePage(first);
    return QUrl::fromLocalFile(page.isEmpty() ? QString(InstalledFolder) + "/" + first : page)
        .toString(QUrl::FullyEncoded);
}

QString ShippedSetUps() {
    return InGuide("setups");
}
