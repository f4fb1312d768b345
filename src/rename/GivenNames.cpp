#include "rename/GivenNames.h"

#include "platform/FolderHandle.h"

#include <algorithm>

namespace morvak {

namespace {

QString folded(const QString& name)
{
    return name.normalized(QString::NormalizationForm_KD).toCaseFolded();
}

}  // namespace

void GivenNames::add(const QString& name)
{
    m_names.insert(folded(name), name);
}

bool GivenNames::isTaken(const FolderHandle& folder, const QString& name) const
{
    const auto [first, last] = m_names.equal_range(folded(name));
    return std::any_of(first, last, [&](const QString& given) { return folder.areOneFile(given, name); });
}

}  // namespace morvak
