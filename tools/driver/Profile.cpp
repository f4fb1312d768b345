#include "driver/Profile.h"

#include "store/ShootManager.h"

#include <QDir>
#include <QFile>

namespace morvak::driver {

Profile::Profile()
{
    for (const char* name : {"home", "data", "config", "cache", "runtime", "Fotos"})
        QDir(m_root.path()).mkdir(QLatin1String(name));
    const QString runtime = m_root.filePath(QStringLiteral("runtime"));
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_environment.insert(QStringLiteral("HOME"), m_root.filePath(QStringLiteral("home")));
    m_environment.insert(QStringLiteral("XDG_DATA_HOME"), m_root.filePath(QStringLiteral("data")));
    m_environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_root.filePath(QStringLiteral("config")));
    m_environment.insert(QStringLiteral("XDG_CACHE_HOME"), m_root.filePath(QStringLiteral("cache")));
    m_environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    if (!m_environment.contains(QStringLiteral("XDG_RUNTIME_DIR")))  // a display's socket may lie in it
        m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime);
    if (!m_environment.contains(QStringLiteral("DISPLAY")) &&
        !m_environment.contains(QStringLiteral("WAYLAND_DISPLAY")))
        m_environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
}

QString Profile::storeFile() const
{
    return m_root.filePath(QStringLiteral("data/Morvak/shoots.json"));
}

Shoot Profile::makeShoot(const QString& name, const QString& location, const QString& client) const
{
    ShootManager store(storeFile());
    store.createShoot(name, location, client);
    store.setWatchFolder(photoFolder(), store.shoots().constFirst().id);
    return store.shoots().constFirst();
}

}  // namespace morvak::driver
