#include "platform/UserFolders.h"

#include <QDir>

namespace morvak {

namespace {

// QStandardPaths would hand a relative variable through, and the store would follow the working directory.
QString baseFolder(const char* variable, const QString& defaultBelowHome)
{
    const QString folder = qEnvironmentVariable(variable);
    return QDir::isAbsolutePath(folder) ? QDir::cleanPath(folder) : QDir::home().filePath(defaultBelowHome);
}

}  // namespace

QString storeFolder()
{
    return baseFolder("XDG_DATA_HOME", QStringLiteral(".local/share")) + QStringLiteral("/Morvak");
}

QString preferencesFile()
{
    return baseFolder("XDG_CONFIG_HOME", QStringLiteral(".config")) + QStringLiteral("/Morvak/Morvak.conf");
}

}  // namespace morvak
