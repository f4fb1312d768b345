#include "ui/sets/SetSheet.h"

namespace morvak {

SetData withFields(SetData set, const SetFields& fields)
{
    set.setNumber = fields.setNumber;
    set.brand = fields.brand;
    set.model = fields.model;
    set.location = fields.location;
    set.email = fields.email;
    set.items = fields.items;
    return set;
}

SetSheet::SetSheet(UiServices&, const QString& title, const QString&, QWidget* window)
    : SheetFrame(title, window)
{
}

SetFields SetSheet::fields() const
{
    return {};
}

void SetSheet::fill(const SetFields&) {}

NewSetSheet::NewSetSheet(UiServices& services, QWidget* window)
    : SetSheet(services, tr("Nieuwe Set"), tr("Toevoegen"), window)
{
}

EditSetSheet::EditSetSheet(UiServices& services, const SetData&, QWidget* window)
    : SetSheet(services, tr("Set bewerken"), tr("Opslaan"), window)
{
}

}  // namespace morvak
