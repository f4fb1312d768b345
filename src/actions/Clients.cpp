#include "actions/Clients.h"

#include "text/NameOrder.h"

#include <algorithm>

namespace morvak {

QStringList knownClients(const QList<Shoot>& shoots, const QStringList& listed)
{
    QStringList clients = listed;
    for (const Shoot& shoot : shoots)
        clients.append(shoot.client);
    return distinctByName(clients);
}

QString brandOfClient(const QStringList& brands, const QString& client)
{
    const auto found = std::ranges::find_if(
        brands, [&client](const QString& brand) { return brand.compare(client, Qt::CaseInsensitive) == 0; });
    return found == brands.cend() ? QString() : *found;
}

}  // namespace morvak
