#include "metadata/ToolLeftovers.h"

#include "platform/Diagnostics.h"
#include "platform/FileName.h"
#include "platform/PhotoFile.h"

#include <QLatin1StringView>

namespace morvak {

namespace {

constexpr QLatin1StringView temporarySuffix("_exiftool_tmp");

bool isNoOlder(const QString& path, const QString& other)
{
    const std::optional<FileState> state = regularFileState(path);
    const std::optional<FileState> otherState = regularFileState(other);
    return state && otherState && state->modifiedNs >= otherState->modifiedNs;
}

}  // namespace

void removeLeftover(const QString& photoPath)
{
    const QString temporary = photoPath + temporarySuffix;
    if (!regularFileState(temporary) || !heldForWriting({temporary}).isEmpty())
        return;
    const bool removed = removeFile(temporary);
    diagnostic((removed ? QStringLiteral("🔧 Removed stale ") : QStringLiteral("❌ Cannot remove stale ")) +
               lastPathComponent(temporary));
}

void removeLeftovers(const QString& folder)
{
    for (const QString& name : folderEntries(folder).value_or(QStringList())) {
        if (!name.endsWith(temporarySuffix))
            continue;
        const QString temporary = folder + u'/' + name;
        const QString photo = temporary.chopped(temporarySuffix.size());
        if (isNoOlder(temporary, photo))
            removeLeftover(photo);
    }
}

}  // namespace morvak
