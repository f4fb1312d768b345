#pragma once

#include <QByteArray>

#include <optional>

namespace morvak::samples {

/// The bytes of a photo that are its picture and must survive tagging untouched, read by the file's own
/// offsets: of a JPEG everything from the start of scan on, of a TIFF structure (RAW containers too) every
/// strip and embedded JPEG of its directories in turn. None when the photo is neither or its structure points
/// outside the file.
[[nodiscard]] std::optional<QByteArray> pictureData(const QByteArray& photo);

}  // namespace morvak::samples
