#include "metadata/TaggingRequest.h"

namespace morvak {

namespace {

QString flattenedSetText(const SetData& set)
{
    return set.toQRText().replace(u'\n', QStringLiteral(" | "));
}

}  // namespace

QStringList taggingOptions(const Tagging& tagging)
{
    const SetData& set = tagging.set;
    const QString headline = set.headline();
    const QString description = set.description();
    const QStringList keywords = set.keywords();
    const QString setText = flattenedSetText(set);

    QStringList options;
    const auto assign = [&](const char* tag, const QString& value) {
        options.append(u'-' + QLatin1String(tag) + u'=' + value);
    };
    const auto assignIfPresent = [&](const char* tag, const QString& value) {
        if (!value.isEmpty())
            assign(tag, value);
    };
    options.append(QStringLiteral("-m"));
    assign("IPTC:Headline", headline);
    assign("IPTC:Caption-Abstract", description);
    assign("IPTC:ObjectName", headline);
    assign("XMP:Title", headline);
    for (const QString& keyword : keywords)
        assign("IPTC:Keywords", keyword);
    assignIfPresent("IPTC:By-line", set.model);
    assignIfPresent("XMP-dc:Creator", set.model);
    assignIfPresent("IPTC:City", set.location);
    assignIfPresent("XMP-photoshop:City", set.location);
    assignIfPresent("IPTC:TransmissionReference", tagging.shootName());
    assignIfPresent("XMP-photoshop:TransmissionReference", tagging.shootName());
    assign("IPTC:SpecialInstructions", setText);
    assign("XMP-photoshop:Instructions", setText);
    assign("XMP:Subject", keywords.join(QStringLiteral(", ")));
    assign("XMP:Description", description);
    assign("XMP:Headline", headline);
    options.append(QStringLiteral("-overwrite_original"));
    return options;
}

}  // namespace morvak
