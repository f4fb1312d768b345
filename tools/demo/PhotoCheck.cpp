#include "demo/PhotoCheck.h"

#include "sampleshoot/PictureData.h"

#include <QJsonArray>

namespace morvak::demo {

namespace {

struct Expectation {
    const char* tag;
    QStringList values;
};

/// IPTC has no field for the shoot's name that the tool knows; XMP carries it.
QList<Expectation> expectations(const Tagging& tagging)
{
    const SetData& set = tagging.set;
    const QString setText = set.toQRText().replace(u'\n', QStringLiteral(" | "));
    return {{"IPTC:Headline", {set.headline()}},
            {"IPTC:ObjectName", {set.headline()}},
            {"IPTC:Caption-Abstract", {set.description()}},
            {"IPTC:Keywords", set.keywords()},
            {"IPTC:By-line", {set.model}},
            {"IPTC:City", {set.location}},
            {"IPTC:SpecialInstructions", {setText}},
            {"XMP:Headline", {set.headline()}},
            {"XMP:Title", {set.headline()}},
            {"XMP:Description", {set.description()}},
            {"XMP:Subject", {set.keywords().join(QStringLiteral(", "))}},
            {"XMP:Creator", {set.model}},
            {"XMP:City", {set.location}},
            {"XMP:TransmissionReference", {tagging.shootName()}},
            {"XMP:Instructions", {setText}}};
}

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
    for (const auto& [tag, expected] : expectations(tagging)) {
        const QStringList found = tagValues(tags, QLatin1String(tag));
        if (found != expected)
            faults.append(QStringLiteral("%1 is %2, verwacht %3")
                              .arg(QLatin1String(tag), quoted(found), quoted(expected)));
    }
    return faults;
}

bool hasSamePicture(const QByteArray& original, const QByteArray& now)
{
    const std::optional<QByteArray> before = samples::pictureData(original);
    return before && !before->isEmpty() && before == samples::pictureData(now);
}

}  // namespace morvak::demo
