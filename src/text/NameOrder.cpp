#include "text/NameOrder.h"

#include <algorithm>

namespace morvak {

NameOrder::NameOrder()
{
    if (m_collator.locale().language() == QLocale::C)  // there Qt compares code points
        m_collator.setLocale(QLocale(QLocale::Dutch));
    m_collator.setCaseSensitivity(Qt::CaseInsensitive);
}

QStringList sortedByName(QStringList names)
{
    std::stable_sort(names.begin(), names.end(), NameOrder());
    return names;
}

QStringList distinctByName(QStringList names)
{
    names.removeAll(QString());
    names.removeDuplicates();
    return sortedByName(names);
}

QString caseFolded(QStringView name)
{
    QString folded;
    folded.reserve(name.size());
    for (qsizetype i = 0; i < name.size(); ++i) {
        char32_t code = name[i].unicode();
        if (name[i].isHighSurrogate() && i + 1 < name.size() && name[i + 1].isLowSurrogate()) {
            code = QChar::surrogateToUcs4(name[i], name[i + 1]);
            ++i;
        }
        folded.append(QChar::fromUcs4(QChar::toCaseFolded(code)));
    }
    return folded;
}

}  // namespace morvak
