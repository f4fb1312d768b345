#pragma once

#include "model/SetData.h"
#include "platform/MainThread.h"
#include "qr/BulkQRDensity.h"

#include <QObject>

namespace morvak {

/// One card PDF after another for a screen to start and observe. The writing itself goes on the global thread
/// pool; everything here is for the main thread.
///
/// When it is destroyed, or the application quits, a PDF that is under way is still written whole, and
/// nothing more is announced.
class CardExportTask final : public QObject {
    Q_OBJECT

public:
    explicit CardExportTask(QObject* parent = nullptr) : QObject(parent) {}
    ~CardExportTask() override;

    [[nodiscard]] bool isRunning() const { return m_isRunning; }

    /// As `BulkQRPDFExporter::exportPDF`. False, and nothing happens, while a PDF is under way.
    bool start(const QList<SetData>& sets, BulkQRDensity density, const QString& to);

Q_SIGNALS:
    void isRunningChanged();
    /// Once for each start; `written` is false when there is no new file.
    void finished(bool written);

private:
    void end(bool written);

    MainThread m_mainThread;
    bool m_isRunning = false;
};

}  // namespace morvak
