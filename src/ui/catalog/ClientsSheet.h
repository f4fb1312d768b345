#pragma once

#include "ui/base/blocks/SheetFrame.h"

namespace morvak {

class EntryField;
class NoticeLine;
class ProductCatalog;
class RowList;
class Theme;
struct UiServices;

/// Maintains the list of clients. `knownClients` are those of the shoots: they are listed as well, and stay.
class ClientsSheet final : public SheetFrame {
    Q_OBJECT

public:
    explicit ClientsSheet(UiServices& services, const QStringList& knownClients, QWidget* window);

private:
    void addNewClientRow();
    void addList(const Theme& theme);
    void showClients();
    void addClient();
    void deleteClient(const QString& name);

    ProductCatalog& m_catalog;
    QStringList m_knownClients;
    EntryField* m_newClient = nullptr;
    RowList* m_clients = nullptr;
    NoticeLine* m_notice;
};

}  // namespace morvak
