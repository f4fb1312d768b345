#include "store/StoreFile.h"

#include "model/ShootJson.h"
#include "text/JsonWriter.h"

#include <QJsonDocument>

namespace morvak {

std::optional<QByteArray> encodeShoots(const QList<Shoot>& shoots)
{
    JsonWriter json;
    json.list(shoots, [&json](const Shoot& shoot) { writeShoot(json, shoot, numericDates); });
    QByteArray bytes = json.take();
    return bytes.isNull() ? std::nullopt : std::optional(std::move(bytes));
}

std::optional<QList<Shoot>> decodeShoots(const QByteArray& bytes, JsonFault& fault)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        fault = {{}, QStringLiteral("geen JSON bij byte %1: %2").arg(error.offset).arg(error.errorString())};
        return std::nullopt;
    }
    const QJsonValue top = document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
    const auto readOne = [](const QJsonValue& value, JsonFault& inner) {
        return readShoot(value, numericDates, inner);
    };
    return readJsonList(top, readOne, fault);
}

}  // namespace morvak
