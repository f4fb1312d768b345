#include "app/Desktop.h"

#include "engine/Engine.h"
#include "metadata/ExifToolService.h"
#include "platform/Diagnostics.h"

#include <QDesktopServices>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

void openPage(const QUrl& page)
{
    if (!QDesktopServices::openUrl(page))
        diagnostic(u"⚠️ De browser kan niet geopend worden: "_s + page.toString());
}

UiServices servicesOf(const DesktopParts& parts, const RawRenameService& rename, Dialogs& dialogs)
{
    Engine& engine = parts.engine;
    return {.shoots = engine.shoots(),
            .watcher = engine.watcher(),
            .catalog = engine.catalog(),
            .updates = parts.updates,
            .theme = parts.theme,
            .dialogs = dialogs,
            .version = parts.version,
            .startTool = [&engine] { engine.exifTool().start(); },
            .stopTool = [&engine] { engine.exifTool().stop(); },
            .rename = rename,
            .openInBrowser = openPage};
}

}  // namespace

Desktop::Desktop(const DesktopParts& parts)
    : m_engine(parts.engine),
      m_rename([&tool = parts.engine.exifTool()](const QString& in, const QSet<QString>& extensions,
                                                 const ReadingControl& control) {
          return tool.readSubjectsAndDates(in, extensions, control);
      }),
      m_services(servicesOf(parts, m_rename, m_dialogs)),
      m_shell(m_services)
{
    connect(&m_shell, &Shell::quitAsked, this, &Desktop::quitAsked);
    connect(&m_shell.mainView(), &MainView::firstShown, &m_engine, &Engine::takeUpShoots);
}

void Desktop::bringToFront()
{
    m_shell.openMain();
}

void Desktop::openShootFiles(const QStringList& paths)
{
    m_engine.takeUpShoots();
    for (const QString& path : paths)
        m_shell.mainView().openShootFile(path);
}

}  // namespace morvak
