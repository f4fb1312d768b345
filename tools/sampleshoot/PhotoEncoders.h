#pragma once

#include "sampleshoot/PhotoOptions.h"

#include <QByteArray>

namespace morvak::samples {

/// A JPEG (ITU-T T.81) with an Exif block (CIPA DC-008).
[[nodiscard]] QByteArray jpegPhoto(const PhotoOptions& options);

/// An uncompressed RGB picture (baseline TIFF 6.0).
[[nodiscard]] QByteArray tiffPhoto(const PhotoOptions& options);

/// RAW containers: the camera's directories, a JPEG preview where that camera keeps it, and one strip of
/// noise as RAW data. They read and write like the real ones, but nothing can develop them.
[[nodiscard]] QByteArray dngPhoto(const PhotoOptions& options);
[[nodiscard]] QByteArray nefPhoto(const PhotoOptions& options);
[[nodiscard]] QByteArray arwPhoto(const PhotoOptions& options);
[[nodiscard]] QByteArray cr2Photo(const PhotoOptions& options);

/// The plain JPEG bytes of a picture, without any metadata.
[[nodiscard]] QByteArray bareJpeg(const QImage& picture, int quality);

}  // namespace morvak::samples
