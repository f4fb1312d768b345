#include "platform/FileCopy.h"

#include "platform/FileName.h"
#include "platform/PhotoFile.h"

#include <QByteArray>
#include <QLatin1StringView>
#include <QRandomGenerator>
#include <QStringList>

#include <array>
#include <cerrno>
#include <climits>
#include <cstring>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace morvak {

namespace {

constexpr std::size_t chunkBytes = std::size_t(1) << 20;
constexpr std::size_t mostKernelBytes = std::size_t(1) << 30;
constexpr mode_t accessRights = 0777;
constexpr QLatin1StringView temporaryStart(".morvak-kopie-");
constexpr QLatin1StringView temporaryEnd(".deel");

enum class Side { Source, Target };

QString reason(Side side, int error)
{
    const bool source = side == Side::Source;
    switch (error) {
        case ENOENT:
            return source ? QStringLiteral("het bestand is er niet meer")
                          : QStringLiteral("de doelmap is er niet meer");
        case EACCES:
        case EPERM:
            return source ? QStringLiteral("geen toestemming om het bestand te lezen")
                          : QStringLiteral("geen toestemming om in de doelmap te schrijven");
        case ELOOP:
        case EISDIR:
            return source ? QStringLiteral("geen gewoon bestand")
                          : QStringLiteral("in de doelmap staat iets met deze naam dat geen bestand is");
        case ENOSPC:
        case EDQUOT:
            return QStringLiteral("geen ruimte meer op de schijf van de doelmap");
        case EFBIG:
            return QStringLiteral("het bestand is te groot voor de schijf van de doelmap");
        case EROFS:
            return QStringLiteral("op de schijf van de doelmap kan niet geschreven worden");
        case ENAMETOOLONG:
            return QStringLiteral("de naam is te lang");
        case EINVAL:
        case EILSEQ:
            return QStringLiteral("deze naam kan niet op de schijf");
        default:
            return QStringLiteral("de schijf meldt: ") + QString::fromLocal8Bit(std::strerror(error));
    }
}

QString changedReason()
{
    return QStringLiteral("het bestand veranderde tijdens het kopiëren");
}

/// Empty when `name` can be a file's name in some folder.
QString nameProblem(const QString& name)
{
    if (name.contains(u'/'))
        return QStringLiteral("de naam bevat een schuine streep (/)");
    if (name.isEmpty() || name.contains(QChar::Null) || name == u"." || name == u"..")
        return QStringLiteral("dit kan geen bestandsnaam zijn");
    return encodeFileName(name).size() > NAME_MAX ? reason(Side::Target, ENAMETOOLONG) : QString();
}

/// One copy under way. Its steps give an empty text, or the reason why it ends there.
class Copying {
public:
    Copying(const FolderHandle& from, const QString& name, const FolderHandle& to, const QString& newName)
        : m_from(from), m_to(to), m_name(name), m_newName(newName)
    {
    }
    ~Copying()
    {
        if (!m_temporary.isEmpty())
            ::unlinkat(m_to.descriptor(), encodeFileName(m_temporary).constData(), 0);
        for (const int descriptor : {m_source, m_target}) {
            if (descriptor >= 0)
                ::close(descriptor);
        }
    }
    Copying(const Copying&) = delete;
    Copying& operator=(const Copying&) = delete;

