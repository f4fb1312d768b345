#include "platform/FolderPlace.h"

#include "platform/FolderHandle.h"

#include <QFile>

#include <climits>

#include <unistd.h>

namespace morvak {

namespace {

bool isAtOrBelow(const QByteArray& path, const QByteArray& folder)
{
    return folder == "/" || path == folder || path.startsWith(folder + '/');
}

QByteArray readProcFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray mountIdOf(int descriptor)
{
    const QByteArray info = readProcFile(QStringLiteral("/proc/self/fdinfo/%1").arg(descriptor));
    const qsizetype at = info.indexOf("mnt_id:");
    return at < 0 ? QByteArray() : info.sliced(at + 7, info.indexOf('\n', at) - at - 7).trimmed();
}

QByteArray pathOf(int descriptor)
{
    const QByteArray link = "/proc/self/fd/" + QByteArray::number(descriptor);
    QByteArray path(PATH_MAX, Qt::Uninitialized);
    const ssize_t length = ::readlink(link.constData(), path.data(), size_t(path.size()));
    path.truncate(length > 0 ? length : 0);
    return path;
}

bool isOctalDigit(char c)
{
    return c >= '0' && c <= '7';
}

/// The kernel writes blanks and backslashes as a backslash and three octal digits.
QByteArray unescaped(const QByteArray& field)
{
    QByteArray text;
    for (qsizetype i = 0; i < field.size(); ++i) {
        if (field.at(i) == '\\' && i + 3 < field.size() && isOctalDigit(field.at(i + 1))) {
            text += static_cast<char>(field.sliced(i + 1, 3).toUInt(nullptr, 8));
            i += 3;
        } else {
            text += field.at(i);
        }
    }
    return text;
}

}  // namespace

bool FolderPlace::isLeftBehindBy(const FolderPlace& before) const
{
    return isAtOrBelow(path, before.mountPoint) && !isAtOrBelow(mountPoint, before.mountPoint);
}

QByteArray mountPointIn(const QByteArray& mountInfo, const QByteArray& mountId)
{
    for (const QByteArray& line : mountInfo.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() > 4 && fields.at(0) == mountId)
            return unescaped(fields.at(4));
    }
    return {};
}

std::optional<FolderPlace> findFolder(const QString& path)
{
    const FolderHandle folder(path);
    struct stat info = {};
    if (!folder.problem().isEmpty() || ::fstat(folder.descriptor(), &info) != 0)
        return std::nullopt;
    const QByteArray mounts = readProcFile(QStringLiteral("/proc/self/mountinfo"));
    return FolderPlace{info.st_dev, info.st_ino, pathOf(folder.descriptor()),
                       mountPointIn(mounts, mountIdOf(folder.descriptor()))};
}

}  // namespace morvak
