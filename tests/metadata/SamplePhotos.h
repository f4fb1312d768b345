#pragma once

#include <QByteArray>

namespace morvak::test {

/// A photo as JPEG, drawn here; `side` in pixels.
[[nodiscard]] QByteArray jpegPhoto(int side = 64);

/// A baseline TIFF 6.0 file of one grey pixel, little-endian, as many RAW formats are built.
[[nodiscard]] QByteArray tiffPhoto();

}  // namespace morvak::test
