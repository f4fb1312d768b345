#include "store/StoreFile.h"

#include "model/ShootJson.h"
#include "text/JsonText.h"
#include "text/JsonWriter.h"

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
    const std::optional<QJsonValue> top = parseJson(bytes, fault);
    if (!top)
        return std::nullopt;
    const auto readOne = [](const QJsonValue& value, JsonFault& inner) {
        return readShoot(value, numericDates, inner);
    };
    return readJsonList(*top, readOne, fault);
}

}  // namespace morvak
