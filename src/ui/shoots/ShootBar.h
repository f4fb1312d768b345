#pragma once

#include <QWidget>

namespace morvak {

class SetsButtons;
class ShootManager;

/// The shoots to pick from, and the buttons of all that is done with a shoot. Wraps where it is narrow.
class ShootBar final : public QWidget {
    Q_OBJECT

public:
    /// `backlogProgress` stands behind the button that starts it.
    ShootBar(ShootManager& shoots, SetsButtons& buttons, QWidget* backlogProgress, QWidget* parent = nullptr);
};

}  // namespace morvak
