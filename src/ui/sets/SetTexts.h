#pragma once

#include "model/Shoot.h"

#include <QCoreApplication>

namespace morvak {

/// What the Sets tab says about sets and shoots. Pure; any thread.
class SetTexts {
    Q_DECLARE_TR_FUNCTIONS(morvak::SetTexts)

public:
    /// The headline, and a name for a set that has none.
    [[nodiscard]] static QString name(const SetData& set);
    /// "34 foto's"
    [[nodiscard]] static QString count(const SetData& set);
    /// The whole row for a screen reader.
    [[nodiscard]] static QString spoken(const SetData& set, bool isActive);

    [[nodiscard]] static QString watchFolder(const std::optional<Shoot>& shoot);
    /// "12 sets · 348 foto's getagd"
    [[nodiscard]] static QString statistics(const Shoot& shoot);
};

/// The clients of the shoots and those listed, each once, in the order of names; empty ones left out.
[[nodiscard]] QStringList knownClients(const QList<Shoot>& shoots, const QStringList& listed = {});

}  // namespace morvak
