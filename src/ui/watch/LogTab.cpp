#include "ui/watch/LogTab.h"

#include "ui/base/UiServices.h"
#include "ui/base/blocks/Buttons.h"
#include "ui/base/blocks/EmptyState.h"
#include "ui/base/blocks/SymbolLabel.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "ui/watch/LogList.h"
#include "ui/watch/LogModel.h"
#include "watch/FolderWatcher.h"

#include <QLabel>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace morvak {

LogTab::LogTab(UiServices& services, QWidget* parent)
    : QWidget(parent),
      m_model(new LogModel(services.watcher, this)),
      m_clear(makeButton(tr("Wis log"))),
      m_content(new QStackedLayout)
{
    const QString symbol = u"list.bullet.rectangle"_s;
    auto* const list = new LogList(services.theme, *m_model);
    list->setObjectName(u"logList"_s);
    m_clear->setObjectName(u"clearLog"_s);
    m_clear->setFont(services.theme.font(TextStyle::caption));
    connect(m_clear, &QPushButton::clicked, &services.watcher, &FolderWatcher::clearLog);

    auto* const header = new QHBoxLayout;
    header->setSpacing(metrics::inGroup);
    header->addWidget(new SymbolLabel(services.theme, symbol, metrics::smallIcon));
    header->addWidget(makeText(tr("Activiteitenlog"), TextStyle::section), 1);
    header->addWidget(m_clear);

    m_content->addWidget(
        new EmptyState(services.theme, symbol, tr("Nog geen activiteit"),
                       tr("Zodra Morvak een map volgt, staat hier wat er met elke foto gebeurt.")));
    m_content->addWidget(list);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(metrics::windowMargin, metrics::windowMargin, metrics::windowMargin,
                               metrics::windowMargin);
    column->setSpacing(metrics::inGroup);
    column->addLayout(header);
    column->addLayout(m_content, 1);

    connect(m_model, &LogModel::rowsInserted, this, &LogTab::showContent);
    connect(m_model, &LogModel::rowsRemoved, this, &LogTab::showContent);
    showContent();
}

void LogTab::showContent()
{
    const bool filled = m_model->rowCount() > 0;
    m_content->setCurrentIndex(filled ? 1 : 0);
    m_clear->setEnabled(filled);
}

}  // namespace morvak
