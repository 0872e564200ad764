#include "panel/problems/file_replacement.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <climits>
#include <system_error>

namespace {

std::string ReasonOf(int error) {
    switch (error) {
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return "there is no room left";
        case EACCES:
        case EPERM:
            return "it may not be written";
        case EROFS:
            return "nothing can be written on that disk";
        case ENOENT:
        case ENOTDIR:
            return "there is no such folder";
        case ENAMETOOLONG:
            return "its name is too long";
        case EBUSY:
            return "another program is writing there";
        default:
            return "the system says: " + std::generic_category().message(error);
    }
}

// An open file or folder of the system; closed at the end of its life.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool IsOpen() const { return number_ >= 0; }
    int Number() const { return number_; }

    // A disk across a network may say only now that it has not kept everything.
    bool Close() {
        const int number = number_;
        number_ = -1;
        return number < 0 || close(number) == 0;
    }

private:
    int number_;
};

bool WriteAll(int file, const std::string& text) {
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t written = write(file, text.data() + done, text.size() - done);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        done += static_cast<std::size_t>(written);
    }
    return true;
}

// One name for all saves of a user in a folder: what a killed save has left behind is taken away by
// the next one. Short, so that every name that the folder takes can be written.
std::string TemporaryName() {
    return ".ternlow-save-" + std::to_string(geteuid());
}

// True if the file is what a killed save has left: one that is being written is locked.
bool IsLeftBehind(int folder, const std::string& name) {
    const Descriptor file(
        openat(folder, name.c_str(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    return file.IsOpen() && (flock(file.Number(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK);
}

int OpenTemporary(int folder, const std::string& name) {
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    constexpr mode_t mode = 0666;  // less what the user's mask takes away
    int file = openat(folder, name.c_str(), flags, mode);
    if (file < 0 && errno == EEXIST) {
        if (!IsLeftBehind(folder, name)) {
            errno = EBUSY;
            return -1;
        }
        unlinkat(folder, name.c_str(), 0);
        file = openat(folder, name.c_str(), flags, mode);
    }
    if (file >= 0) flock(file, LOCK_EX | LOCK_NB);
    return file;
}

// A file that is replaced hands on who may read and write it.
bool TakeMode(int folder, const std::string& former, int file) {
    struct stat about {};
    if (fstatat(folder, former.c_str(), &about, 0) != 0) return errno == ENOENT;
    return fchmod(file, about.st_mode & 0777U) == 0;
}

// The disk holds the content before it gets its name, and the name before this returns.
std::string WriteBesideAndRename(int folder, int file, const std::string& name,
                                 const std::string& text) {
    const std::string temporary = TemporaryName();
    Descriptor written(file);
    const bool isKept = TakeMode(folder, name, file) && WriteAll(file, text) && fsync(file) == 0 &&
                        written.Close() &&
                        renameat(folder, temporary.c_str(), folder, name.c_str()) == 0;
    if (!isKept) {
        const std::string reason = ReasonOf(errno);
        unlinkat(folder, temporary.c_str(), 0);
        return reason;
    }
    // A folder that may not be read cannot be synced either; the system will do so in time.
    const Descriptor names(openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (names.IsOpen() && fsync(names.Number()) != 0 && errno != EINVAL) return ReasonOf(errno);
    return {};
}

bool WriteFromTheStart(QFile& file, const QByteArray& content) {
    return file.seek(0) && file.write(content) == content.size() && fsync(file.handle()) == 0;
}

// Has the room on the disk before it changes a byte. What lies behind the new content is cut off
// last, so that until then the file can be put back as it was, should the disk fail all the same.
std::string WriteInPlace(const QString& name, const QByteArray& content) {
    QFile file(name);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered)) {
        return ReasonOf(EACCES);
    }
    const qint64 formerSize = file.size();
    const QByteArray former = file.read(content.size());
    if (former.size() != std::min<qint64>(formerSize, content.size())) return ReasonOf(EIO);
    const int noRoom = posix_fallocate(file.handle(), 0, content.size());
    if (noRoom == 0 && WriteFromTheStart(file, content) && file.resize(content.size()) &&
        fsync(file.handle()) == 0) {
        return {};
    }
    const std::string reason = ReasonOf(noRoom != 0 ? noRoom : errno);
    if (noRoom == 0) WriteFromTheStart(file, former);
    file.resize(formerSize);
    return reason;
}

// A link stands for the file at its end, which has a folder of its own.
QFileInfo TargetOf(const QString& name) {
    const QFileInfo given(name);
    if (given.exists()) return QFileInfo(given.canonicalFilePath());
    return given.isSymLink() ? QFileInfo(given.symLinkTarget())
                             : QFileInfo(given.absoluteFilePath());
}

bool MayWrite(const QString& path, int how) {
    return faccessat(AT_FDCWD, QFile::encodeName(path).constData(), how, AT_EACCESS) == 0;
}

}  // namespace

std::string WhyNotWritable(const QString& name) {
    const QFileInfo target = TargetOf(name);
    const qsizetype tooMany = QFile::encodeName(target.fileName()).size() - NAME_MAX;
    if (tooMany > 0) return "its name is " + std::to_string(tooMany) + " bytes too long";
    if (QFile::encodeName(target.filePath()).size() >= PATH_MAX) return ReasonOf(ENAMETOOLONG);
    if (target.exists()) {
        if (!target.isFile()) return "it is no plain file";
        return MayWrite(target.filePath(), W_OK) ? "" : ReasonOf(errno);
    }
    if (!QFileInfo(target.path()).isDir()) return ReasonOf(ENOENT);
    return MayWrite(target.path(), W_OK | X_OK) ? "" : "its folder takes no new files";
}

std::string ReplaceFile(const QString& name, const std::string& text) {
    const std::string objection = WhyNotWritable(name);
    if (!objection.empty()) return objection;
    const QFileInfo target = TargetOf(name);
    const Descriptor folder(
        open(QFile::encodeName(target.path()).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!folder.IsOpen()) return ReasonOf(errno);
    const int file = OpenTemporary(folder.Number(), TemporaryName());
    if (file >= 0) {
        const std::string last = QFile::encodeName(target.fileName()).toStdString();
        return WriteBesideAndRename(folder.Number(), file, last, text);
    }
    // A lack of permission and nothing else: on a full disk no file is written over.
    const bool mayNotBeside = errno == EACCES || errno == EPERM;
    if (!mayNotBeside || !target.exists()) return ReasonOf(errno);
    return WriteInPlace(target.filePath(), QByteArray::fromStdString(text));
}
