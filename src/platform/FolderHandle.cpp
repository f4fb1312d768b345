#include "platform/FolderHandle.h"

#include "platform/FileName.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace morvak {

namespace {

bool isOneFile(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

}  // namespace

FolderHandle::FolderHandle(const QString& path, Missing missing)
{
    const QByteArray bytes = encodeFileName(path);
    std::error_code notMade;
    if (missing == Missing::IsMade)
        std::filesystem::create_directories(bytes.toStdString(), notMade);
    m_descriptor = ::open(bytes.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (m_descriptor >= 0)
        return;
    const int error = notMade ? notMade.value() : errno;
    m_problem = QStringLiteral("de map %1 kan niet gebruikt worden: %2")
                    .arg(path, QString::fromLocal8Bit(std::strerror(error)));
}

FolderHandle::~FolderHandle()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

bool FolderHandle::isSameAs(const FolderHandle& other) const
{
    struct stat mine = {};
    struct stat theirs = {};
    return ::fstat(m_descriptor, &mine) == 0 && ::fstat(other.m_descriptor, &theirs) == 0 &&
           isOneFile(mine, theirs);
}

std::optional<struct stat> FolderHandle::lookUp(const QString& name) const
{
    struct stat info = {};
    if (::fstatat(m_descriptor, encodeFileName(name).constData(), &info, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
    return info;
}

bool FolderHandle::areOneFile(const QString& name, const QString& otherName) const
{
    const std::optional<struct stat> first = lookUp(name);
    const std::optional<struct stat> second = lookUp(otherName);
    return first && second && isOneFile(*first, *second);
}

}  // namespace morvak
