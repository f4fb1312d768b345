#include "ui/shoots/BacklogBar.h"

#include "actions/SetTexts.h"
#include "platform/FolderHandle.h"
#include "store/ShootManager.h"
#include "ui/base/Dialogs.h"
#include "ui/base/UiServices.h"
#include "ui/base/blocks/TaskProgress.h"
#include "watch/FolderWatcher.h"

#include <QApplication>
#include <QPointer>
#include <QVBoxLayout>

#include <utility>

namespace morvak {

BacklogBar::BacklogBar(UiServices& services, QWidget* parent)
    : QWidget(parent), m_services(services), m_progress(new TaskProgress(tr("Bestaande bestanden verwerken")))
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_progress);
    connect(m_progress, &TaskProgress::giveUpAsked, this, [this] { m_run->giveUp(); });
}

BacklogBar::~BacklogBar() = default;

bool BacklogBar::start()
{
    const std::optional<Shoot> shoot = m_services.shoots.activeShoot();
    const QString folder = shoot ? shoot->watchFolderPath.value_or(QString()) : QString();
    if (m_run || folder.isEmpty() || !FolderHandle(folder).problem().isEmpty())
        return false;
    m_progress->begin();
    m_run = m_services.watcher.processExistingFiles(
        folder, *shoot, [self = QPointer(this)](const BacklogScanSummary& summary) {
            if (self)
                self->finish(summary);
        });
    connect(m_run.get(), &BacklogRun::progressChanged, m_progress, [this, run = m_run.get()] {
        m_progress->setProgress(run->progress().done, run->progress().total);
    });
    Q_EMIT isRunningChanged();
    return true;
}

void BacklogBar::finish(const BacklogScanSummary& summary)
{
    m_run.reset();
    m_progress->end();
    m_result = SetTexts::backlogResult(summary);
    Q_EMIT isRunningChanged();
    qApp->installEventFilter(this);
    QMetaObject::invokeMethod(this, &BacklogBar::tell, Qt::QueuedConnection);
}

/// A sheet or a menu may have closed, or the window come back.
bool BacklogBar::eventFilter(QObject* watched, QEvent* event)
{
    if ((event->type() == QEvent::Hide || event->type() == QEvent::Show) && watched->isWidgetType())
        QMetaObject::invokeMethod(this, &BacklogBar::tell, Qt::QueuedConnection);
    return QWidget::eventFilter(watched, event);
}

void BacklogBar::tell()
{
    const bool isBusy = QApplication::activeModalWidget() || QApplication::activePopupWidget();
    if (!m_result || isBusy || !window()->isVisible())
        return;
    qApp->removeEventFilter(this);
    const QString result = *std::exchange(m_result, std::nullopt);
    m_services.dialogs.alert(window(), tr("Bestaande bestanden verwerkt"), result);
    Q_EMIT told();
}

}  // namespace morvak
