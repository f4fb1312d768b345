#include "qr/SymbolReader.h"

#include "platform/Diagnostics.h"
#include "qr/FinderPatterns.h"

#include <QPointF>
#include <QStringDecoder>

#define ZX_USE_UTF8
#include <ZXing/ReadBarcode.h>

#include <cmath>
#include <exception>

namespace morvak {

namespace {

/// The library tries each three finder patterns together: a cloth printed with thousands took it minutes. A
/// sheet of nine cards has 27. Most tiny ones are grain, which costs the library less.
constexpr double mostFinders = 150;
constexpr double mostTinyFinders = 500;

/// Set cards hold UTF-8; the library guesses a character set from the bytes and guesses wrong on short texts.
QString textOf(const ZXing::Result& result)
{
    const ZXing::ByteArray& bytes = result.bytes();
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(QByteArrayView(bytes.data(), qsizetype(bytes.size())));
    return utf8.hasError() ? QString::fromStdString(result.text()) : text;
}

/// A symbol's centre in the frame of another one, in that one's sides: x along its lines of print, y down.
QPointF centreSeenFrom(const ZXing::Position& frame, const ZXing::Position& symbol)
{
    const auto point = [](const ZXing::PointI& p) { return QPointF(p.x, p.y); };
    const QPointF right = point(frame.topRight()) - point(frame.topLeft());
    const QPointF down = point(frame.bottomLeft()) - point(frame.topLeft());
    const QPointF centre = (point(symbol.topLeft()) + point(symbol.bottomRight())) / 2;
    return {QPointF::dotProduct(centre, right) / QPointF::dotProduct(right, right),
            QPointF::dotProduct(centre, down) / QPointF::dotProduct(down, down)};
}

/// The text of the first card in the reading order of the sheet, however the sheet lies.
std::optional<QString> firstText(const ZXing::Results& results)
{
    std::optional<QString> first;
    QPointF place;
    for (const ZXing::Result& result : results) {
        const bool sound = result.isValid() && result.format() == ZXing::BarcodeFormat::QRCode;
        const QString text = sound ? textOf(result) : QString();
        const QPointF here = centreSeenFrom(results.front().position(), result.position());
        const bool nextRow = std::abs(here.y() - place.y()) > 0.5;
        const bool before = nextRow ? here.y() < place.y() : here.x() < place.x();
        if (!text.isEmpty() && (!first || before)) {
            first = text;
            place = here;
        }
    }
    return first;
}

}  // namespace

std::optional<QString> readSymbol(const GrayImage& blackAndWhite)
{
    const auto hints = ZXing::DecodeHints()
                           .setFormats(ZXing::BarcodeFormat::QRCode)
                           .setBinarizer(ZXing::Binarizer::FixedThreshold)
                           .setTryDownscale(false);
    try {
        return firstText(ZXing::ReadBarcodes(
            {blackAndWhite.pixels.data(), blackAndWhite.width, blackAndWhite.height, ZXing::ImageFormat::Lum},
            hints));
    } catch (const std::exception& failure) {
        diagnostic(QStringLiteral("⚠️ QR detection failed: ") + QString::fromLocal8Bit(failure.what()));
        return std::nullopt;
    }
}

bool isTooBusy(const GrayImage& blackAndWhite)
{
    const FinderCount finders = roughFinderCount(blackAndWhite);
    return finders.plain > mostFinders || finders.tiny > mostTinyFinders;
}

}  // namespace morvak
