#pragma once

#include "actions/SetFields.h"
#include "ui/base/blocks/SheetFrame.h"

class QLineEdit;

namespace morvak {

class ItemRows;
struct UiServices;

/// The fields of a set, to fill in by hand or from the catalog; `fields` is the answer when it is accepted.
class SetSheet : public SheetFrame {
    Q_OBJECT

public:
    [[nodiscard]] SetFields fields() const;

protected:
    SetSheet(UiServices& services, const QString& title, const QString& primaryLabel, QWidget* window);

    void fill(const SetFields& fields);

    /// Shows the number that the set gets when the field stays empty.
    void showDefaultNumber(const QString& number);

    void addEmptyItem();

private:
    void addFields();
    void addItems(UiServices& services);

    QLineEdit* m_number;
    QLineEdit* m_brand;
    QLineEdit* m_model;
    QLineEdit* m_location;
    QLineEdit* m_email;
    ItemRows* m_items;
};

/// Asks for a new set.
class NewSetSheet final : public SetSheet {
    Q_OBJECT

public:
    NewSetSheet(UiServices& services, QWidget* window);
};

/// Shows a set and asks for its changes.
class EditSetSheet final : public SetSheet {
    Q_OBJECT

public:
    EditSetSheet(UiServices& services, const SetData& set, QWidget* window);
};

}  // namespace morvak
