#include "text/JsonText.h"

#include "text/ImportText.h"

#include <QJsonDocument>

#include <algorithm>

namespace morvak {

namespace {

/// A value takes up to some hundred bytes once it is read, however short it is written.
constexpr qsizetype mostForeignValues = 4'000'000;

/// The number of values at most: marks inside strings are counted along.
qsizetype mostValuesIn(const QByteArray& bytes)
{
    const auto beginsValue = [](char c) { return c == ',' || c == '[' || c == '{' || c == ':'; };
    return std::count_if(bytes.begin(), bytes.end(), beginsValue);
}

}  // namespace

std::optional<QJsonValue> parseJson(const QByteArray& bytes, JsonFault& fault)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        fault = {{}, QStringLiteral("geen JSON bij byte %1: %2").arg(error.offset).arg(error.errorString())};
        return std::nullopt;
    }
    return document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
}

bool isModestJson(const QByteArray& bytes)
{
    return bytes.size() <= mostImportedBytes && mostValuesIn(bytes) <= mostForeignValues;
}

std::optional<QJsonValue> parseForeignJson(const QByteArray& bytes, JsonFault& fault)
{
    if (isModestJson(bytes))
        return parseJson(bytes, fault);
    fault = {{}, QStringLiteral("te groot")};
    return std::nullopt;
}

}  // namespace morvak
