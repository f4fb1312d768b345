#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUuid>

namespace morvak {

/// A product that returns from shoot to shoot. A value, told apart only by its `id`. Any thread.
struct Product {
    QUuid id = QUuid::createUuid();  ///< fixed when the product is made
    QString name;
    QStringList colors;  ///< the colours it is known in, in the order given
    QString brand;       ///< empty: general, of no brand
};

/// All that the catalog keeps. Clients and brands are lists of their own: a client may have products of
/// several brands.
struct CatalogData {
    QList<Product> products;
    QStringList clients;
    QStringList brands;
};

}  // namespace morvak
