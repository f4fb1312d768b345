#pragma once

#include "ui/blocks/SheetFrame.h"

class QComboBox;
class QLineEdit;

namespace morvak {

/// What the user entered for a new shoot, as typed.
struct NewShoot {
    QString name;
    QString location;
    QString client;  ///< empty for none
};

/// Asks for a new shoot; `shoot` is the answer when it is accepted.
class NewShootSheet final : public SheetFrame {
    Q_OBJECT

public:
    /// `clients` to pick from.
    NewShootSheet(const QStringList& clients, QWidget* window);

    [[nodiscard]] NewShoot shoot() const;

private:
    QLineEdit* m_name;
    QLineEdit* m_location;
    QComboBox* m_client;
};

}  // namespace morvak
