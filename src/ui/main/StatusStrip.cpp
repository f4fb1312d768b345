#include "ui/main/StatusStrip.h"

#include "catalog/ProductCatalog.h"
#include "store/ShootManager.h"
#include "ui/base/UiServices.h"
#include "ui/base/blocks/ElidedLabel.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "ui/watch/LogText.h"
#include "watch/FolderWatcher.h"

#include <QHBoxLayout>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

/// Dressing a label is dear, and photos come by the dozen.
void wear(QLabel& label, TextStyle style, Role role)
{
    constexpr auto worn = "stripRole";
    const QVariant wanted = static_cast<int>(role);
    if (label.property(worn) == wanted)
        return;
    label.setProperty(worn, wanted);
    setTextLook(label, style, role);
}

}  // namespace

StatusStrip::StatusStrip(UiServices& services, QWidget* parent)
    : QFrame(parent),
      m_services(services),
      m_watching(makeText({}, TextStyle::section)),
      m_set(new ElidedLabel),
      m_failure(new ElidedLabel),
      m_difference(makeText({}, TextStyle::body, Role::warning, true)),
      m_unsaved(makeText({}, TextStyle::section, Role::danger, true)),
      m_refresh([this] { showState(); })
{
    setObjectName(QStringLiteral("statusStrip"));
    m_watching->setObjectName(QStringLiteral("watchingState"));
    m_set->setObjectName(QStringLiteral("taggingSet"));
    m_failure->setObjectName(QStringLiteral("lastFailure"));
    m_difference->setObjectName(QStringLiteral("setDifference"));
    m_unsaved->setObjectName(QStringLiteral("unsaved"));

    m_failure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::betweenGroups);
    row->addWidget(m_watching);
    row->addWidget(m_set, 3);
    row->addWidget(m_failure, 2);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(metrics::inGroup / 2);
    column->addLayout(row);
    column->addWidget(m_difference);
    column->addWidget(m_unsaved);

    observe();
    showState();
}

void StatusStrip::observe()
{
    const auto refresh = [this] { m_refresh.ask(); };
    const FolderWatcher& watcher = m_services.watcher;
    for (const auto changed :
         {&FolderWatcher::isWatchingChanged, &FolderWatcher::folderMissingChanged,
          &FolderWatcher::watchPathChanged, &FolderWatcher::currentSetChanged, &FolderWatcher::logChanged})
        connect(&watcher, changed, this, refresh);
    const ShootManager& shoots = m_services.shoots;
    for (const auto changed : {&ShootManager::shootsChanged, &ShootManager::activeShootIdChanged,
                               &ShootManager::activeSetIdChanged})
        connect(&shoots, changed, this, refresh);
    for (const StoreSaver* saver : {&shoots.saver(), &m_services.catalog.saver()})
        connect(saver, &StoreSaver::problemChanged, this, refresh);
}

HeaderFacts StatusStrip::facts() const
{
    const FolderWatcher& watcher = m_services.watcher;
    const ShootManager& shoots = m_services.shoots;
    return {.watching = watchState(watcher.watchPath(), watcher.isWatching(), watcher.folderMissing()),
            .tagging = taggedNow({.taggingSet = watcher.currentSet(),
                                  .shoots = shoots.shoots(),
                                  .activeShootId = shoots.activeShootId(),
                                  .activeSetId = shoots.activeSetId()}),
            .lastFailure = newestFailure(watcher.log()),
            .shootsProblem = shoots.saver().problem(),
            .catalogProblem = m_services.catalog.saver().problem()};
}

void StatusStrip::showState()
{
    const HeaderState state = HeaderText::of(facts());
    m_watching->setText((state.isWatching ? u"● "_s : u"○ "_s) + state.watching);
    m_watching->setAccessibleName(state.watching);
    m_set->setText(state.set);
    m_failure->setText(state.failure);
    m_difference->setText(state.difference);
    wear(*m_watching, TextStyle::section, state.isWatching ? Role::success : Role::warning);
    wear(*m_set, TextStyle::title, state.hasSet ? Role::text : Role::secondary);
    wear(*m_failure, TextStyle::body, state.failureRole);
    m_difference->setVisible(!state.difference.isEmpty());
    m_unsaved->setText(state.unsaved);
    m_unsaved->setVisible(!state.unsaved.isEmpty());
}

}  // namespace morvak
