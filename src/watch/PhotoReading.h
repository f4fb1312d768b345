#pragma once

#include "watch/PreviewImage.h"

#include <QImage>
#include <QString>

#include <functional>
#include <optional>
#include <stop_token>

namespace morvak {

/// What looking into one photo gave.
struct PhotoReading {
    QImage thumbnail;                 ///< 120 x 80; null when the photo shows nothing
    std::optional<QString> codeText;  ///< the text of the QR code on it
    /// Late when the metadata tool left a question about the photo unanswered, and when nobody has looked.
    ToolAnswer::Kind tool = ToolAnswer::Kind::Late;

    /// Whether a code may be on the photo that was not seen.
    [[nodiscard]] bool isIncomplete() const { return tool == ToolAnswer::Kind::Late && !codeText; }
};

/// What looking into a photo needs.
struct PhotoEyes {
    PreviewTool tool;
    std::function<std::optional<QString>(const QImage& in, const std::stop_token& stop)> detectQRText;
};

/// Extracts the preview of a photo and, when `detectCode` is set, looks for a QR code on it; where the
/// preview is missing, or small and without a code, also on the file's own picture. A tool that does not
/// answer in time is asked nothing more about this photo. Blocks, on a pool thread; ends early when `stop` is
/// requested.
[[nodiscard]] PhotoReading readPhoto(const QString& path, bool detectCode, const PhotoEyes& eyes,
                                     const std::stop_token& stop);

}  // namespace morvak
