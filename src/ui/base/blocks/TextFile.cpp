#include "ui/base/blocks/TextFile.h"

#include "text/ImportText.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

namespace morvak {

std::variant<QString, TextFileFault> readTextFile(const QString& path)
{
    // A pipe would be waited for.
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return TextFileFault::unreadable;
    const QByteArray bytes = file.read(mostImportedBytes + 1);
    if (file.error() != QFileDevice::NoError)
        return TextFileFault::unreadable;
    if (bytes.isEmpty())
        return TextFileFault::empty;
    if (bytes.size() > mostImportedBytes)
        return TextFileFault::tooLarge;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder(bytes);
    if (decoder.hasError() || text.contains(QChar::Null))
        return TextFileFault::notUtf8;
    return text.startsWith(QChar::ByteOrderMark) ? text.sliced(1) : text;
}

}  // namespace morvak
