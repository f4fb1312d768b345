#include "ui/sets/ShootFiles.h"

#include "platform/Diagnostics.h"
#include "platform/FileName.h"
#include "store/ShootManager.h"
#include "text/ImportText.h"
#include "ui/Dialogs.h"
#include "ui/UiServices.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

QStringList filesIn(const QMimeData& data, QStringView extension)
{
    QStringList files;
    for (const QUrl& url : data.urls()) {
        const QString path = url.toLocalFile();
        if (lowerCaseExtension(path) == extension)
            files.append(path);
    }
    return files;
}

}  // namespace

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

void openShootFile(UiServices& services, const QString& path, QWidget* window)
{
    const std::optional<QByteArray> bytes = readShootFile(path);
    if (bytes && services.shoots.importShoot(*bytes))
        return;
    const auto tr = [](const char* text) { return QCoreApplication::translate("morvak::ShootFiles", text); };
    services.dialogs.alert(window, tr("Kon .morvak-bestand niet openen"),
                           tr("Het bestand kon niet gelezen worden, mogelijk beschadigd of geen geldig "
                              ".morvak-bestand."));
}

QStringList shootFilesIn(const QMimeData& data)
{
    return filesIn(data, u"morvak");
}

QStringList csvFilesIn(const QMimeData& data)
{
    return filesIn(data, u"csv");
}

}  // namespace morvak
