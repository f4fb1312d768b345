#pragma once

#include "model/SetData.h"

#include <QString>

#include <qrcodegen/qrcodegen.hpp>

#include <optional>

namespace morvak {

/// The width that stays white around a QR Code symbol, in modules (ISO/IEC 18004).
constexpr int quietZone = 4;

/// The QR Code symbol that holds `text` as UTF-8 in byte mode at error correction level M exactly, in the
/// smallest version that fits. Pure, any thread.
///
/// None when the text is no valid UTF-16 (a lone surrogate) or exceeds 2,331 bytes.
[[nodiscard]] std::optional<qrcodegen::QrCode> encodeSymbol(const QString& text);

/// The diagnostic line for a set whose text has no symbol.
void reportNoSymbol(const SetData& set);

}  // namespace morvak
