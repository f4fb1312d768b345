#include "ui/shoots/ShootFiles.h"

#include "actions/OpenShootFile.h"
#include "platform/FileName.h"
#include "ui/base/Dialogs.h"
#include "ui/base/UiServices.h"

#include <QCoreApplication>
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

void openShootFile(UiServices& services, const QString& path, QWidget* window)
{
    if (openShootFile(services.shoots, path))
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
