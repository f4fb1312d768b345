#include "metadata/TaggingRequest.h"

#include "metadata/WrittenTags.h"

namespace morvak {

QStringList taggingOptions(const Tagging& tagging)
{
    QStringList options(QStringLiteral("-m"));
    for (const WrittenTag& tag : writtenTags()) {
        const QString assignment = u'-' + QLatin1String(tag.name) + u'=';
        const QStringList entries = tag.entries(tagging);
        for (const QString& entry : entries)
            options.append(assignment + entry);
        if (entries.isEmpty() && tag.whenEmpty == WrittenTag::WhenEmpty::Removed)
            options.append(assignment);
    }
    options.append(QStringLiteral("-overwrite_original"));
    return options;
}

}  // namespace morvak
