#include "qr/QRImageFile.h"

#include "platform/OutputFile.h"
#include "qr/QRGenerator.h"
#include "qr/QRSymbol.h"

#include <QBuffer>

namespace morvak {

QString proposedQRFileName(const SetData& set)
{
    return QStringLiteral("SET-") + set.setNumber + u'-' + set.brand + QStringLiteral(".png");
}

std::optional<QByteArray> qrPng(const SetData& set)
{
    constexpr int pixels = 600;
    std::optional<QImage> image = QRGenerator::generate(set.toQRText(), pixels);
    if (!image)
        return std::nullopt;
    // Below zero, Qt writes no resolution; zero it would ignore.
    image->setDotsPerMeterX(-1);
    image->setDotsPerMeterY(-1);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QBuffer::WriteOnly) || !image->save(&buffer, "PNG"))
        return std::nullopt;
    return bytes;
}

bool saveQR(const SetData& set, const QString& to)
{
    const std::optional<QByteArray> png = qrPng(set);
    if (!png) {
        reportNoSymbol(set);
        return false;
    }
    OutputFile file(to);
    file.write(*png);
    return file.commit();
}

}  // namespace morvak
