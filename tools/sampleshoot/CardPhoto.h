#pragma once

#include "model/SetData.h"

#include <QImage>

namespace morvak::samples {

/// A photo of the printed card of `set`, held up in the studio: tilted, unevenly lit, slightly soft and
/// grainy, as a photographer takes it before the first photo of a set. The code spans about a quarter of the
/// long side; it stays readable down to pictures of about 1,000 pixels. Null when the set's text does not fit
/// a code.
[[nodiscard]] QImage cardPhoto(const SetData& set, const QSize& size, quint32 seed);

}  // namespace morvak::samples
