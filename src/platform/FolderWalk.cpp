#include "platform/FolderWalk.h"

#include "platform/FileName.h"

#include <sys/stat.h>

namespace morvak {

namespace {

bool isFolder(const QString& path)
{
    struct stat info = {};
    return ::lstat(encodeFileName(path).constData(), &info) == 0 && S_ISDIR(info.st_mode);
}

}  // namespace

QList<FoundFile> filesBelow(const QString& folder, const std::function<bool(const QString& name)>& accept,
                            const std::stop_token& stop)
{
    QList<FoundFile> found;
    QStringList folders{folder};
    while (!folders.isEmpty() && !stop.stop_requested()) {
        const QString current = folders.takeLast();
        const QString prefix = current.endsWith(u'/') ? current : current + u'/';
        for (const QString& name : folderEntries(current).value_or(QStringList())) {
            if (name.startsWith(u'.'))
                continue;
            const QString path = prefix + name;
            if (isFolder(path)) {
                folders.append(path);
            } else if (accept(name)) {
                if (const std::optional<FileState> state = regularFileState(path))
                    found.append({path, *state});
            }
        }
    }
    return found;
}

}  // namespace morvak
