#include "ui/main/Shell.h"

#include "ui/base/Dialogs.h"
#include "ui/base/UiServices.h"
#include "ui/base/theme/Theme.h"
#include "ui/qr/QRGeneratorView.h"
#include "watch/FolderWatcher.h"

#include <QCursor>
#include <QEvent>

namespace morvak {

namespace {

/// The press on the icon takes the focus from the panel before the icon tells of it.
constexpr std::chrono::milliseconds samePress(300);

}  // namespace

Shell::Shell(UiServices& services, QObject* parent)
    : QObject(parent),
      m_services(services),
      m_icon(Icons::tray()),
      m_tray({.hasTray = QSystemTrayIcon::isSystemTrayAvailable}),
      m_main(services),
      m_panel(services)
{
    m_icon.setToolTip(QStringLiteral("Morvak"));
    m_icon.show();
    connect(&m_icon, &QSystemTrayIcon::activated, this, &Shell::togglePanel);
    connect(&m_tray, &TrayPresence::changed, this, &Shell::keepInSight);
    connect(&m_main, &MainView::closed, this, &Shell::keepInSight);
    connect(&m_main, &MainView::quitAsked, this, &Shell::quitAsked);
    connect(&m_main, &MainView::qrGeneratorAsked, this, &Shell::openGenerator);
    connect(&m_panel, &MenuBarView::qrGeneratorAsked, this, &Shell::openGenerator);
    connect(&m_panel, &MenuBarView::mainWindowAsked, this, &Shell::openMain);
    connect(&m_panel, &MenuBarView::quitAsked, this, &Shell::quitAsked);
    connect(&m_panel, &MenuBarView::closeAsked, this, &Shell::panelClosed);
    connect(&m_panel, &MenuBarView::hidden, this, [this] { m_panelLeft.start(); });
}

Shell::~Shell() = default;

void Shell::openMain()
{
    m_main.bringToFront();
    if (!m_panel.isOrdinaryWindow())
        m_panel.hide();
    keepInSight();
}

void Shell::openGenerator()
{
    if (!m_generator)
        m_generator = std::make_unique<QRGeneratorView>(m_services);
    m_generator->setWindowState(m_generator->windowState() & ~Qt::WindowMinimized);
    m_generator->show();
    m_generator->raise();
    m_generator->activateWindow();
}

WindowFacts Shell::facts() const
{
    return {.trayThere = m_tray.isThere(),
            .mainVisible = m_main.isVisible(),
            .panelVisible = m_panel.isVisible(),
            .panelIsWindow = m_panel.isOrdinaryWindow()};
}

void Shell::keepInSight()
{
    m_tray.setWatchful(!m_main.isVisible());
    switch (panelStep(facts())) {
        case PanelStep::leave:
            break;
        case PanelStep::showAsWindow:
            m_panel.openAsWindow();
            break;
        case PanelStep::hide:
            m_panel.hide();
            break;
    }
}

void Shell::togglePanel()
{
    if (m_panel.isVisible()) {
        if (m_panel.isOrdinaryWindow())
            m_panel.activateWindow();
        else
            m_panel.hide();
        return;
    }
    if (m_panelLeft.isValid() && !m_panelLeft.hasExpired(samePress.count()))
        return;
    // Trays of the StatusNotifierItem kind do not tell where their icons are.
    const QRect icon = m_icon.geometry();
    m_panel.openBeside(icon.isEmpty() ? QRect(QCursor::pos(), QSize(1, 1)) : icon);
}

void Shell::panelClosed()
{
    switch (panelClose(facts(), m_services.watcher.isWatching())) {
        case PanelClose::hide:
            m_panel.hide();
            break;
        case PanelClose::askAndQuit:
            if (!mayQuit())
                break;
            [[fallthrough]];
        case PanelClose::quit:
            Q_EMIT quitAsked();
            break;
    }
}

bool Shell::mayQuit()
{
    return m_services.dialogs.confirm(
        &m_panel, tr("Morvak afsluiten?"),
        tr("Morvak volgt nu een map. Foto’s die na het afsluiten binnenkomen, krijgen geen set."),
        tr("Afsluiten"));
}

}  // namespace morvak
