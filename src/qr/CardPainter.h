#pragma once

#include "model/SetData.h"
#include "qr/BulkQRDensity.h"
#include "qr/CairoHandles.h"
#include "qr/CardText.h"

#include <QRectF>

#include <pango/pango.h>

namespace morvak {

/// Draws set cards onto the pages of one cairo document, in the units and directions of CardLayout.
///
/// A code is a bitmap whose modules are all of one size, never smoothed; lines are text that can be searched,
/// in Lato or, where that is missing or lacks a character, what the system has instead. One thread at a time.
class CardPainter {
public:
    /// `context` outlives the painter.
    CardPainter(cairo_t* context, BulkQRDensity density);

    void drawCutLines();

    /// One card, centred in the cell `in`. A set whose text has no code leaves its cell blank, and a
    /// diagnostic line tells.
    void drawCard(const SetData& set, const QRectF& in);

private:
    /// Gives the y of its ink's top.
    double drawLine(const CardLine& line, const QRectF& cell, double baseline);

    cairo_t* m_context;
    BulkQRDensity m_density;
    GObjectPointer<PangoLayout> m_headline;
    GObjectPointer<PangoLayout> m_text;
};

}  // namespace morvak
