#include "ui/watch/WatchFolderBox.h"

#include "store/ShootManager.h"
#include "ui/base/Dialogs.h"
#include "ui/base/UiServices.h"
#include "ui/base/blocks/Buttons.h"
#include "ui/base/blocks/Card.h"
#include "ui/base/blocks/ElidedLabel.h"
#include "ui/base/blocks/PathField.h"
#include "ui/base/blocks/StatusDot.h"
#include "ui/base/blocks/SymbolLabel.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "ui/watch/LogText.h"
#include "ui/watch/WatchState.h"
#include "watch/FolderWatcher.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr int toggleIndent = 24;  // of the explanation, under the text of the toggle

QHBoxLayout* addRow(QVBoxLayout& box)
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::inGroup);
    box.addLayout(row);
    return row;
}

/// A row that comes and goes as a whole.
QHBoxLayout* rowOf(QWidget& widget)
{
    auto* const row = new QHBoxLayout(&widget);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::inGroup);
    return row;
}

}  // namespace

WatchFolderBox::WatchFolderBox(UiServices& services, QWidget* parent)
    : QWidget(parent),
      m_services(services),
      m_path(new PathField),
      m_dot(new StatusDot(services.theme)),
      m_status(makeText({}, TextStyle::body, Role::text, true)),
      m_resume(makeButton(tr("Hervat"), ButtonKind::primary)),
      m_failure(new QWidget),
      m_failureMarker(new SymbolLabel(services.theme, markerSymbol(LogType::error), metrics::smallIcon)),
      m_failureText(new ElidedLabel),
      m_shootHint(new QWidget),
      m_refresh([this] { refresh(); })
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* const card = new Card(services.theme, tr("Watch Folder"), u"folder"_s);
    column->addWidget(card);
    QVBoxLayout& box = *card->content();
    addFolderRow(box);
    addStatusRow(box);
    addFailureLine(box);
    addShootHint(box);
    addToggles(box);
    followWatcher();
    refresh();
}

void WatchFolderBox::addFolderRow(QVBoxLayout& box)
{
    m_path->setObjectName(u"watchPath"_s);
    m_path->setAccessibleName(tr("Gevolgde map"));
    QPushButton* const choose = makeButton(tr("Kies map..."));
    choose->setObjectName(u"chooseFolder"_s);
    connect(choose, &QPushButton::clicked, this, &WatchFolderBox::chooseFolder);
    QHBoxLayout* const row = addRow(box);
    row->addWidget(m_path, 1);
    row->addWidget(choose);
}

void WatchFolderBox::addStatusRow(QVBoxLayout& box)
{
    m_dot->setStateText(QString());
    m_status->setObjectName(u"watchStatus"_s);
    m_resume->setObjectName(u"resumeWatching"_s);
    m_resume->setAccessibleDescription(tr("Volgt de gekozen map weer"));
    connect(m_resume, &QPushButton::clicked, this, [this] { watch(m_services.watcher.watchPath()); });
    QHBoxLayout* const row = addRow(box);
    row->addWidget(m_dot);
    row->addWidget(m_status, 1);
    row->addWidget(m_resume);
}

void WatchFolderBox::addFailureLine(QVBoxLayout& box)
{
    m_failure->setObjectName(u"lastFailure"_s);
    setTextLook(*m_failureText, TextStyle::body, Role::secondary);
    QHBoxLayout* const row = rowOf(*m_failure);
    row->addWidget(m_failureMarker);
    row->addWidget(m_failureText, 1);
    box.addWidget(m_failure);
}

void WatchFolderBox::addShootHint(QVBoxLayout& box)
{
    m_shootHint->setObjectName(u"shootHint"_s);
    QPushButton* const newShoot = makeButton(tr("Nieuwe Shoot"));
    newShoot->setObjectName(u"newShoot"_s);
    connect(newShoot, &QPushButton::clicked, this, &WatchFolderBox::newShootAsked);
    QHBoxLayout* const row = rowOf(*m_shootHint);
    row->addWidget(
        new SymbolLabel(m_services.theme, markerSymbol(LogType::info), metrics::smallIcon, Role::info));
    row->addWidget(makeText(tr("Zonder shoot wordt de map niet onthouden en wordt geen set-kaart herkend."),
                            TextStyle::body, Role::text, true),
                   1);
    row->addWidget(newShoot);
    box.addWidget(m_shootHint);
}

