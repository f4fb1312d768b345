#include "ui/qr/QRTexts.h"

#include "model/SetData.h"

#include <QStringEncoder>

namespace morvak {

namespace {

constexpr qsizetype mostBytes = 2331;  // version 40 at level M in byte mode, ISO/IEC 18004

}  // namespace

QString QRTexts::problem(const QString& text)
{
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    const QByteArray bytes = encoder(text);
    if (encoder.hasError())
        return tr("De gegevens bevatten een beschadigd teken. Typ de tekst opnieuw.");
    if (bytes.size() > mostBytes)
        return tr("Te veel tekst voor een QR-code (%1 tekens, er passen er %2 in). Laat items weg of kort ze "
                  "in.")
            .arg(bytes.size())
            .arg(mostBytes);
    return {};
}

QString QRTexts::caution(const std::optional<QString>& made, const QString& now)
{
    if (!made)
        return {};
    const QString reason = problem(*made);
    if (*made != now)
        return reason.isEmpty() ? tr("Deze QR-code is van vóór de wijziging; ‘Bewaar als PNG...’ bewaart de "
                                     "gegevens van nu. Klik op ‘Genereer QR’ om hem te vernieuwen.")
                                : QString();
    if (!reason.isEmpty())
        return reason;
    return SetData::parse(*made) ? QString()
                                 : tr("Zonder set nummer en merk maakt deze QR-code geen set actief.");
}

}  // namespace morvak
