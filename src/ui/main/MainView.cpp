#include "ui/main/MainView.h"

#include "ui/base/UiServices.h"
#include "ui/base/blocks/SegmentedSwitch.h"
#include "ui/base/blocks/SetActivatedBanner.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "ui/main/HeaderBar.h"
#include "ui/main/StatusStrip.h"
#include "ui/manual/ManualView.h"
#include "ui/rename/RenameView.h"
#include "ui/scan/ScanBar.h"
#include "ui/scan/ScanWatch.h"
#include "ui/sets/SetsView.h"
#include "ui/shoots/ShootFiles.h"
#include "ui/watch/DashboardTab.h"
#include "ui/watch/LogTab.h"
#include "watch/FolderWatcher.h"

#include <QCloseEvent>
#include <QMimeData>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <utility>

namespace morvak {

namespace {

constexpr QSize smallest(700, 500);
constexpr QSize preferred(1000, 700);

}  // namespace

MainView::MainView(UiServices& services, QWidget* parent)
    : QWidget(parent),
      m_services(services),
      m_content(new QStackedWidget),
      m_sets(new SetsView(services)),
      m_banner(new SetActivatedBanner(services.theme, m_content))
{
    setObjectName(QStringLiteral("main"));
    setWindowTitle(QStringLiteral("Morvak"));
    setMinimumSize(smallest);
    resize(preferred);
    setAcceptDrops(true);
    makeTabs();

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(metrics::windowMargin, metrics::windowMargin, metrics::windowMargin,
                               metrics::windowMargin);
    column->setSpacing(metrics::inGroup);
    column->addWidget(new HeaderBar(services));
    column->addWidget(new StatusStrip(services));
    column->addSpacing(metrics::inGroup);
    column->addWidget(m_switch);
    column->addSpacing(metrics::inGroup);
    column->addWidget(m_content, 1);
    makeShortcuts();
    m_scans = std::make_unique<ScanWatch>(*this, m_sets->scanBar().field());
    connect(m_scans.get(), &ScanWatch::scanned, &m_sets->scanBar(), &ScanBar::takeScanned);

    connect(&services.watcher, &FolderWatcher::justActivatedHeadlineChanged, this, &MainView::showBanner);
    showBanner();
}

MainView::~MainView() = default;

void MainView::makeTabs()
{
    auto* const dashboard = new DashboardTab(m_services);
    connect(dashboard, &DashboardTab::newShootAsked, m_sets,
            [this] { m_sets->perform(SetsAction::newShoot); });
    connect(m_sets, &SetsView::qrGeneratorAsked, this, &MainView::qrGeneratorAsked);

    const std::pair<QString, QWidget*> tabs[]{{tr("Sets"), m_sets},
                                              {tr("Watch Folder"), dashboard},
                                              {tr("Hernoemen"), new RenameView(m_services)},
                                              {tr("Log"), new LogTab(m_services)},
                                              {tr("Handleiding"), new ManualView(m_services.theme)}};
    QStringList titles;
    for (const auto& [title, tab] : tabs) {
        titles.append(title);
        m_content->addWidget(tab);
    }
    m_switch = new SegmentedSwitch(tr("Tabbladen"), titles);
    m_switch->setObjectName(QStringLiteral("tabSwitch"));
    connect(m_switch, &SegmentedSwitch::currentIndexChanged, this, &MainView::showTab);
}

void MainView::makeShortcuts()
{
    const auto on = [this](const QKeySequence& keys, auto&& action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    for (int tab = 0; tab < m_content->count(); ++tab) {
        const QKeySequence keys(Qt::CTRL | Qt::Key(Qt::Key_1 + tab));
        on(keys, [this, tab] { setSelectedTab(tab); });
        m_switch->setSegmentToolTip(tab, keys.toString(QKeySequence::NativeText));
    }
    on(Qt::CTRL | Qt::Key_Q, [this] { Q_EMIT quitAsked(); });
    for (const SetsAction action :
         {SetsAction::newShoot, SetsAction::newSet, SetsAction::openShootFile, SetsAction::saveShootFile}) {
        on(SetsActionTexts::keys(action), [this, action] {
            setSelectedTab(0);
            m_sets->perform(action);
        });
    }
    on(Qt::CTRL | Qt::Key_F, [this] {
        setSelectedTab(0);
        m_sets->focusSearch();
    });
    on(Qt::CTRL | Qt::Key_L, [this] {
        setSelectedTab(0);
        m_sets->focusScanField();
    });
}

QStringList MainView::tabTitles() const
{
    return m_switch->segments();
}

int MainView::selectedTab() const
{
    return m_switch->currentIndex();
}

void MainView::setSelectedTab(int index)
{
    m_switch->setCurrentIndex(index);
}

void MainView::showTab(int index)
{
    m_content->setCurrentIndex(index);
    m_banner->raise();
    if (index == 0)
        m_sets->focusScanField();
}

void MainView::showBanner()
{
    m_banner->setHeadline(m_services.watcher.justActivatedHeadline());
}

void MainView::openShootFile(const QString& path)
{
    setSelectedTab(0);
    morvak::openShootFile(m_services, path, this);
}

void MainView::bringToFront()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

bool MainView::event(QEvent* event)
{
    // A sheet has closed.
    if (event->type() == QEvent::WindowUnblocked && selectedTab() == 0)
        QMetaObject::invokeMethod(m_sets, &SetsView::focusScanField, Qt::QueuedConnection);
    return QWidget::event(event);
}

void MainView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (std::exchange(m_wasShown, true))
        return;
    m_sets->focusScanField();
    Q_EMIT firstShown();
}

void MainView::closeEvent(QCloseEvent* event)
{
    event->accept();
    // Hidden only after this event; who hears of it sees the window gone.
    QMetaObject::invokeMethod(this, &MainView::closed, Qt::QueuedConnection);
}

void MainView::dragEnterEvent(QDragEnterEvent* event)
{
    if (!shootFilesIn(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainView::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    // Whoever dropped them is let go before a file is complained about.
    for (const QString& file : shootFilesIn(*event->mimeData()))
        QMetaObject::invokeMethod(
            this, [this, file] { openShootFile(file); }, Qt::QueuedConnection);
}

}  // namespace morvak
