#pragma once

#include "qr/GrayImage.h"

#include <QString>

#include <optional>

namespace morvak {

/// Looks for QR Code symbols (ISO/IEC 18004, model 2) in a picture that is black and white already, split at
/// 128, and not too busy; gives the text of the first one, in reading order, whose error correction came out
/// and that is not empty. What the decoding library throws becomes a diagnostic line and none.
[[nodiscard]] std::optional<QString> readSymbol(const GrayImage& blackAndWhite);

/// Whether a picture is full of what looks like finder patterns: looking for symbols would take minutes.
[[nodiscard]] bool isTooBusy(const GrayImage& blackAndWhite);

}  // namespace morvak
