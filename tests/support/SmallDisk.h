#pragma once

#include <QByteArray>
#include <QFile>

#include <sys/mount.h>

namespace morvak::test {

/// A disk of its own in a folder, for those who may mount one.
class SmallDisk {
public:
    /// `size` as the options of tmpfs take it: "16m".
    SmallDisk(const QString& folder, const char* size) : m_folder(QFile::encodeName(folder)), m_size(size)
    {
        mount();
    }
    ~SmallDisk() { unmount(); }
    Q_DISABLE_COPY_MOVE(SmallDisk)

    [[nodiscard]] bool isMounted() const { return m_mounted; }

    /// An empty disk. False when this user may not mount.
    bool mount()
    {
        const QByteArray options = "size=" + m_size;
        m_mounted = ::mount("tmpfs", m_folder.constData(), "tmpfs", 0, options.constData()) == 0;
        return m_mounted;
    }

    /// Works while the disk is in use, as pulling it out does.
    void unmount()
    {
        if (m_mounted)
            ::umount2(m_folder.constData(), MNT_DETACH);
        m_mounted = false;
    }

private:
    QByteArray m_folder;
    QByteArray m_size;
    bool m_mounted = false;
};

}  // namespace morvak::test
