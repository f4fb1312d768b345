#include "actions/SetFields.h"

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

}  // namespace morvak
