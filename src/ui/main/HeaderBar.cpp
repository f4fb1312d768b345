#include "ui/main/HeaderBar.h"

#include "store/ShootManager.h"
#include "ui/base/UiServices.h"
#include "ui/base/blocks/ElidedLabel.h"
#include "ui/base/blocks/StatBadge.h"
#include "ui/base/blocks/SymbolLabel.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "ui/main/UpdateNotice.h"
#include "watch/FolderWatcher.h"

#include <QHBoxLayout>
#include <QLabel>

namespace morvak {

namespace {

QLayout* nameAndVersion(const QString& version)
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::inGroup);
    row->addWidget(makeText(QStringLiteral("Morvak"), TextStyle::title), 0, Qt::AlignBaseline);
    auto* const number = makeText(u'v' + version, TextStyle::caption, Role::secondary);
    number->setObjectName(QStringLiteral("version"));
    row->addWidget(number, 0, Qt::AlignBaseline);
    row->addStretch();
    return row;
}

}  // namespace

HeaderBar::HeaderBar(UiServices& services, QWidget* parent)
    : QWidget(parent),
      m_services(services),
      m_sets(new StatBadge(tr("Sets"), Role::info)),
      m_tagged(new StatBadge(tr("Getagd"), Role::success))
{
    m_sets->setObjectName(QStringLiteral("setsBadge"));
    m_tagged->setObjectName(QStringLiteral("taggedBadge"));
    auto* const subtitle = new ElidedLabel(QStringLiteral("Every photo tagged with the outfit it shows"));
    setTextLook(*subtitle, TextStyle::caption, Role::secondary);

    auto* const names = new QVBoxLayout;
    names->setSpacing(0);
    names->addLayout(nameAndVersion(services.version));
    names->addWidget(subtitle);

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::betweenGroups);
    row->addWidget(new SymbolLabel(Icons::logo(), 40));
    row->addLayout(names, 1);
    row->addWidget(new UpdateNotice(services));
    row->addWidget(m_sets);
    row->addWidget(m_tagged);

    connect(&services.shoots, &ShootManager::shootsChanged, this, &HeaderBar::showSets);
    connect(&services.shoots, &ShootManager::activeShootIdChanged, this, &HeaderBar::showSets);
    connect(&services.watcher, &FolderWatcher::taggedCountChanged, this, &HeaderBar::showTagged);
    showSets();
    showTagged();
}

void HeaderBar::showSets()
{
    const std::optional<Shoot> shoot = m_services.shoots.activeShoot();
    m_sets->setValue(QString::number(shoot ? shoot->sets.size() : 0));
}

void HeaderBar::showTagged()
{
    m_tagged->setValue(QString::number(m_services.watcher.taggedCount()));
}

}  // namespace morvak
