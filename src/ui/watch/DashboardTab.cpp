#include "ui/watch/DashboardTab.h"

#include "ui/base/blocks/DroppedFolder.h"
#include "ui/base/theme/Metrics.h"
#include "ui/watch/ActiveSetBox.h"
#include "ui/watch/LastTaggedBox.h"
#include "ui/watch/WatchFolderBox.h"

#include <QDropEvent>
#include <QMimeData>
#include <QVBoxLayout>

namespace morvak {

DashboardTab::DashboardTab(UiServices& services, QWidget* parent)
    : QScrollArea(parent), m_folder(new WatchFolderBox(services))
{
    setAccessibleName(tr("Watch Folder"));
    auto* const column = new QWidget;
    column->setMaximumWidth(metrics::readableWidth);
    auto* const boxes = new QVBoxLayout(column);
    boxes->setContentsMargins(0, 0, 0, 0);
    boxes->setSpacing(metrics::betweenGroups);
    boxes->addWidget(m_folder);
    boxes->addWidget(new ActiveSetBox(services));
    boxes->addWidget(new LastTaggedBox(services));
    boxes->addStretch(1);

    auto* const content = new QWidget;
    auto* const centring = new QHBoxLayout(content);
    centring->setContentsMargins(metrics::windowMargin, metrics::windowMargin, metrics::windowMargin,
                                 metrics::windowMargin);
    centring->addStretch(1);
    centring->addWidget(column, 1000);
    centring->addStretch(1);

    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAcceptDrops(true);
    connect(m_folder, &WatchFolderBox::newShootAsked, this, &DashboardTab::newShootAsked);
}

void DashboardTab::dragEnterEvent(QDragEnterEvent* event)
{
    event->setAccepted(droppedFolder(*event->mimeData()).has_value());
}

void DashboardTab::dragMoveEvent(QDragMoveEvent* event)
{
    event->accept();  // what enters here is a folder
}

void DashboardTab::dropEvent(QDropEvent* event)
{
    if (const std::optional<QString> folder = droppedFolder(*event->mimeData())) {
        event->acceptProposedAction();
        m_folder->watch(*folder);
    }
}

}  // namespace morvak
