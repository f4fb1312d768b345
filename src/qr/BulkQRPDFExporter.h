#pragma once

#include "model/SetData.h"
#include "qr/BulkQRDensity.h"

#include <QList>
#include <QString>

namespace morvak {

/// Prints the cards of many sets into one PDF (ISO 32000) of A4 pages with lines to cut along. Stateless; any
/// thread.
class BulkQRPDFExporter {
public:
    /// Writes the cards of `sets`, in order, into the file `to`, which appears or is replaced in one step
    /// when it is complete. Named `exportPDF` because `export` is a keyword. The file says nothing of who
    /// made it but cairo's name. Pages are written as they are drawn: memory does not grow with their number.
    ///
    /// False when there are no sets or the file could not be written; then nothing has changed at `to`, and
    /// for the latter a diagnostic line tells.
    static bool exportPDF(const QList<SetData>& sets, BulkQRDensity density, const QString& to);
};

}  // namespace morvak
