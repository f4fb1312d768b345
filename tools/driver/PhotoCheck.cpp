#include "driver/PhotoCheck.h"

#include "metadata/WrittenTags.h"
#include "sampleshoot/PictureData.h"

#include <QJsonArray>

namespace morvak::driver {

namespace {

QString quoted(const QStringList& values)
{
    return values.isEmpty() ? QStringLiteral("niets") : u'“' + values.join(QStringLiteral("”, “")) + u'”';
}

}  // namespace

QStringList tagValues(const PhotoTags& tags, const QString& tag)
{
    const QJsonValue value = tags.value(tag);
    if (value.isUndefined())
        return {};
    if (!value.isArray())
        return {value.toVariant().toString()};
    QStringList values;
    for (const QJsonValue& element : value.toArray())
        values.append(element.toVariant().toString());
    return values;
}

QStringList tagFaults(const PhotoTags& tags, const Tagging& tagging)
{
    QStringList faults;
    for (const WrittenTag& tag : writtenTags()) {
        if (!tag.isKept)
            continue;
        const QString name = tag.printedName();
        const QStringList expected = tag.entries(tagging);
        const QStringList found = tagValues(tags, name);
        if (found != expected)
            faults.append(QStringLiteral("%1 is %2, verwacht %3").arg(name, quoted(found), quoted(expected)));
    }
    return faults;
}

bool hasSamePicture(const QByteArray& original, const QByteArray& now)
{
    const std::optional<QByteArray> before = samples::pictureData(original);
    return before && !before->isEmpty() && before == samples::pictureData(now);
}

}  // namespace morvak::driver
