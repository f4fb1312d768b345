#include "ui/sets/SetsView.h"

#include "actions/SetActions.h"
#include "catalog/ProductCatalog.h"
#include "store/ShootManager.h"
#include "ui/base/Dialogs.h"
#include "ui/base/UiServices.h"
#include "ui/base/blocks/NoticeLine.h"
#include "ui/base/theme/Metrics.h"
#include "ui/scan/ScanBar.h"
#include "ui/sets/SearchField.h"
#include "ui/sets/SetBar.h"
#include "ui/sets/SetRow.h"
#include "ui/sets/SetsContent.h"
#include "ui/sets/SetsSheets.h"
#include "ui/shoots/BacklogBar.h"
#include "ui/shoots/SetsButtons.h"
#include "ui/shoots/ShootBar.h"
#include "ui/shoots/ShootExport.h"
#include "ui/shoots/ShootFiles.h"
#include "watch/FolderWatcher.h"

#include <QDragEnterEvent>
#include <QScrollArea>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr int widestContent = 1200;
/// Below this height the fields stand side by side and the rest is brief, so that there is room for the list.
constexpr int lowTab = 420;

}  // namespace

SetsView::SetsView(UiServices& services, QWidget* parent)
    : QWidget(parent),
      m_services(services),
      m_buttons(new SetsButtons(services.theme, this)),
      m_sheets(new SetsSheets(services, *this)),
      m_backlog(new BacklogBar(services)),
      m_setBar(new SetBar(services.theme, *m_buttons)),
      m_scan(new ScanBar(services)),
      m_search(new SearchField(services.theme)),
      m_notice(new NoticeLine),
      m_content(new SetsContent(services.theme))
{
    setObjectName(u"setsView"_s);
    setAcceptDrops(true);
    QBoxLayout& column = *makeColumn();
    column.addWidget(new ShootBar(services.shoots, *m_buttons, m_backlog));
    column.addWidget(m_setBar);
    addFields(column);
    column.addWidget(m_content, 1);
    followUser();
    followStore();
    showShoot();
}

/// Everything scrolls together where the window is too low for it.
QBoxLayout* SetsView::makeColumn()
{
    auto* const inside = new QWidget;
    inside->setMaximumWidth(widestContent);
    auto* const centred = new QWidget;
    auto* const row = new QHBoxLayout(centred);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(inside);

    auto* const scroll = new QScrollArea;
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidgetResizable(true);
    scroll->setWidget(centred);
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(scroll);

    auto* const column = new QVBoxLayout(inside);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(metrics::inGroup);
    return column;
}

void SetsView::addFields(QBoxLayout& column)
{
    m_fields = new QBoxLayout(QBoxLayout::TopToBottom);
    m_fields->setSpacing(metrics::inGroup);
    m_fields->addWidget(m_scan, 3);
    m_fields->addWidget(m_search, 2);
    auto* const group = new QVBoxLayout;
    group->setSpacing(metrics::inGroup / 4);
    group->addLayout(m_fields);
    group->addWidget(m_notice);
    column.addLayout(group);
    column.addSpacing(-metrics::inGroup / 2);
}

void SetsView::followUser()
{
    connect(m_buttons, &SetsButtons::asked, this, &SetsView::perform);
    connect(m_content, &SetsContent::asked, this, &SetsView::performOnSet);
    connect(m_content, &SetsContent::newShootAsked, this, [this] { perform(SetsAction::newShoot); });
    connect(m_content, &SetsContent::newSetAsked, this, [this] { perform(SetsAction::newSet); });
    connect(m_content, &SetsContent::allSetsAsked, this, [this] {
        m_search->clear();
        focusScanField();
    });
    connect(m_search, &SearchField::textChanged, m_content, &SetsContent::setSearch);
    connect(m_search, &SearchField::resultsAsked, m_content, &SetsContent::focusList);
    connect(m_search, &SearchField::left, this, &SetsView::focusScanField);
    connect(m_sheets, &SetsSheets::closed, this, &SetsView::focusScanField);
    connect(m_sheets, &SetsSheets::told, this, &SetsView::tell);
    connect(m_sheets, &SetsSheets::setAdded, this, &SetsView::reveal);
    connect(m_backlog, &BacklogBar::isRunningChanged, this, &SetsView::showFacts);
    connect(m_backlog, &BacklogBar::told, this, &SetsView::focusScanField);
    connect(m_scan, &ScanBar::notUnderstood, this, [this] {
        tell({tr("Geen set herkend: de tekst heeft geen regel SET: of BRAND:."), Role::warning});
    });
}

void SetsView::followStore()
{
    const ShootManager& shoots = m_services.shoots;
    const FolderWatcher& watcher = m_services.watcher;
    for (const auto changed : {&ShootManager::shootsChanged, &ShootManager::activeShootIdChanged,
                               &ShootManager::activeSetIdChanged})
        connect(&shoots, changed, this, &SetsView::showShoot);
    for (const auto changed : {&FolderWatcher::watchPathChanged, &FolderWatcher::folderMissingChanged})
        connect(&watcher, changed, this, &SetsView::showFacts);
    connect(&watcher, &FolderWatcher::justActivatedHeadlineChanged, m_notice, [this, &watcher] {
        if (watcher.justActivatedHeadline())
            m_notice->clear();
    });
}

