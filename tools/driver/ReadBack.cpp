#include "driver/ReadBack.h"

#include "metadata/ToolLookup.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

namespace morvak::driver {

std::optional<QHash<QString, PhotoTags>> readTags(const QString& folder, const QStringList& names,
                                                  const QProcessEnvironment& environment)
{
    QStringList arguments{QStringLiteral("-q"),       QStringLiteral("-j"),
                          QStringLiteral("-G0"),      QStringLiteral("-FileName"),
                          QStringLiteral("-XMP:all"), QStringLiteral("-IPTC:all"),
                          QStringLiteral("-Warning"), QStringLiteral("-Error")};
    for (const QString& name : names)
        arguments.append(QStringLiteral("./") + name);
    QProcess tool;
    tool.setWorkingDirectory(folder);
    tool.setProcessEnvironment(environment);
    tool.setStandardErrorFile(QProcess::nullDevice());
    tool.start(findExifTool(QString()), arguments, QIODevice::ReadOnly);
    if (!tool.waitForFinished(30'000 + 50 * static_cast<int>(names.size()))) {
        tool.kill();
        tool.waitForFinished();
        return std::nullopt;
    }
    const QJsonDocument answer = QJsonDocument::fromJson(tool.readAllStandardOutput());
    if (!answer.isArray())
        return std::nullopt;
    QHash<QString, PhotoTags> photos;
    for (const QJsonValue& photo : answer.array())
        photos.insert(photo[QStringLiteral("File:FileName")].toString(), photo.toObject());
    return photos;
}

}  // namespace morvak::driver
