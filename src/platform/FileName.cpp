#include "platform/FileName.h"

#include <QStringDecoder>
#include <QStringEncoder>

namespace morvak {

namespace {

constexpr char16_t escapeBase = 0xDC00;

bool isEscapedByte(QChar c)
{
    return c.unicode() >= escapeBase + 0x80 && c.unicode() <= escapeBase + 0xFF;
}

/// Length of the valid UTF-8 sequence (RFC 3629) at the start of `bytes`; 0 when there is none.
qsizetype sequenceLength(QByteArrayView bytes)
{
    const auto lead = static_cast<unsigned char>(bytes.front());
    const qsizetype length = lead < 0x80   ? 1
                             : lead < 0xC2 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF5 ? 4
                                           : 0;
    if (length == 0 || length > bytes.size())
        return 0;
    return bytes.first(length).isValidUtf8() ? length : 0;
}

}  // namespace

QString decodeFileName(QByteArrayView bytes)
{
    if (bytes.isValidUtf8())
        return QString::fromUtf8(bytes);
    QString name;
    while (!bytes.isEmpty()) {
        if (const qsizetype length = sequenceLength(bytes)) {
            name += QString::fromUtf8(bytes.first(length));
            bytes = bytes.sliced(length);
        } else {
            name += QChar(static_cast<char16_t>(escapeBase + static_cast<unsigned char>(bytes.front())));
            bytes = bytes.sliced(1);
        }
    }
    return name;
}

QByteArray encodeFileName(const QString& name)
{
    QByteArray bytes;
    qsizetype start = 0;
    for (qsizetype i = 0; i < name.size(); ++i) {
        const bool partOfPair = i > 0 && name.at(i - 1).isHighSurrogate();
        if (!isEscapedByte(name.at(i)) || partOfPair)
            continue;
        bytes += QStringView(name).sliced(start, i - start).toUtf8();
        bytes += static_cast<char>(name.at(i).unicode() - escapeBase);
        start = i + 1;
    }
    return start == 0 ? name.toUtf8() : bytes + QStringView(name).sliced(start).toUtf8();
}

QString lastPathComponent(const QString& path)
{
    return path.sliced(path.lastIndexOf(u'/') + 1);
}

QString lowerCaseExtension(const QString& path)
{
    const QString name = lastPathComponent(path);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? QString() : name.sliced(dot + 1).toLower();
}

}  // namespace morvak
