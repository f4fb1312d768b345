#pragma once

#include "model/SetData.h"

#include <QString>

namespace morvak {

/// What the user looks for among the sets: a text that is contained in a set's brand, model, number or in the
/// name of one of its items. Case is ignored as the user's locale does. Pure; any thread.
class SetSearch {
public:
    /// `entered` as typed; spaces and tabs at its ends do not count. An empty search finds every set.
    explicit SetSearch(const QString& entered = {});

    /// What a set is found by, to be made once and kept with the set.
    [[nodiscard]] static QString keyOf(const SetData& set);

    [[nodiscard]] bool isEmpty() const { return m_wanted.isEmpty(); }
    [[nodiscard]] bool finds(const QString& key) const { return key.contains(m_wanted); }
    [[nodiscard]] bool operator==(const SetSearch&) const = default;

private:
    QString m_wanted;
};

}  // namespace morvak
