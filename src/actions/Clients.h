#pragma once

#include "model/Shoot.h"

#include <QStringList>

namespace morvak {

/// The clients of the shoots and those listed, each once, in the order of names; empty ones left out. Pure.
[[nodiscard]] QStringList knownClients(const QList<Shoot>& shoots, const QStringList& listed = {});

/// The first of the brands that is called like the client, ignoring case; empty without one. Pure.
[[nodiscard]] QString brandOfClient(const QStringList& brands, const QString& client);

}  // namespace morvak
