#include "demo/Profile.h"

#include "store/ShootManager.h"

#include <QDir>
#include <QFile>

namespace morvak::demo {

Profile::Profile() : m_root(QDir::tempPath() + QStringLiteral("/morvak-demo-XXXXXX"))
{
    for (const char* name : {"home", "data", "config", "cache", "runtime", "Fotos"})
        QDir(m_root.path()).mkdir(QLatin1String(name));
    QFile::setPermissions(runtimeFolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_environment.insert(QStringLiteral("HOME"), m_root.filePath(QStringLiteral("home")));
    m_environment.insert(QStringLiteral("XDG_DATA_HOME"), dataFolder());
    m_environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_root.filePath(QStringLiteral("config")));
    m_environment.insert(QStringLiteral("XDG_CACHE_HOME"), m_root.filePath(QStringLiteral("cache")));
    m_environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    if (!m_environment.contains(QStringLiteral("XDG_RUNTIME_DIR")))  // a display's socket may lie in it
        m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtimeFolder());
    if (!m_environment.contains(QStringLiteral("DISPLAY")) &&
        !m_environment.contains(QStringLiteral("WAYLAND_DISPLAY")))
        m_environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
}

Shoot Profile::makeShoot(const QString& name, const QString& location, const QString& client) const
{
    ShootManager store(dataFolder() + QStringLiteral("/Morvak/shoots.json"));
    store.createShoot(name, location, client);
    store.setWatchFolder(photoFolder(), store.shoots().constFirst().id);
    return store.shoots().constFirst();
}

}  // namespace morvak::demo
