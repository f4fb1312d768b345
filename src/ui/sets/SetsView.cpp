#include "ui/sets/SetsView.h"

#include "store/ShootManager.h"
#include "ui/Dialogs.h"
#include "ui/UiServices.h"
#include "ui/blocks/Buttons.h"
#include "ui/blocks/ElidedLabel.h"
#include "ui/blocks/EmptyState.h"
#include "ui/blocks/NoticeLine.h"
#include "ui/blocks/SymbolLabel.h"
#include "ui/blocks/TextLook.h"
#include "ui/blocks/WrapLayout.h"
#include "ui/sets/NewShootSheet.h"
#include "ui/sets/ScanBar.h"
#include "ui/sets/SetList.h"
#include "ui/sets/SetListModel.h"
#include "ui/sets/SetTexts.h"
#include "ui/sets/ShootFiles.h"
#include "ui/sets/ShootPicker.h"
#include "ui/theme/Metrics.h"
#include "ui/theme/Theme.h"
#include "watch/FolderWatcher.h"

#include <QLabel>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace morvak {

namespace {

constexpr int widestContent = 1200;

/// The parts of the tab's content, in the order of the stack.
enum Content { noShoot, noSets, listOfSets };

}  // namespace

SetsView::SetsView(UiServices& services, QWidget* parent)
    : QWidget(parent),
      m_services(services),
      m_folder(new ElidedLabel({}, nullptr, Qt::ElideMiddle)),
      m_statistics(makeText({}, TextStyle::body, Role::secondary)),
      m_scan(new ScanBar(services)),
      m_notice(new NoticeLine),
      m_model(new SetListModel(this)),
      m_content(new QStackedLayout),
      m_refresh([this] { showShoot(); })
{
    setObjectName(QStringLiteral("setsView"));
    auto* const inside = new QWidget;
    inside->setMaximumWidth(widestContent);
    auto* const centred = new QHBoxLayout(this);
    centred->setContentsMargins(0, 0, 0, 0);
    centred->addWidget(inside);

    auto* const column = new QVBoxLayout(inside);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(metrics::inGroup);
    addShootBar(*column);
    addFolderLine(*column);
    column->addWidget(m_scan);
    column->addWidget(m_notice);
    addList(*column);

    connect(m_scan, &ScanBar::notUnderstood, m_notice, [this] {
        m_notice->showNotice(tr("Geen set herkend: de tekst heeft geen regel SET: of BRAND:."),
                             Role::warning);
    });
    connect(&services.watcher, &FolderWatcher::justActivatedHeadlineChanged, m_notice, &NoticeLine::clear);
    connect(&services.shoots, &ShootManager::shootsChanged, this, [this] { m_refresh.ask(); });
    for (const auto changed : {&ShootManager::activeShootIdChanged, &ShootManager::activeSetIdChanged})
        connect(&services.shoots, changed, this, &SetsView::showShoot);
    showShoot();
}

void SetsView::addShootBar(QVBoxLayout& column)
{
    auto* const picker = new ShootPicker(m_services.shoots);
    auto* const choice = new QWidget;
    auto* const row = new QHBoxLayout(choice);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::inGroup);
    QLabel* const label = makeText(tr("Shoot"), TextStyle::body);
    label->setBuddy(picker);
    row->addWidget(label);
    row->addWidget(picker);

    QPushButton* const create = makeButton(tr("Nieuwe Shoot"));
    create->setObjectName(QStringLiteral("newShoot"));
    create->setToolTip(QStringLiteral("Ctrl+Shift+N"));
    QPushButton* const open = makeButton(tr("Open..."));
    open->setObjectName(QStringLiteral("openShootFile"));
    open->setToolTip(tr("Open een .morvak-bestand, bijv. een shoot voorbereid in Morvak Prep") +
                     QStringLiteral(" (Ctrl+O)"));
    auto* const bar = new WrapLayout;
    for (QWidget* const part : {choice, static_cast<QWidget*>(create), static_cast<QWidget*>(open)})
        bar->addWidget(part);
    column.addLayout(bar);
    connect(create, &QPushButton::clicked, this, &SetsView::makeShoot);
    connect(open, &QPushButton::clicked, this, &SetsView::chooseShootFile);
}

void SetsView::addFolderLine(QVBoxLayout& column)
{
    m_folder->setObjectName(QStringLiteral("watchFolderLine"));
    m_statistics->setObjectName(QStringLiteral("statistics"));
    setTextLook(*m_folder, TextStyle::body, Role::secondary);
    m_statistics->setFont(Theme::tabular(m_statistics->font()));
    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::inGroup);
    row->addWidget(
        new SymbolLabel(m_services.theme, QStringLiteral("folder"), metrics::smallIcon, Role::secondary));
    row->addWidget(m_folder, 1);
    row->addWidget(m_statistics);
    column.addLayout(row);
}

void SetsView::addList(QVBoxLayout& column)
{
    auto* const start = new EmptyState(
        m_services.theme, QStringLiteral("camera.fill"), tr("Maak een shoot aan om te beginnen"),
        tr("Zonder shoot worden set-kaarten niet herkend, en onthoudt Morvak geen map en geen sets."));
    QPushButton* const create = start->addButton(tr("Nieuwe Shoot"));
    create->setObjectName(QStringLiteral("firstShoot"));
    connect(create, &QPushButton::clicked, this, &SetsView::makeShoot);

    auto* const list = new SetList(m_services.theme);
    list->setObjectName(QStringLiteral("setList"));
    list->setModel(m_model);
    connect(list, &SetList::activationAsked, this, &SetsView::activate);

    m_content->addWidget(start);
    m_content->addWidget(new EmptyState(
        m_services.theme, QStringLiteral("qrcode"), tr("Nog geen sets in deze shoot"),
        tr("Scan of fotografeer een set-kaart, of plak de setdata hierboven: de set komt er vanzelf bij.")));
    m_content->addWidget(list);
    column.addLayout(m_content, 1);
}

void SetsView::showShoot()
{
    const std::optional<Shoot> shoot = m_services.shoots.activeShoot();
    m_model->setSets(shoot ? shoot->sets : QList<SetData>(), m_services.shoots.activeSetId());
    m_folder->setText(SetTexts::watchFolder(shoot));
    m_statistics->setText(shoot ? SetTexts::statistics(*shoot) : QString());
    const bool hasShoots = !m_services.shoots.shoots().isEmpty();
    const bool hasSets = shoot && !shoot->sets.isEmpty();
    m_content->setCurrentIndex(!hasShoots ? noShoot : hasSets ? listOfSets : noSets);
}

void SetsView::activate(QUuid setId)
{
    m_services.shoots.activateSet(setId);
    if (const std::optional<SetData> set = m_services.shoots.activeSet())
        m_services.watcher.setCurrentSet(set);
}

void SetsView::makeShoot()
{
    auto* const sheet = new NewShootSheet(m_services, window());
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &QDialog::accepted, this, [this, sheet] {
        const NewShoot entered = sheet->shoot();
        m_services.shoots.createShoot(entered.name, entered.location, entered.client);
    });
    connect(sheet, &QDialog::finished, this, &SetsView::focusScanField);
    sheet->open();
}

void SetsView::chooseShootFile()
{
    const QString path = m_services.dialogs.openFile(window(), tr("Shoot openen"), tr("Shoots (*.morvak)"));
    if (!path.isEmpty())
        openShootFile(m_services, path, window());
}

void SetsView::focusScanField()
{
    m_scan->focusField();
}

}  // namespace morvak