    QString run()
    {
        for (const auto step : {&Copying::openSource, &Copying::lookAtTarget, &Copying::makeTemporary,
                                &Copying::copyContents, &Copying::flush, &Copying::putInPlace}) {
            if (QString problem = (this->*step)(); !problem.isEmpty())
                return problem;
        }
        return {};
    }

private:
    QString openSource()
    {
        m_source = ::openat(m_from.descriptor(), encodeFileName(m_name).constData(),
                            O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
        if (m_source < 0 || ::fstat(m_source, &m_before) != 0)
            return reason(Side::Source, errno);
        return S_ISREG(m_before.st_mode) ? QString() : reason(Side::Source, EISDIR);
    }

    QString lookAtTarget()
    {
        const std::optional<struct stat> there = m_to.lookUp(m_newName);
        const bool free = !there || S_ISREG(there->st_mode) || S_ISLNK(there->st_mode);
        return free ? QString() : reason(Side::Target, EISDIR);
    }

    QString makeTemporary()
    {
        const QString random = QString::number(QRandomGenerator64::system()->generate64(), 16);
        const QString name = temporaryStart + random + temporaryEnd;
        m_target = ::openat(m_to.descriptor(), encodeFileName(name).constData(),
                            O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
        if (m_target < 0)
            return reason(Side::Target, errno);
        m_temporary = name;
        // One folder of a share that is mounted twice has two identities, but only one content.
        return m_from.contains(name) ? QStringLiteral("de doelmap is de bronmap") : QString();
    }

    QString copyContents()
    {
        if (::ioctl(m_target, FICLONE, m_source) == 0)
            return {};
        off_t done = 0;
        while (done < m_before.st_size) {
            off_t in = done;
            off_t out = done;
            const ssize_t n = ::copy_file_range(m_source, &in, m_target, &out, mostKernelBytes, 0);
            if (n <= 0)
                return copyByHand(done);
            done += n;
        }
        return {};
    }

    /// Where the kernel does not copy between these two, or has met an error: which one shows here.
    QString copyByHand(off_t done)
    {
        QByteArray buffer(chunkBytes, Qt::Uninitialized);
        while (done < m_before.st_size) {
            const ssize_t n = ::pread(m_source, buffer.data(), chunkBytes, done);
            if (n < 0 && errno == EINTR)
                continue;
            if (n < 0)
                return reason(Side::Source, errno);
            if (n == 0)
                return changedReason();
            if (!writeAt(done, QByteArrayView(buffer).first(n)))
                return reason(Side::Target, errno);
            done += n;
        }
        return {};
    }

    [[nodiscard]] bool writeAt(off_t place, QByteArrayView bytes) const
    {
        while (!bytes.isEmpty()) {
            const ssize_t n = ::pwrite(m_target, bytes.data(), static_cast<std::size_t>(bytes.size()), place);
            if (n < 0 && errno == EINTR)
                continue;
            if (n < 0)
                return false;
            bytes = bytes.sliced(n);
            place += n;
        }
        return true;
    }

    /// After a power cut the new name must not stand for a file without its content.
    QString flush() { return ::fsync(m_target) == 0 ? QString() : reason(Side::Target, errno); }

    QString putInPlace()
    {
        const std::array<timespec, 2> times = {m_before.st_atim, m_before.st_mtim};
        // A file system without rights or with coarser times keeps what it can.
        [[maybe_unused]] const int rightsKept = ::fchmod(m_target, m_before.st_mode & accessRights);
        [[maybe_unused]] const int timesKept = ::futimens(m_target, times.data());
        struct stat after = {};
        struct stat copy = {};
        if (::fstat(m_source, &after) != 0 || ::fstat(m_target, &copy) != 0 ||
            !isUnchanged(fileState(m_before), fileState(after)) || copy.st_size != m_before.st_size)
            return changedReason();
        const int folder = m_to.descriptor();
        if (::renameat(folder, encodeFileName(m_temporary).constData(), folder,
                       encodeFileName(m_newName).constData()) != 0)
            return reason(Side::Target, errno);
        m_temporary.clear();
        return {};
    }

    const FolderHandle& m_from;
    const FolderHandle& m_to;
    const QString m_name;
    const QString m_newName;
    QString m_temporary;  // to be removed
    int m_source = -1;
    int m_target = -1;
    struct stat m_before = {};
};

}  // namespace

QString copyFile(const FolderHandle& from, const QString& name, const FolderHandle& to,
                 const QString& newName)
{
    for (const QString& problem : {from.problem(), to.problem(), nameProblem(name), nameProblem(newName)}) {
        if (!problem.isEmpty())
            return problem;
    }
    return Copying(from, name, to, newName).run();
}

void removeUnfinishedCopies(const QString& folder)
{
    QStringList found;
    for (const QString& name : folderEntries(folder).value_or(QStringList())) {
        if (name.startsWith(temporaryStart) && name.endsWith(temporaryEnd))
            found.append(folder + u'/' + name);
    }
    const QSet<QString> underWay = heldForWriting(found);
    for (const QString& path : found) {
        if (!underWay.contains(path))
            removeFile(path);
    }
}

}  // namespace morvak
