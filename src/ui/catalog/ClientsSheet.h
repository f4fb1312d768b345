#pragma once

#include "ui/blocks/SheetFrame.h"

namespace morvak {

struct UiServices;

/// Maintains the list of clients. `knownClients` are those of the shoots.
class ClientsSheet final : public SheetFrame {
    Q_OBJECT

public:
    explicit ClientsSheet(UiServices& services, const QStringList& knownClients, QWidget* window);
};

}  // namespace morvak
