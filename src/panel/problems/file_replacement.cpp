#include "panel/problems/file_replacement.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <algorithm>
#include <cerrno>

namespace {

// A lack of permission and nothing else: on a full disk no file is written over.
bool TakesNoNewFiles(const QString& folder) {
    const QByteArray path = QFile::encodeName(folder);
    return faccessat(AT_FDCWD, path.constData(), W_OK | X_OK, AT_EACCESS) != 0 &&
           (errno == EACCES || errno == EPERM);
}

bool WriteFromTheStart(QFile& file, const QByteArray& content) {
    return file.seek(0) && file.write(content) == content.size() && fsync(file.handle()) == 0;
}

// Has the room on the disk before it changes a byte. What lies behind the new content is cut off
// last, so that until then the file can be put back as it was, should the disk fail all the same.
void WriteInPlace(const QString& name, const QByteArray& content) {
    QFile file(name);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered)) return;
    const qint64 formerSize = file.size();
    const QByteArray former = file.read(content.size());
    if (former.size() != std::min<qint64>(formerSize, content.size())) return;
    const bool hasRoom = posix_fallocate(file.handle(), 0, content.size()) == 0;
    if (hasRoom && WriteFromTheStart(file, content) && file.resize(content.size())) {
        fsync(file.handle());
        return;
    }
    if (hasRoom) WriteFromTheStart(file, former);
    file.resize(formerSize);
}

}  // namespace

void ReplaceFile(const QString& name, const std::string& text) {
    const QFileInfo former(name);
    if (former.exists() && !former.isFile()) return;
    const QByteArray content = QByteArray::fromStdString(text);
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly)) {
        // A link stands for the file at its end, which has a folder of its own.
        if (former.exists() && TakesNoNewFiles(former.canonicalPath())) WriteInPlace(name, content);
        return;
    }
    file.write(content);
    // The commit's own flush does not report a full disk.
    if (file.flush()) {
        file.commit();
    } else {
        file.cancelWriting();
    }
}
