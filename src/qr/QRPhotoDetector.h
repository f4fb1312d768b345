#pragma once

#include <QImage>
#include <QString>

#include <optional>
#include <stop_token>

namespace morvak {

/// Reads the QR code of a set card on a photograph.
///
/// Stateless; called on any thread, by several at once. A photo without anything that looks like a code costs
/// one quick look; only one photo at a time is in the dear steps, the others wait for it.
class QRPhotoDetector {
public:
    /// The text of the first code found in `in`, an upright photo of any format and size. Of several codes
    /// that the first look finds it is the first in reading order.
    ///
    /// None when there is no code, none that can be read without doubt, or `stop` was requested: it is looked
    /// at between steps of at most about 0.1 s, and ends the waiting. What the decoding library throws
    /// becomes a diagnostic line and none.
    [[nodiscard]] static std::optional<QString> detectQRText(const QImage& in,
                                                             const std::stop_token& stop = {});
};

}  // namespace morvak
