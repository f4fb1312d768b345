#pragma once

#include "model/Shoot.h"

#include <QRandomGenerator>

namespace morvak::test {

/// Records with awkward texts: control characters, lone surrogates, any character of the BMP.

inline QString randomText(QRandomGenerator& random)
{
    QString text;
    for (int n = random.bounded(12); n > 0; --n) {
        const quint32 kind = random.bounded(3u);
        const quint32 end = kind == 0 ? 0x80 : kind == 1 ? 0x10000 : 0x30;
        text += QChar(static_cast<char16_t>(random.bounded(end)));
    }
    return text;
}

inline Timestamp randomDate(QRandomGenerator& random)
{
    return {random.generateDouble() * 1e9 - 1e8};
}

inline SetData randomSet(QRandomGenerator& random)
{
    SetData set;
    set.setNumber = randomText(random);
    set.brand = randomText(random);
    for (int n = random.bounded(4); n > 0; --n)
        set.items.append({.name = randomText(random), .color = randomText(random)});
    set.model = randomText(random);
    set.location = randomText(random);
    set.timestamp = randomDate(random);
    set.taggedCount = static_cast<qint64>(random.generate64());
    set.email = randomText(random);
    return set;
}

inline Shoot randomShoot(QRandomGenerator& random)
{
    Shoot shoot;
    shoot.name = randomText(random);
    shoot.location = randomText(random);
    shoot.client = randomText(random);
    shoot.date = randomDate(random);
    for (int n = random.bounded(6); n > 0; --n) {
        shoot.sets.append(randomSet(random));
        shoot.activationLog.append({.setId = shoot.sets.last().id, .activatedAt = randomDate(random)});
    }
    if (random.bounded(2) == 0)
        shoot.watchFolderPath = randomText(random);
    return shoot;
}

/// `file` with the first text replaced by the second one; empty when the first is not there.
inline QByteArray with(QByteArray file, const char* before, const char* after)
{
    return file.contains(before) ? file.replace(before, after) : QByteArray();
}

}  // namespace morvak::test
