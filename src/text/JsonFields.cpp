#include "text/JsonFields.h"

#include <cmath>

namespace morvak {

namespace {

bool isHexDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

bool isHyphenatedUuid(QStringView text)
{
    if (text.size() != 36)
        return false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool hyphen = i == 8 || i == 13 || i == 18 || i == 23;
        if (hyphen ? text[i] != u'-' : !isHexDigit(text[i]))
            return false;
    }
    return true;
}

std::nullopt_t notOfType(const QJsonValue& value, const QString& type, JsonFault& fault)
{
    const bool missing = value.isUndefined() || value.isNull();
    fault = {{}, missing ? QStringLiteral("ontbreekt") : QStringLiteral("is geen ") + type};
    return std::nullopt;
}

}  // namespace

std::optional<QString> readJsonText(const QJsonValue& value, JsonFault& fault)
{
    if (value.isString())
        return value.toString();
    return notOfType(value, QStringLiteral("tekst"), fault);
}

std::optional<double> readJsonNumber(const QJsonValue& value, JsonFault& fault)
{
    if (value.isDouble() && std::isfinite(value.toDouble()))
        return value.toDouble();
    return notOfType(value, QStringLiteral("getal"), fault);
}

std::optional<qint64> readJsonInteger(const QJsonValue& value, JsonFault& fault)
{
    // A number that is no 64-bit integer gives whichever default is asked for.
    const qint64 integer = value.toInteger(0);
    if (value.isDouble() && integer == value.toInteger(1))
        return integer;
    return notOfType(value, QStringLiteral("geheel getal"), fault);
}

std::optional<QUuid> readJsonUuid(const QJsonValue& value, JsonFault& fault)
{
    if (const QString text = value.toString(); isHyphenatedUuid(text))
        return QUuid::fromString(text);
    return notOfType(value, QStringLiteral("UUID"), fault);
}

std::optional<QJsonArray> readJsonArray(const QJsonValue& value, JsonFault& fault)
{
    if (value.isArray())
        return value.toArray();
    return notOfType(value, QStringLiteral("lijst"), fault);
}

JsonFields::JsonFields(const QJsonValue& value, JsonFault& fault) : m_object(value.toObject()), m_fault(fault)
{
    if (!value.isObject())
        notOfType(value, QStringLiteral("object"), fault);
}

}  // namespace morvak
