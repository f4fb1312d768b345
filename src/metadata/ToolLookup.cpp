#include "metadata/ToolLookup.h"

#include <QFileInfo>
#include <QStringList>

namespace morvak {

QString findExifTool(const QString& resourceDirectory)
{
    QStringList candidates;
    if (!resourceDirectory.isEmpty())
        candidates.append(resourceDirectory + QStringLiteral("/exiftool_mac/exiftool"));
    if (const QString development = qEnvironmentVariable("MORVAK_EXIFTOOL"); !development.isEmpty())
        candidates.append(development);
    candidates.append(QStringLiteral("/usr/bin/exiftool"));
    candidates.append(QStringLiteral("/opt/homebrew/bin/exiftool"));
    for (const QString& candidate : candidates) {
        if (QFileInfo::exists(candidate))
            return QFileInfo(candidate).absoluteFilePath();
    }
    return QStringLiteral("/usr/local/bin/exiftool");
}

}  // namespace morvak
