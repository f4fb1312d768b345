#pragma once

#include "model/Timestamp.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QUuid>

#include <optional>

namespace morvak {

/// One product or garment of a set.
struct SetItem {
    QUuid id = QUuid::createUuid();  ///< fixed when the item is made
    QString name;
    QString color;  ///< may be empty

    /// Reads `name/colour` or `name` with blanks around each part, slashes at the start skipped. The name is
    /// empty where blanks stand for it; none when there is nothing but slashes.
    [[nodiscard]] static std::optional<SetItem> parse(QStringView text);

    /// Name, separator and colour; the name alone without a colour.
    [[nodiscard]] QString joined(QChar separator) const;
};

/// One set: an outfit or product combination that is photographed as a unit.
///
/// A value, told apart only by its `id`. The operations are pure; `parse` also reads the clock and draws
/// ids. Any thread.
struct SetData {
    QUuid id = QUuid::createUuid();  ///< fixed when the record is made
    QString setNumber;               ///< as the user writes it, never a number here
    QString brand;
    QList<SetItem> items;  ///< in the order of set text, description and keywords
    QString model;         ///< the person who models the set
    QString location;
    Timestamp timestamp = Timestamp::now();  ///< when the record was made
    qint64 taggedCount = 0;                  ///< files tagged with this set
    QString email;                           ///< may be empty

    /// Reads set text, the lines `KEY:value` of a set card, as a new record with fresh ids. Lines that are
    /// no such line are skipped, and so is an item of slashes only. None when the text gives neither a set
    /// number nor a brand.
    [[nodiscard]] static std::optional<SetData> parse(const QString& text);

    /// The set text: lines in a fixed order, joined by LF. A field that holds a line break does not survive
    /// it.
    [[nodiscard]] QString toQRText() const;

    /// "Set 12 — Noord"; empty when there is neither a set number nor a brand.
    [[nodiscard]] QString headline() const;

    /// "Overshirt navy, Chino".
    [[nodiscard]] QString description() const;

    /// "Set 12", "Noord", "Overshirt", "navy", "Chino"; an item's name also when it is empty.
    [[nodiscard]] QStringList keywords() const;
};

}  // namespace morvak
