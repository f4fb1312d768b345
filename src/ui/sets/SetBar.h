#pragma once

#include "model/Shoot.h"

#include <QWidget>

class QLabel;

namespace morvak {

class ElidedLabel;
class SetsButtons;
class Theme;

/// A new set, the shoot file, the folder of the shoot and how far it is.
class SetBar final : public QWidget {
    Q_OBJECT

public:
    SetBar(const Theme& theme, SetsButtons& buttons, QWidget* parent = nullptr);

    void showShoot(const std::optional<Shoot>& shoot);

private:
    ElidedLabel* m_folder;
    QLabel* m_statistics;
};

}  // namespace morvak
