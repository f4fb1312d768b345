#include "text/Csv.h"

#include <algorithm>

namespace morvak {

QString csvField(const QString& value)
{
    const auto forcesQuotes = [](QChar c) { return c == u';' || c == u'"' || c == u'\n'; };
    if (std::none_of(value.begin(), value.end(), forcesQuotes))
        return value;
    QString quoted = value;
    quoted.replace(u'"', QStringLiteral("\"\""));
    return u'"' + quoted + u'"';
}

}  // namespace morvak
