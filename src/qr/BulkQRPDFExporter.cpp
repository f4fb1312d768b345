#include "qr/BulkQRPDFExporter.h"

#include "platform/Diagnostics.h"
#include "platform/OutputFile.h"
#include "qr/CairoHandles.h"
#include "qr/CardLayout.h"
#include "qr/CardPainter.h"

#include <cairo-pdf.h>

namespace morvak {

namespace {

cairo_status_t writePart(void* file, const unsigned char* bytes, unsigned length)
{
    const bool written = static_cast<OutputFile*>(file)->write(QByteArrayView(bytes, qsizetype(length)));
    return written ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

CairoSurface pdfInto(OutputFile& file)
{
    CairoSurface surface(
        cairo_pdf_surface_create_for_stream(writePart, &file, cardPage.width(), cardPage.height()));
    cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATE_DATE, "");  // else: now
    return surface;
}

/// Stops at the first page that cannot be written.
void drawPages(cairo_t* context, const QList<SetData>& sets, BulkQRDensity density)
{
    CardPainter painter(context, density);
    const int perPage = measuresOf(density).perPage();
    int onPage = 0;
    for (qsizetype i = 0; i < sets.size() && cairo_status(context) == CAIRO_STATUS_SUCCESS; ++i) {
        if (onPage == 0)
            painter.drawCutLines();
        painter.drawCard(sets.at(i), cardCell(density, onPage));
        if (++onPage == perPage || i + 1 == sets.size()) {
            cairo_show_page(context);
            onPage = 0;
        }
    }
}

}  // namespace

bool BulkQRPDFExporter::exportPDF(const QList<SetData>& sets, BulkQRDensity density, const QString& to)
{
    if (sets.isEmpty())
        return false;
    OutputFile file(to);
    if (!file.intact())
        return false;
    const CairoSurface surface = pdfInto(file);
    drawPages(CairoContext(cairo_create(surface.get())).get(), sets, density);
    cairo_surface_finish(surface.get());
    const cairo_status_t status = cairo_surface_status(surface.get());
    if (status == CAIRO_STATUS_SUCCESS)
        return file.commit();
    if (file.intact())
        diagnostic(QStringLiteral("⚠️ %1 is niet geschreven: %2")
                       .arg(to, QString::fromUtf8(cairo_status_to_string(status))));
    return false;
}

}  // namespace morvak
