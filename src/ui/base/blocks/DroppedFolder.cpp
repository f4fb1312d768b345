#include "ui/base/blocks/DroppedFolder.h"

#include "platform/FileName.h"
#include "platform/FolderHandle.h"

#include <QMimeData>
#include <QUrl>

namespace morvak {

namespace {

/// A file name need not be UTF-8, and its URL has all of its bytes.
QString localPath(const QUrl& url)
{
    if (!url.isLocalFile() || !url.host().isEmpty())
        return {};
    QString path = decodeFileName(QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()));
    while (path.size() > 1 && path.endsWith(u'/'))
        path.chop(1);
    return path;
}

}  // namespace

std::optional<QString> droppedFolder(const QMimeData& data)
{
    for (const QUrl& url : data.urls()) {
        const QString path = localPath(url);
        if (path.startsWith(u'/') && FolderHandle(path).problem().isEmpty())
            return path;
    }
    return std::nullopt;
}

}  // namespace morvak
