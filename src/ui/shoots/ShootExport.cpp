#include "ui/shoots/ShootExport.h"

#include "platform/FileName.h"
#include "platform/OutputFile.h"
#include "store/ShootManager.h"
#include "ui/base/Dialogs.h"
#include "ui/base/UiServices.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("morvak::ShootExport", text);
}

struct Format {
    QString extension;
    QString filter;
    QString title;
};

Format formatOf(ShootExport kind)
{
    switch (kind) {
        case ShootExport::csv:
            return {u"csv"_s, tr("Kommagescheiden tekst (*.csv)"), tr("Sets exporteren als CSV")};
        case ShootExport::json:
            return {u"json"_s, tr("JSON (*.json)"), tr("Shoot exporteren als JSON")};
        case ShootExport::shootFile:
            return {u"morvak"_s, tr("Shoots (*.morvak)"), tr("Shoot bewaren")};
    }
    Q_UNREACHABLE();
}

std::optional<QByteArray> contentOf(const ShootManager& shoots, ShootExport kind, QUuid shootId)
{
    if (kind == ShootExport::csv)
        return shoots.exportCSV(shootId).toUtf8();
    return shoots.exportJSON(shootId);
}

Notice failed(const QString& what)
{
    return {tr("%1 kon niet bewaard worden.").arg(what), Role::danger};
}

}  // namespace

QString proposedFileName(ShootExport kind, const std::optional<Shoot>& shoot)
{
    return (shoot ? shoot->name : u"sets"_s) + u'.' + formatOf(kind).extension;
}

std::optional<Notice> exportShoot(UiServices& services, ShootExport kind, QWidget* window)
{
    const std::optional<Shoot> shoot = services.shoots.activeShoot();
    if (!shoot)
        return std::nullopt;
    if (!contentOf(services.shoots, kind, shoot->id))
        return failed(shoot->name);
    const Format format = formatOf(kind);
    const QString path = services.dialogs.saveFile(window, format.title, proposedFileName(kind, shoot),
                                                   format.filter, format.extension);
    if (path.isEmpty())
        return std::nullopt;
    // Photos may have been tagged while the user chose a name.
    const std::optional<QByteArray> content = contentOf(services.shoots, kind, shoot->id);
    const QString name = lastPathComponent(path);
    OutputFile file(path);
    if (!content || !file.write(*content) || !file.commit())
        return failed(name);
    return Notice{tr("%1 is bewaard.").arg(name), Role::success};
}

}  // namespace morvak
