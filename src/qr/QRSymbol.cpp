#include "qr/QRSymbol.h"

#include "platform/Diagnostics.h"

#include <QStringEncoder>

#include <cstdint>
#include <exception>
#include <vector>

namespace morvak {

namespace {

std::optional<std::vector<std::uint8_t>> utf8Bytes(const QString& text)
{
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    const QByteArray bytes = encoder(text);
    if (encoder.hasError())
        return std::nullopt;
    return std::vector<std::uint8_t>(bytes.begin(), bytes.end());
}

}  // namespace

std::optional<qrcodegen::QrCode> encodeSymbol(const QString& text)
{
    using qrcodegen::QrCode;
    constexpr int automaticMask = -1;
    constexpr bool raiseLevelWhereFree = false;
    const auto bytes = utf8Bytes(text);
    if (!bytes)
        return std::nullopt;
    try {
        return QrCode::encodeSegments({qrcodegen::QrSegment::makeBytes(*bytes)}, QrCode::Ecc::MEDIUM,
                                      QrCode::MIN_VERSION, QrCode::MAX_VERSION, automaticMask,
                                      raiseLevelWhereFree);
    } catch (const std::exception&) {  // too long for the largest symbol
        return std::nullopt;
    }
}

void reportNoSymbol(const SetData& set)
{
    constexpr qsizetype enoughToKnowIt = 80;
    diagnostic(QStringLiteral("⚠️ Geen QR-code voor %1: de tekst is te lang of ongeldig")
                   .arg(set.headline().left(enoughToKnowIt)));
}

}  // namespace morvak
