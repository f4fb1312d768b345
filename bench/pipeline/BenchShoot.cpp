#include "BenchShoot.h"

#include "driver/PhotoCheck.h"
#include "driver/ReadBack.h"
#include "sampleshoot/PhotoEncoders.h"
#include "sampleshoot/SampleShoot.h"
#include "sampleshoot/StudioScene.h"

#include <QFile>

#include <algorithm>

namespace morvak::bench {

namespace {

samples::PhotoOptions photo(QSize picture, qsizetype size)
{
    return {.upright = samples::studioScene(samples::outfitOf(benchTagging().set), picture, 1), .size = size};
}

}  // namespace

BenchShoot::BenchShoot(qsizetype count, QList<QByteArray> kinds, const QStringList& suffixes)
    : m_kinds(std::move(kinds))
{
    for (qsizetype i = 0; i < count; ++i)
        m_names.append(QStringLiteral("MRV_%1.%2")
                           .arg(i + 1, 5, 10, QLatin1Char('0'))
                           .arg(suffixes.at(i % suffixes.size())));
}

BenchShoot BenchShoot::mixed(qsizetype count, qsizetype size)
{
    const samples::PhotoOptions options = photo({1620, 1080}, size);
    return BenchShoot(count,
                      {samples::jpegPhoto(options), samples::nefPhoto(options), samples::dngPhoto(options)},
                      {QStringLiteral("JPG"), QStringLiteral("NEF"), QStringLiteral("DNG")});
}

BenchShoot BenchShoot::nef(qsizetype count, qsizetype size)
{
    return BenchShoot(count, {samples::nefPhoto(photo({1620, 1080}, size))}, {QStringLiteral("NEF")});
}

BenchShoot BenchShoot::small(qsizetype count)
{
    return BenchShoot(count, {samples::jpegPhoto(photo({1200, 800}, 0))}, {QStringLiteral("JPG")});
}

void BenchShoot::write(const QDir& folder, qsizetype index) const
{
    QFile file(folder.filePath(m_names.at(index)));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        file.write(bytes(index)) != bytes(index).size())
        qFatal("cannot write %s: %s", qPrintable(file.fileName()), qPrintable(file.errorString()));
}

void BenchShoot::drop(const QDir& folder) const
{
    for (qsizetype i = 0; i < m_names.size(); ++i)
        write(folder, i);
}

const Tagging& benchTagging()
{
    static const Tagging tagging = samples::sampleTagging(QStringLiteral("Bench"));
    return tagging;
}

qsizetype countTagged(const QDir& folder, const QStringList& names)
{
    const auto photos = driver::readTags(folder.path(), names, QProcessEnvironment::systemEnvironment());
    if (!photos)
        return 0;
    return std::count_if(photos->cbegin(), photos->cend(), [](const driver::PhotoTags& tags) {
        return driver::tagFaults(tags, benchTagging()).isEmpty();
    });
}

}  // namespace morvak::bench