void SetsView::showShoot()
{
    const std::optional<Shoot> shoot = m_services.shoots.activeShoot();
    const std::optional<QUuid> id = shoot ? std::optional(shoot->id) : std::nullopt;
    if (std::exchange(m_shownShoot, id) != id)
        m_search->clear();
    m_content->showShoot(shoot, m_services.shoots.activeSetId());
    m_setBar->showShoot(shoot);
    showFacts();
}

void SetsView::showFacts()
{
    const std::optional<Shoot> shoot = m_services.shoots.activeShoot();
    const QString folder = shoot ? shoot->watchFolderPath.value_or(QString()) : QString();
    const FolderWatcher& watcher = m_services.watcher;
    m_buttons->setFacts({.hasShoot = shoot.has_value(),
                         .hasFolder = !folder.isEmpty(),
                         .folderMissing = watcher.folderMissing() && watcher.watchPath() == folder,
                         .isProcessing = m_backlog->isRunning()});
}

void SetsView::reveal(QUuid setId)
{
    if (!m_content->shows(setId))
        m_search->clear();
    m_content->select(setId);
}

void SetsView::tell(const Notice& notice)
{
    m_notice->showNotice(notice.text, notice.role);
}

void SetsView::perform(SetsAction action)
{
    const QString reason = SetsActionTexts::reasonAgainst(action, m_buttons->facts());
    if (!reason.isEmpty())
        return tell({reason, Role::warning});
    switch (action) {
        case SetsAction::newShoot:
            return m_sheets->newShoot();
        case SetsAction::deleteShoot:
            return m_sheets->deleteShoot();
        case SetsAction::clients:
            return m_sheets->clients();
        case SetsAction::importCsv:
            return m_sheets->import();
        case SetsAction::exportCsv:
            return exportAs(ShootExport::csv);
        case SetsAction::exportJson:
            return exportAs(ShootExport::json);
        case SetsAction::qrGenerator:
            return qrGeneratorAsked();
        case SetsAction::bulkExport:
            return m_sheets->bulkExport();
        case SetsAction::catalog:
            return m_sheets->catalog();
        case SetsAction::processExisting:
            return processExisting();
        case SetsAction::newSet:
            return m_sheets->newSet();
        case SetsAction::openShootFile:
            return openShootFile();
        case SetsAction::saveShootFile:
            return exportAs(ShootExport::shootFile);
    }
}

void SetsView::performOnSet(SetRowAction action, QUuid setId)
{
    switch (action) {
        case SetRowAction::activate:
            return activateSet(m_services.shoots, m_services.watcher, setId);
        case SetRowAction::showQR:
            return m_sheets->showQR(setId);
        case SetRowAction::edit:
            return m_sheets->editSet(setId);
        case SetRowAction::remove:
            return m_sheets->deleteSet(setId);
    }
}

void SetsView::exportAs(ShootExport kind)
{
    if (const std::optional<Notice> notice = exportShoot(m_services, kind, window()))
        tell(*notice);
    focusScanField();
}

void SetsView::openShootFile()
{
    const QString path = m_services.dialogs.openFile(window(), tr("Shoot openen"), tr("Shoots (*.morvak)"));
    if (!path.isEmpty())
        morvak::openShootFile(m_services, path, window());
    focusScanField();
}

void SetsView::processExisting()
{
    if (!m_backlog->start())
        tell({tr("De watch folder van deze shoot kan niet gelezen worden."), Role::warning});
    focusScanField();  // not "Stop", which comes next
}

void SetsView::takeDrop(const QStringList& csvFiles)
{
    const QString reason = SetsActionTexts::reasonAgainst(SetsAction::importCsv, m_buttons->facts());
    if (!reason.isEmpty())
        tell({reason, Role::warning});
    else if (csvFiles.size() > 1)
        tell({tr("Sleep één CSV-bestand tegelijk hierheen."), Role::warning});
    else
        m_sheets->import(csvFiles.constFirst());
}

void SetsView::focusScanField()
{
    m_scan->focusField();
}

void SetsView::focusSearch()
{
    m_search->focusField();
}

void SetsView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!std::exchange(m_wasShown, true))
        m_services.catalog.load();
}

void SetsView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const bool isLow = height() < lowTab;
    m_fields->setDirection(isLow ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    m_content->setLow(isLow);
}

/// Shoot files are taken wherever they are dropped on the window.
void SetsView::dragEnterEvent(QDragEnterEvent* event)
{
    if (shootFilesIn(*event->mimeData()).isEmpty() && !csvFilesIn(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
    else
        event->ignore();
}

void SetsView::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    QMetaObject::invokeMethod(
        this, [this, files = csvFilesIn(*event->mimeData())] { takeDrop(files); }, Qt::QueuedConnection);
}

}  // namespace morvak