QCheckBox* WatchFolderBox::addToggle(QVBoxLayout& box, const QString& label, const QString& explanation)
{
    auto* const toggle = new QCheckBox(label);
    toggle->setAccessibleDescription(explanation);
    QLabel* const text = makeText(explanation, TextStyle::caption, Role::secondary, true);
    text->setContentsMargins(toggleIndent, 0, 0, 0);
    box.addSpacing(metrics::inGroup);
    box.addWidget(toggle);
    box.addWidget(text);
    return toggle;
}

void WatchFolderBox::addToggles(QVBoxLayout& box)
{
    FolderWatcher& watcher = m_services.watcher;
    QCheckBox* const detect = addToggle(
        box, tr("QR-code herkennen in gefotografeerde set-kaart"),
        tr("Fotografeer een geprinte QR-set-kaart als eerste foto van een nieuwe set, Morvak herkent 'm "
           "automatisch en activeert de set."));
    detect->setObjectName(u"qrDetectionEnabled"_s);
    detect->setChecked(watcher.qrDetectionEnabled());
    connect(detect, &QCheckBox::toggled, &watcher, &FolderWatcher::setQrDetectionEnabled);
    connect(&watcher, &FolderWatcher::qrDetectionEnabledChanged, detect,
            [&watcher, detect] { detect->setChecked(watcher.qrDetectionEnabled()); });

    QCheckBox* const discard =
        addToggle(box, tr("QR-kaart verwijderen na herkenning"),
                  tr("De kaart-foto gaat dan naar de Prullenbak in plaats van als gewone foto bij de set te "
                     "blijven staan. "
                     "Uit = kaart blijft bewaard, bijvoorbeeld voor je eigen administratie."));
    discard->setObjectName(u"deleteQRCardAfterScan"_s);
    discard->setChecked(watcher.deleteQRCardAfterScan());
    connect(discard, &QCheckBox::toggled, &watcher, &FolderWatcher::setDeleteQRCardAfterScan);
    connect(&watcher, &FolderWatcher::deleteQRCardAfterScanChanged, discard,
            [&watcher, discard] { discard->setChecked(watcher.deleteQRCardAfterScan()); });
}

void WatchFolderBox::followWatcher()
{
    const FolderWatcher& watcher = m_services.watcher;
    for (const auto signal : {&FolderWatcher::watchPathChanged, &FolderWatcher::isWatchingChanged,
                              &FolderWatcher::folderMissingChanged, &FolderWatcher::logChanged})
        connect(&watcher, signal, &m_refresh, &CoalescedCall::ask);
    for (const auto signal : {&ShootManager::activeShootIdChanged, &ShootManager::shootsChanged})
        connect(&m_services.shoots, signal, &m_refresh, &CoalescedCall::ask);
}

void WatchFolderBox::chooseFolder()
{
    const QString folder =
        m_services.dialogs.chooseFolder(this, tr("Kies de Capture One import/tethered map"),
                                        tr("Selecteer map"), m_services.watcher.watchPath());
    if (!folder.isEmpty())
        watch(folder);
}

void WatchFolderBox::watch(const QString& path)
{
    if (m_services.startTool)
        m_services.startTool();
    m_services.watcher.startWatching(path);
    m_refused = m_services.watcher.folderMissing() ? QString() : path;
    refresh();
}

void WatchFolderBox::refresh()
{
    m_path->setPath(m_services.watcher.watchPath(), tr("Geen map geselecteerd"));
    showStatus();
    showFailure();
    m_shootHint->setVisible(!m_services.shoots.activeShoot());
}

void WatchFolderBox::showStatus()
{
    const FolderWatcher& watcher = m_services.watcher;
    if (watcher.isWatching())
        m_refused.clear();
    const WatchState state = watchState(watcher.watchPath(), watcher.isWatching(), watcher.folderMissing());
    m_dot->setActive(state == WatchState::watching);
    m_dot->setVisible(state != WatchState::noFolder);
    m_status->setText(statusText(state, watcher.watchPath() == m_refused));
    m_resume->setVisible(offersResume(state));
}

void WatchFolderBox::showFailure()
{
    const std::optional<LogEntry> failure = newestFailure(m_services.watcher.log());
    m_failure->setVisible(failure.has_value());
    if (!failure)
        return;
    m_failureMarker->setIcon(
        m_services.theme.icons().icon(markerSymbol(failure->type), markerRole(failure->type)));
    m_failureText->setText(clockTime(*failure) + u"  "_s + withoutSymbol(failure->message));
}

}  // namespace morvak
