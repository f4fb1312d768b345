#pragma once

#include "model/Shoot.h"
#include "ui/base/blocks/NoticeLine.h"

class QWidget;

namespace morvak {

struct UiServices;

/// What a shoot is written as.
enum class ShootExport {
    csv,        ///< its sets
    json,       ///< all of it, to be read by other programs
    shootFile,  ///< all of it, to be opened again
};

/// "Ibiza.csv"; after the sets where there is no shoot.
[[nodiscard]] QString proposedFileName(ShootExport kind, const std::optional<Shoot>& shoot);

/// Asks where, and writes the active shoot there as it is then. Gives what to tell of it; none when there is
/// no shoot or the user cancels.
std::optional<Notice> exportShoot(UiServices& services, ShootExport kind, QWidget* window);

}  // namespace morvak
