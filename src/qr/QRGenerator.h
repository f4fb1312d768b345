#pragma once

#include <QImage>
#include <QString>

#include <optional>

namespace morvak {

/// Makes QR Code symbols (ISO/IEC 18004) for set cards. Stateless; callable on any thread.
class QRGenerator {
public:
    /// The symbol that holds `from` as UTF-8 in byte mode at error correction level M exactly, in the
    /// smallest version that fits, black on white with the standard's quiet zone of four modules. `size` is
    /// the edge in pixels, rounded to a whole number; the image is exactly that large. Modules differ by at
    /// most one pixel.
    ///
    /// None when the text is no valid UTF-16 (a lone surrogate), exceeds 2,331 bytes, or `size` is not within
    /// 1 to 16,384. An image smaller than the symbol's modules is made too, but cannot be read.
    [[nodiscard]] static std::optional<QImage> generate(const QString& from, double size);
};

}  // namespace morvak
