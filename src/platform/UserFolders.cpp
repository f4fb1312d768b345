#include "platform/UserFolders.h"

#include <QDir>
#include <QFile>

#include <array>

#include <pwd.h>
#include <unistd.h>

namespace morvak {

namespace {

QString homeOfPasswordFile()
{
    std::array<char, 16 * 1024> texts;
    passwd entry = {};
    passwd* found = nullptr;
    ::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &found);
    return found ? QFile::decodeName(found->pw_dir) : QString();
}

// QStandardPaths would hand a relative variable through, and the store would follow the working directory.
QString baseFolder(const char* variable, const QString& defaultBelowHome)
{
    const QString folder = qEnvironmentVariable(variable);
    return QDir::isAbsolutePath(folder) ? QDir::cleanPath(folder)
                                        : QDir(homeFolder()).filePath(defaultBelowHome);
}

}  // namespace

QString homeFolder()
{
    for (const QString& folder : {QFile::decodeName(qgetenv("HOME")), homeOfPasswordFile()}) {
        if (QDir::isAbsolutePath(folder))
            return QDir::cleanPath(folder);
    }
    return QDir::rootPath();
}

QString storeFolder()
{
    return baseFolder("XDG_DATA_HOME", QStringLiteral(".local/share")) + QStringLiteral("/Morvak");
}

QString preferencesFile()
{
    return baseFolder("XDG_CONFIG_HOME", QStringLiteral(".config")) + QStringLiteral("/Morvak/Morvak.conf");
}

}  // namespace morvak
