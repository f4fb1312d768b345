#include "qr/CardPainter.h"

#include "qr/CardLayout.h"
#include "qr/QRSymbol.h"

#include <QImage>
#include <QSysInfo>

#include <pango/pangocairo.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace morvak {

namespace {

/// How cairo packs bits.
constexpr auto cairoBits =
    QSysInfo::ByteOrder == QSysInfo::LittleEndian ? QImage::Format_MonoLSB : QImage::Format_Mono;

/// Measures text as it is printed: one unit a point, nothing rounded to pixels, the same for every user.
GObjectPointer<PangoContext> printContext()
{
    const GObjectPointer<PangoFontMap> fonts(pango_cairo_font_map_new());
    GObjectPointer<PangoContext> context(pango_font_map_create_context(fonts.get()));
    const CairoFontOptions options(cairo_font_options_create());
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context.get(), options.get());
    pango_cairo_context_set_resolution(context.get(), 72);
    pango_context_set_round_glyph_positions(context.get(), FALSE);
    pango_context_set_language(context.get(), pango_language_from_string("nl"));
    return context;
}

GObjectPointer<PangoLayout> layoutFor(PangoContext* context, double points, PangoWeight weight)
{
    const std::unique_ptr<PangoFontDescription, Release<pango_font_description_free>> font(
        pango_font_description_new());
    pango_font_description_set_family_static(font.get(), "Lato,sans-serif");
    pango_font_description_set_weight(font.get(), weight);
    pango_font_description_set_size(font.get(), pango_units_from_double(points));
    GObjectPointer<PangoLayout> layout(pango_layout_new(context));
    pango_layout_set_font_description(layout.get(), font.get());
    return layout;
}

/// The symbol without its quiet zone in pixels of the same number for every module: ink where it is dark.
QImage bitmapOf(const qrcodegen::QrCode& symbol)
{
    constexpr int fewestPixels = 600;
    const int modules = symbol.getSize();
    const int perModule = (fewestPixels + modules - 1) / modules;
    QImage bitmap(modules * perModule, modules * perModule, cairoBits);
    bitmap.fill(0);
    for (int y = 0; y < bitmap.height(); ++y) {
        if (y % perModule > 0) {
            std::memcpy(bitmap.scanLine(y), bitmap.constScanLine(y - 1), std::size_t(bitmap.bytesPerLine()));
            continue;
        }
        for (int x = 0; x < bitmap.width(); ++x)
            if (symbol.getModule(x / perModule, y / perModule))
                bitmap.setPixel(x, y, 1);
    }
    return bitmap;
}

void drawSymbol(cairo_t* context, const qrcodegen::QrCode& symbol, const QRectF& code, double clearBelow)
{
    const double side = symbolSide(symbol.getSize(), code.width(), clearBelow);
    QImage bitmap = bitmapOf(symbol);
    const CairoSurface ink(cairo_image_surface_create_for_data(bitmap.bits(), CAIRO_FORMAT_A1, bitmap.width(),
                                                               bitmap.height(), int(bitmap.bytesPerLine())));
    const CairoPattern pattern(cairo_pattern_create_for_surface(ink.get()));
    cairo_pattern_set_filter(pattern.get(), CAIRO_FILTER_NEAREST);
    cairo_save(context);
    cairo_translate(context, code.center().x() - side / 2, code.center().y() - side / 2);
    cairo_scale(context, side / bitmap.width(), side / bitmap.height());
    cairo_mask(context, pattern.get());
    cairo_restore(context);
}

}  // namespace

CardPainter::CardPainter(cairo_t* context, BulkQRDensity density) : m_context(context), m_density(density)
{
    const GObjectPointer<PangoContext> text = printContext();
    const CardMeasures& measures = measuresOf(density);
    m_headline = layoutFor(text.get(), measures.headlineSize, PANGO_WEIGHT_BOLD);
    m_text = layoutFor(text.get(), measures.textSize, PANGO_WEIGHT_NORMAL);
}

void CardPainter::drawCutLines()
{
    constexpr std::array onAndOff{3.0, 3.0};
    cairo_save(m_context);
    cairo_set_source_rgba(m_context, 0.5, 0.5, 0.5, 0.4);
    cairo_set_line_width(m_context, 0.5);
    cairo_set_dash(m_context, onAndOff.data(), int(onAndOff.size()), 0);
    for (const QLineF& line : cutLines(m_density)) {
        cairo_move_to(m_context, line.x1(), line.y1());
        cairo_line_to(m_context, line.x2(), line.y2());
    }
    cairo_stroke(m_context);
    cairo_restore(m_context);
}

void CardPainter::drawCard(const SetData& set, const QRectF& in)
{
    const auto symbol = encodeSymbol(set.toQRText());
    if (!symbol) {
        reportNoSymbol(set);
        return;
    }
    const QList<CardLine> lines = cardLines(set, m_density);
    const CardLayout layout = layOutCard(in, m_density, lines);
    double inkTop = in.bottom();
    cairo_save(m_context);
    // Stacked accents of any height stay off the code and the neighbours.
    cairo_rectangle(m_context, layout.text.x(), layout.text.y(), layout.text.width(), layout.text.height());
    cairo_clip(m_context);
    for (qsizetype i = 0; i < lines.size(); ++i)
        inkTop = std::min(inkTop, drawLine(lines.at(i), in, layout.baselines.at(i)));
    cairo_restore(m_context);
    const double clearBelow = std::max(inkTop, layout.text.top()) - layout.code.bottom();
    drawSymbol(m_context, *symbol, layout.code, clearBelow);
}

double CardPainter::drawLine(const CardLine& line, const QRectF& cell, double baseline)
{
    PangoLayout* layout = line.headline ? m_headline.get() : m_text.get();
    const QByteArray text = line.text.toUtf8();
    pango_layout_set_text(layout, text.constData(), int(text.size()));
    PangoLayoutLine* shaped = pango_layout_get_line_readonly(layout, 0);
    PangoRectangle ink;
    pango_layout_line_get_extents(shaped, &ink, nullptr);
    const LinePlacement placement =
        placeLine(cell, pango_units_to_double(ink.x), pango_units_to_double(ink.width));
    cairo_save(m_context);
    cairo_translate(m_context, placement.origin, baseline);
    // Pango is not told: shaped for a narrower scale it would keep the advances of the full width.
    cairo_scale(m_context, placement.widthScale, 1);
    pango_cairo_show_layout_line(m_context, shaped);
    cairo_restore(m_context);
    return baseline + pango_units_to_double(ink.y);
}

}  // namespace morvak
