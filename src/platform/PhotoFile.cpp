#include "platform/PhotoFile.h"

#include "platform/FileName.h"

#include <QFile>
#include <QHash>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <limits>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace morvak {

namespace {

struct CloseDir {
    void operator()(DIR* dir) const { ::closedir(dir); }
};
using Dir = std::unique_ptr<DIR, CloseDir>;

struct FileId {
    dev_t device;
    ino_t inode;
    bool operator==(const FileId&) const = default;
};

size_t qHash(const FileId& id, size_t seed = 0)
{
    return qHashMulti(seed, quint64(id.device), quint64(id.inode));
}

int openWithoutFollowing(const QByteArray& name)
{
    return ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOFOLLOW | O_NOCTTY);
}

enum class Lease { Free, Held, Unknown };

/// File systems can hold times that 64 bits of nanoseconds cannot: those stand at either end.
qint64 nanoseconds(const timespec& time)
{
    constexpr qint64 second = 1'000'000'000;
    constexpr qint64 mostSeconds = std::numeric_limits<qint64>::max() / second - 1;
    return std::clamp<qint64>(time.tv_sec, -mostSeconds, mostSeconds) * second + time.tv_nsec;
}

/// `id` is filled in when the answer is Unknown and the file is a regular one.
Lease tryLease(const QString& path, std::optional<FileId>& id)
{
    const QByteArray name = encodeFileName(path);
    const int fd = openWithoutFollowing(name);
    struct stat info = {};
    if (fd < 0) {
        if (::lstat(name.constData(), &info) != 0 || !S_ISREG(info.st_mode))
            return Lease::Free;
        id = FileId{info.st_dev, info.st_ino};
        return Lease::Unknown;
    }
    Lease result = Lease::Free;
    if (::fstat(fd, &info) == 0 && S_ISREG(info.st_mode)) {
        if (::fcntl(fd, F_SETLEASE, F_RDLCK) == 0) {
            ::fcntl(fd, F_SETLEASE, F_UNLCK);
        } else if (errno == EAGAIN) {
            result = Lease::Held;
        } else {
            id = FileId{info.st_dev, info.st_ino};
            result = Lease::Unknown;
        }
    }
    ::close(fd);
    return result;
}

bool isNumber(const char* name)
{
    return *name >= '0' && *name <= '9';
}

/// Whether descriptor `fd` of the process in `processDir` (an open /proc/PID) is open for writing.
bool isOpenForWriting(int processDir, const char* fd)
{
    const QByteArray path = QByteArray("fdinfo/") + fd;
    const int file = ::openat(processDir, path.constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    char text[512];
    const ssize_t n = ::read(file, text, sizeof text);
    ::close(file);
    const QByteArrayView info(text, n > 0 ? n : 0);
    const qsizetype at = info.indexOf("flags:");
    if (at < 0)
        return false;
    const unsigned long flags = std::strtoul(info.sliced(at + 6).toByteArray().constData(), nullptr, 8);
    return (flags & O_ACCMODE) != O_RDONLY;
}

template <typename Visit>
void forEachEntry(int dirFd, const Visit& visit)
{
    const Dir dir(dirFd < 0 ? nullptr : ::fdopendir(dirFd));
    if (!dir) {
        if (dirFd >= 0)
            ::close(dirFd);
        return;
    }
    while (const dirent* entry = ::readdir(dir.get()))
        visit(::dirfd(dir.get()), entry->d_name);
}

void lookThroughProcess(int processDir, const QSet<FileId>& wanted, QSet<FileId>& held)
{
    const int fdDir = ::openat(processDir, "fd", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    forEachEntry(fdDir, [&](int dir, const char* fd) {
        struct stat info = {};
        if (!isNumber(fd) || ::fstatat(dir, fd, &info, 0) != 0 || !S_ISREG(info.st_mode))
            return;
        const FileId id{info.st_dev, info.st_ino};
        if (wanted.contains(id) && isOpenForWriting(processDir, fd))
            held.insert(id);
    });
}

QSet<FileId> openForWritingAnywhere(const QSet<FileId>& wanted)
{
    QSet<FileId> held;
    forEachEntry(::open("/proc", O_RDONLY | O_DIRECTORY | O_CLOEXEC), [&](int proc, const char* name) {
        if (!isNumber(name))
            return;
        const int processDir = ::openat(proc, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (processDir < 0)
            return;
        lookThroughProcess(processDir, wanted, held);
        ::close(processDir);
    });
    return held;
}

}  // namespace

FileState fileState(const struct stat& info)
{
    return {quint64(info.st_size), nanoseconds(info.st_mtim), nanoseconds(info.st_ctim)};
}

bool isUnchanged(const FileState& before, const FileState& now, qint64 toleranceNs)
{
    return before.size == now.size && std::abs(before.modifiedNs - now.modifiedNs) <= toleranceNs;
}

std::optional<FileState> regularFileState(const QString& path)
{
    struct stat info = {};
    if (::lstat(encodeFileName(path).constData(), &info) != 0 || !S_ISREG(info.st_mode))
        return std::nullopt;
    return fileState(info);
}

std::optional<QStringList> folderEntries(const QString& folder)
{
    const Dir dir(::opendir(encodeFileName(folder).constData()));
    if (!dir)
        return std::nullopt;
    QStringList names;
    errno = 0;
    while (const dirent* entry = ::readdir(dir.get())) {
        const QByteArrayView name(&entry->d_name[0]);
        if (name != "." && name != "..")
            names.append(decodeFileName(name));
        errno = 0;
    }
    return errno == 0 ? std::optional(names) : std::nullopt;
}

QSet<QString> heldForWriting(const QStringList& paths)
{
    QSet<QString> held;
    QHash<FileId, QStringList> undecided;
    for (const QString& path : paths) {
        std::optional<FileId> id;
        const Lease lease = tryLease(path, id);
        if (lease == Lease::Held)
            held.insert(path);
        else if (lease == Lease::Unknown && id)
            undecided[*id].append(path);
    }
    if (undecided.isEmpty())
        return held;
    for (const FileId& id : openForWritingAnywhere(QSet<FileId>(undecided.keyBegin(), undecided.keyEnd()))) {
        for (const QString& path : undecided.value(id))
            held.insert(path);
    }
    return held;
}

std::unique_ptr<QIODevice> openForReading(const QString& path)
{
    const int fd = openWithoutFollowing(encodeFileName(path));
    auto file = std::make_unique<QFile>();
    struct stat info = {};
    if (fd < 0 || !file->open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle) ||
        ::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode))
        return nullptr;
    return file;
}

bool removeFile(const QString& path)
{
    return !regularFileState(path) || ::unlink(encodeFileName(path).constData()) == 0;
}

}  // namespace morvak
