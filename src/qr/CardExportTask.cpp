#include "qr/CardExportTask.h"

#include "qr/BulkQRPDFExporter.h"

#include <QThreadPool>

namespace morvak {

CardExportTask::~CardExportTask()
{
    m_mainThread.close();
}

bool CardExportTask::start(const QList<SetData>& sets, BulkQRDensity density, const QString& to)
{
    if (m_isRunning)
        return false;
    m_isRunning = true;
    Q_EMIT isRunningChanged();
    QThreadPool::globalInstance()->start([this, sets, density, to, main = m_mainThread] {
        const bool written = BulkQRPDFExporter::exportPDF(sets, density, to);
        main.post([this, written] { end(written); });  // the task may be gone by now
    });
    return true;
}

void CardExportTask::end(bool written)
{
    m_isRunning = false;
    Q_EMIT isRunningChanged();
    Q_EMIT finished(written);
}

}  // namespace morvak
