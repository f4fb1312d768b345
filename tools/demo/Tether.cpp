#include "demo/Tether.h"

#include <QFile>

#include <algorithm>

namespace morvak::demo {

namespace {

constexpr int pieces = 8;

bool writeInPieces(QFile& file, const QByteArray& photo, std::chrono::milliseconds duration,
                   driver::Pacer& pacer)
{
    const qsizetype step = photo.size() / pieces + 1;
    for (qsizetype at = 0; at < photo.size(); at += step) {
        const qsizetype length = std::min(step, photo.size() - at);
        if (file.write(photo.constData() + at, length) != length || !file.flush())
            return false;
        if (duration.count() > 0 && !pacer.pause(duration / pieces))
            return false;
    }
    return true;
}

}  // namespace

bool deliver(const QByteArray& photo, const QString& path, Delivery delivery,
             std::chrono::milliseconds duration, driver::Pacer& pacer)
{
    const bool renames = delivery == Delivery::Renamed;
    QFile file(renames ? path + QStringLiteral(".part") : path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) || !writeInPieces(file, photo, duration, pacer))
        return false;
    file.close();
    return !renames || file.rename(path);
}

}  // namespace morvak::demo
