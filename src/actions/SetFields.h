#pragma once

#include "model/SetData.h"

namespace morvak {

/// What the user enters of a set, as typed.
struct SetFields {
    QString setNumber;
    QString brand;
    QString model;
    QString location;
    QString email;
    QList<SetItem> items;
};

/// `set` with these fields; all else of it stays. Pure.
[[nodiscard]] SetData withFields(SetData set, const SetFields& fields);

}  // namespace morvak
