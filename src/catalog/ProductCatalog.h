#pragma once

#include "catalog/Product.h"
#include "platform/StoreSaver.h"

#include <QObject>

namespace morvak {

/// The products, clients and brands that the user picks from when a shoot or a set is made.
///
/// Lives on the main thread. Every assignment to a published list is announced by its signal, when the
/// operation has done all its work; each operation that changes a list has by then written the file. Names
/// given to the operations are trimmed unless said otherwise. When the file cannot be written, `saver` says
/// why, and it is tried again until it works; what was entered stays here. A file that could not be read is
/// copied aside before it is replaced.
class ProductCatalog final : public QObject {
    Q_OBJECT

public:
    /// Starts empty.
    explicit ProductCatalog(QString savePath, QObject* parent = nullptr,
                            std::chrono::milliseconds saveRetry = StoreSaver::usualRetry);

    /// In the order of their names, but after `load` in that of the file.
    [[nodiscard]] const QList<Product>& products() const { return m_data.products; }
    [[nodiscard]] const QStringList& clients() const { return m_data.clients; }
    [[nodiscard]] const QStringList& brands() const { return m_data.brands; }

    /// The brands of the list and of the products in the order of names, each once. Names that differ only
    /// in case stay apart.
    [[nodiscard]] QStringList allBrandNames() const;
    [[nodiscard]] QStringList allClientNames() const;

    /// Takes over what the file holds; changes nothing when it cannot be read, or when it lacks what was
    /// entered because that could not be saved.
    void load();
    void save();
    [[nodiscard]] const QString& savePath() const { return m_saver.path(); }

    /// For the quit: saves what could not be saved before.
    void saveRest();

    /// How the file is doing.
    [[nodiscard]] const StoreSaver& saver() const { return m_saver; }

    /// Puts the products in order and saves.
    void sortAndSave();

    /// Do nothing without a name, or when it is listed already, in whatever case.
    void addClient(const QString& name);
    void addBrand(const QString& name);

    /// A new product, also when another has its name; nothing without a name. Colours and brand stay as
    /// given.
    void addProduct(const QString& name, const QStringList& colors, const QString& brand);

    /// The brand is trimmed as well. Nothing when no product has the id.
    void updateProduct(QUuid id, const QString& name, const QStringList& colors, const QString& brand);

    void deleteProduct(QUuid id);

    /// Take exactly this name off the list. Products and shoots that carry it keep it.
    void deleteBrand(const QString& name);
    void deleteClient(const QString& name);

    /// Adds the products of a CSV text whose names are new, and says how many; 0 when it is too much to
    /// take. Always saves. `defaultBrand` is for the lines without a brand column.
    qsizetype importCSV(const QString& text, const QString& defaultBrand);
    [[nodiscard]] QString exportCSV() const;

Q_SIGNALS:
    void productsChanged();
    void clientsChanged();
    void brandsChanged();

private:
    StoreSaver m_saver;
    CatalogData m_data;
};

}  // namespace morvak
