#pragma once

#include "driver/Pacer.h"

#include <QByteArray>
#include <QString>

namespace morvak::demo {

/// How a tethering program brings a photo into its folder.
enum class Delivery {
    Direct,  // opened, written and closed under its own name
    Renamed  // written as NAME.part, then renamed
};

/// Writes a photo as it comes over the cable: in pieces that take `duration` together. False when the file
/// could not be written, or the pacer was stopped before it was whole.
[[nodiscard]] bool deliver(const QByteArray& photo, const QString& path, Delivery delivery,
                           std::chrono::milliseconds duration, driver::Pacer& pacer);

}  // namespace morvak::demo
