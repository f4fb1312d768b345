#include "platform/InstanceMessage.h"

#include "platform/FileName.h"

#include <QtEndian>

#include <algorithm>

namespace morvak {

namespace {

constexpr qsizetype lengthBytes = sizeof(quint32);
constexpr QByteArrayView activate("activate\0", 9);
constexpr QByteArrayView open("open\0", 5);

}  // namespace

QByteArray encodeInstanceMessage(const QStringList& files)
{
    QByteArray body = (files.isEmpty() ? activate : open).toByteArray();
    for (const QString& file : files)
        body += encodeFileName(file) + '\0';
    QByteArray message(lengthBytes, Qt::Uninitialized);
    qToBigEndian(quint32(body.size()), message.data());
    return message + body;
}

InstanceMessage decodeInstanceMessage(QByteArrayView bytes)
{
    const InstanceMessage incomplete{InstanceMessage::State::Incomplete, {}};
    const InstanceMessage refused{InstanceMessage::State::Refused, {}};
    if (bytes.size() < lengthBytes)
        return incomplete;
    const qsizetype length = qFromBigEndian<quint32>(bytes.data());
    const QByteArrayView body = bytes.sliced(lengthBytes);
    if (length > longestInstanceMessage - lengthBytes || body.size() > length)
        return refused;
    if (body.size() < length)
        return incomplete;
    if (body == activate)
        return {InstanceMessage::State::Complete, {}};
    if (!body.startsWith(open) || body.size() == open.size() || !body.endsWith('\0'))
        return refused;
    QStringList files;
    for (const QByteArray& name : body.sliced(open.size()).chopped(1).toByteArray().split('\0'))
        files.append(decodeFileName(name));
    const bool allAbsolute =
        std::all_of(files.begin(), files.end(), [](const QString& file) { return file.startsWith(u'/'); });
    return allAbsolute ? InstanceMessage{InstanceMessage::State::Complete, files} : refused;
}

}  // namespace morvak
