#pragma once

#include "sampleshoot/PhotoOptions.h"
#include "sampleshoot/TiffWriter.h"

namespace morvak::samples {

/// An IFD0 with what every camera writes: make, model, orientation, resolution and date.
[[nodiscard]] Ifd cameraIfd(QByteArrayView make, QByteArrayView model, const PhotoOptions& options);

/// An Exif IFD with version, date and a studio exposure.
[[nodiscard]] Ifd exifIfd(const PhotoOptions& options);

/// 300 pixels an inch.
void addResolution(Ifd& ifd);

/// An uncompressed RGB picture as the directory's own.
void addRgbPicture(Ifd& ifd, const QImage& picture);

/// Size, sample layout and compression of a picture whose data the caller adds.
void addPictureTags(Ifd& ifd, QSize size, quint16 compression, quint16 photometric);

}  // namespace morvak::samples
