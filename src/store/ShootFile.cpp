#include "store/ShootFile.h"

#include "model/ShootJson.h"
#include "text/JsonText.h"
#include "text/JsonWriter.h"

namespace morvak {

std::optional<QByteArray> encodeShootFile(const Shoot& shoot)
{
    JsonWriter json(JsonLayout::indented);
    writeShoot(json, shoot, isoDates);
    QByteArray bytes = json.take();
    const bool readable = !bytes.isNull() && isModestJson(bytes);
    return readable ? std::optional(std::move(bytes)) : std::nullopt;
}

std::optional<Shoot> decodeShootFile(const QByteArray& bytes, JsonFault& fault)
{
    const std::optional<QJsonValue> top = parseForeignJson(bytes, fault);
    return top ? readShoot(*top, isoDates, fault) : std::nullopt;
}

}  // namespace morvak
