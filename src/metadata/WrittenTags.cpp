#include "metadata/WrittenTags.h"

namespace morvak {

namespace {

/// One entry, or none where there is no text.
QStringList entry(const QString& text)
{
    return text.isEmpty() ? QStringList() : QStringList(text);
}

QStringList headline(const Tagging& tagging)
{
    return entry(tagging.set.headline());
}

QStringList description(const Tagging& tagging)
{
    return entry(tagging.set.description());
}

/// Each an entry of its own, also an empty one.
QStringList keywords(const Tagging& tagging)
{
    return tagging.set.keywords();
}

QStringList joinedKeywords(const Tagging& tagging)
{
    return entry(tagging.set.keywords().join(QStringLiteral(", ")));
}

QStringList model(const Tagging& tagging)
{
    return entry(tagging.set.model);
}

QStringList location(const Tagging& tagging)
{
    return entry(tagging.set.location);
}

QStringList shootName(const Tagging& tagging)
{
    return entry(tagging.shootName());
}

/// On one line.
QStringList setText(const Tagging& tagging)
{
    return entry(tagging.set.toQRText().replace(u'\n', QStringLiteral(" | ")));
}

using enum WrittenTag::WhenEmpty;

constexpr WrittenTag tags[]{
    {"IPTC:Headline", headline, Removed},
    {"IPTC:Caption-Abstract", description, Removed},
    {"IPTC:ObjectName", headline, Removed},
    {"XMP:Title", headline, Removed},
    {"IPTC:Keywords", keywords, LeftAlone},
    {"IPTC:By-line", model, LeftAlone},
    {"XMP-dc:Creator", model, LeftAlone},
    {"IPTC:City", location, LeftAlone},
    {"XMP-photoshop:City", location, LeftAlone},
    {"IPTC:TransmissionReference", shootName, LeftAlone, false},
    {"XMP-photoshop:TransmissionReference", shootName, LeftAlone},
    {"IPTC:SpecialInstructions", setText, Removed},
    {"XMP-photoshop:Instructions", setText, Removed},
    {"XMP:Subject", joinedKeywords, Removed},
    {"XMP:Description", description, Removed},
    {"XMP:Headline", headline, Removed},
};

}  // namespace

QString WrittenTag::printedName() const
{
    const QString full = QString::fromLatin1(name);
    const QString group = full.section(u':', 0, 0);
    return group.section(u'-', 0, 0) + full.sliced(group.size());
}

std::span<const WrittenTag> writtenTags()
{
    return tags;
}

}  // namespace morvak
