#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QUuid>

#include <optional>
#include <type_traits>

namespace morvak {

/// Why JSON could not be read as the value it should hold; in Dutch, for a diagnostic line.
struct JsonFault {
    QString where;  ///< such as `[0].sets[3].brand`; empty for the whole
    QString what;

    [[nodiscard]] bool isSet() const { return !what.isEmpty(); }
    [[nodiscard]] QString message() const { return where.isEmpty() ? what : where + u' ' + what; }
    void stepOut(const QString& place) { where.prepend(place); }
};

/// A reader is any `std::optional<Value>(const QJsonValue&, JsonFault&)` that sets the fault when it gives
/// none.
template <typename Read>
using ReadValue = typename std::invoke_result_t<const Read&, const QJsonValue&, JsonFault&>::value_type;

/// Readers of the plain types: nothing is converted, and a missing value is of no type.
std::optional<QString> readJsonText(const QJsonValue& value, JsonFault& fault);
std::optional<double> readJsonNumber(const QJsonValue& value, JsonFault& fault);
/// Exact over the whole range of 64 bits.
std::optional<qint64> readJsonInteger(const QJsonValue& value, JsonFault& fault);
/// The 36-character hyphenated form in either case, and no other.
std::optional<QUuid> readJsonUuid(const QJsonValue& value, JsonFault& fault);
std::optional<QJsonArray> readJsonArray(const QJsonValue& value, JsonFault& fault);

/// Every element of an array, in order.
template <typename Read>
std::optional<QList<ReadValue<Read>>> readJsonList(const QJsonValue& value, const Read& readElement,
                                                   JsonFault& fault)
{
    const std::optional<QJsonArray> array = readJsonArray(value, fault);
    if (!array)
        return std::nullopt;
    QList<ReadValue<Read>> elements;
    elements.reserve(array->size());
    for (qsizetype i = 0; i < array->size(); ++i) {
        std::optional<ReadValue<Read>> element = readElement(array->at(i), fault);
        if (!element) {
            fault.stepOut(QStringLiteral("[%1]").arg(i));
            return std::nullopt;
        }
        elements.append(*std::move(element));
    }
    return elements;
}

/// Takes the fields of one JSON object. The first one that cannot be read sets the fault, after which every
/// field gives an empty value; the caller asks `intact` once, at the end. Null counts as missing.
class JsonFields {
public:
    JsonFields(const QJsonValue& value, JsonFault& fault);

    [[nodiscard]] bool intact() const { return !m_fault.isSet(); }

    template <typename Read>
    [[nodiscard]] ReadValue<Read> required(QLatin1StringView key, const Read& read)
    {
        if (!intact())
            return {};
        if (std::optional<ReadValue<Read>> value = read(m_object.value(key), m_fault))
            return *std::move(value);
        m_fault.stepOut(u'.' + QString(key));
        return {};
    }

    template <typename Read>
    [[nodiscard]] std::optional<ReadValue<Read>> optional(QLatin1StringView key, const Read& read)
    {
        const QJsonValue value = m_object.value(key);
        return value.isUndefined() || value.isNull() ? std::nullopt : std::optional(required(key, read));
    }

    [[nodiscard]] QString text(QLatin1StringView key) { return required(key, readJsonText); }
    [[nodiscard]] QUuid uuid(QLatin1StringView key) { return required(key, readJsonUuid); }

private:
    QJsonObject m_object;
    JsonFault& m_fault;
};

/// A reader of lists, made of a reader of their elements.
template <typename Read>
[[nodiscard]] auto listOf(Read readElement)
{
    return [readElement](const QJsonValue& value, JsonFault& fault) {
        return readJsonList(value, readElement, fault);
    };
}

}  // namespace morvak
