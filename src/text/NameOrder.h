#pragma once

#include <QCollator>
#include <QStringList>

namespace morvak {

/// Whether a name of a product, client or brand comes before another: collated as the user's locale says
/// (Unicode Technical Standard #10), in Dutch where it says nothing, with case left out of account. For
/// stable sorting. One thread at a time.
class NameOrder {
public:
    NameOrder();

    bool operator()(const QString& a, const QString& b) const { return m_collator.compare(a, b) < 0; }

private:
    QCollator m_collator;
};

/// The names in that order; those that compare equal keep theirs. Any thread.
[[nodiscard]] QStringList sortedByName(QStringList names);

/// The names in that order, each once and empty ones left out. Any thread.
[[nodiscard]] QStringList distinctByName(QStringList names);

/// `name` with the simple case folding of Unicode: two names are the same but for case, whatever the locale,
/// when these keys are equal; `QString::compare` with `Qt::CaseInsensitive` says the same. Any thread.
[[nodiscard]] QString caseFolded(QStringView name);

}  // namespace morvak
