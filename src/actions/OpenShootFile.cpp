#include "actions/OpenShootFile.h"

#include "platform/Diagnostics.h"
#include "store/ShootManager.h"
#include "text/ImportText.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace morvak {

std::optional<QByteArray> readShootFile(const QString& path)
{
    // A pipe would be waited for.
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        diagnostic(u"⚠️ Het shootbestand kan niet gelezen worden: "_s + path);
        return std::nullopt;
    }
    QByteArray bytes = file.read(mostImportedBytes + 1);
    if (bytes.size() > mostImportedBytes || file.error() != QFileDevice::NoError) {
        diagnostic(u"⚠️ Het shootbestand is te groot of onleesbaar: "_s + path);
        return std::nullopt;
    }
    return bytes;
}

bool openShootFile(ShootManager& shoots, const QString& path)
{
    const std::optional<QByteArray> bytes = readShootFile(path);
    return bytes && shoots.importShoot(*bytes);
}

}  // namespace morvak
