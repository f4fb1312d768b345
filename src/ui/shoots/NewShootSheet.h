#pragma once

#include "ui/base/blocks/SheetFrame.h"

class QLineEdit;

namespace morvak {

class ChoiceBox;
struct UiServices;

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
    NewShootSheet(UiServices& services, QWidget* window);

    [[nodiscard]] NewShoot shoot() const;

private:
    void addClient();
    void showClients();
    void manageClients();

    UiServices& m_services;
    QLineEdit* m_name;
    QLineEdit* m_location;
    ChoiceBox* m_client;
};

}  // namespace morvak
